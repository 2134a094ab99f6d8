// The run-time error: the one failure that the program's logic tests and reports.
//
// Programming errors of ours are std::logic_error or an assertion and always end the run; nothing
// that handles a RunTimeError may catch them.
#pragma once

#include <string>
#include <utility>

namespace corvel {

// The numbers that the logic tests. They are the established ones of the system's language.
namespace err {
inline constexpr int kInvalidCall = 5;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kBadFileName = 64;
inline constexpr int kDeviceUnavailable = 68;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kDiskNotReady = 71;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
}  // namespace err

// The system language's own words for a number, "Application-defined error" for one it has none
// for.
const char* RunTimeErrorText(int number);

class RunTimeError {
 public:
  explicit RunTimeError(int number) : RunTimeError(number, RunTimeErrorText(number)) {}
  RunTimeError(int number, std::string text) : number_(number), text_(std::move(text)) {}

  int Number() const { return number_; }
  const std::string& Text() const { return text_; }

 private:
  int number_;
  std::string text_;
};

// Thrown to leave a process from any depth of its calls: the program's own End, or its being killed
// from outside. Only the edge of the process catches it. It is not a std::exception, so that no
// handler of errors can take it for one.
struct ProcessExit {};

}  // namespace corvel
