// The web servers of a home that has none: what each path answers. Whoever stands for the web asks
// here, so that a table means the same on every home.
#pragma once

#include "platform/web.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace corvel::desk {

struct WebAnswer {
  std::string text{};
  std::uint32_t error = 0;     // or why there is none
  std::int64_t afterMs = 200;  // beyond the longest there is no answer
};

class WebTable {
 public:
  // From now on, on every server.
  void Set(std::string path, WebAnswer answer) { answers_[std::move(path)] = std::move(answer); }
  // A path that nobody has set is on a server that isn't found.
  WebAnswer For(std::string_view address) const;

 private:
  std::map<std::string, WebAnswer, std::less<>> answers_;
};

}  // namespace corvel::desk
