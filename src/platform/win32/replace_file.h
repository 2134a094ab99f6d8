// A file is replaced whole or not at all: what is new is made beside it, then takes its name.
#pragma once

#include <string>

namespace corvel::win32 {

// An empty file of a new name in a folder. It goes with the object unless it has taken the place
// of another.
class FileBeside {
 public:
  explicit FileBeside(const std::string& target);  // throws RunTimeError
  ~FileBeside();
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  const std::string& Path() const { return path_; }
  // Takes the name of the target, which keeps the case that it has on the drive. Throws
  // RunTimeError; then the target is what it was.
  void Replace();
  // The same, where the system can't do it at once: the old file steps aside first.
  void ReplaceInSteps();

 private:
  bool ReplaceAtOnce() const;
  std::string target_, path_;
};

}  // namespace corvel::win32
