// Asking a web server for a text.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvel {

namespace web_error {  // of the system's web library, and of the system where it lacks that
inline constexpr std::uint32_t kNoLibrary = 126;
inline constexpr std::uint32_t kTimeout = 12002;
inline constexpr std::uint32_t kUnknownScheme = 12006;
inline constexpr std::uint32_t kNameNotResolved = 12007;
inline constexpr std::uint32_t kCannotConnect = 12029;
}  // namespace web_error

// A question without an answer is over after so long, with kTimeout.
inline constexpr std::uint32_t kLongestWebAnswerMs = 30'000;

// One request under way; given up, at once, by letting go of the object.
class WebRequest {
 public:
  virtual ~WebRequest() = default;
  virtual bool IsOver() = 0;
  // Once it is over: 0, or the web library's number for why there is no text.
  virtual std::uint32_t Error() = 0;
  // Once it is over: what the server has sent, as bytes, of a long answer the first 64 KB; "" after
  // an error. A server that refuses in words ("404 Not Found") has answered.
  virtual std::string Text() = 0;
};

class Web {
 public:
  virtual ~Web() = default;
  // Begins to ask for "http://server/path", as a program of the name `agent`, straight and not
  // through a proxy, and comes back at once. Nothing of the program runs when the answer is there:
  // look for it between pumps.
  virtual std::unique_ptr<WebRequest> Begin(std::string_view agent, std::string_view address) = 0;
};

}  // namespace corvel
