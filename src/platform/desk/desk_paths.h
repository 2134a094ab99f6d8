// DOS paths and names: how they are taken apart, matched with wild-cards and made short.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvel::desk {

struct DosPath {
  char drive = 'c';                     // lower case; a path without one is on c:
  std::vector<std::string_view> parts;  // views into the path, without "." and ".." and empty parts
  bool endsInSlash = false;             // "C:\" and "C:\Corvel\"
};

// Names lose the dots and blanks at their end, as the system drops them; a name of nothing else
// stays as it is, and is no valid one. '/' parts names too.
DosPath ParsePath(std::string_view path);

bool IsValidName(std::string_view name);

// The longest path that the system takes, in characters.
inline constexpr std::size_t kLongestPath = 259;

// True if the whole of `name` matches `pattern` with * and ?; both in lower case. A name without a
// dot counts as one with an empty extension too, so "*.*" matches every name.
bool MatchesWildCards(std::string_view pattern, std::string_view name);
bool HasWildCards(std::string_view pattern);

// Makes 8.3 names for the names of one folder.
class ShortNames {
 public:
  // `isTaken` tells whether a short name is the true name of another entry.
  explicit ShortNames(std::function<bool(std::string_view)> isTaken)
      : isTaken_(std::move(isTaken)) {}
  // The name in upper case, if it is an 8.3 name as it stands.
  static std::optional<std::string> IfShort(std::string_view name);
  // A name that this object has not given before. Cost does not grow with the names given.
  std::string For(std::string_view name);

 private:
  std::function<bool(std::string_view)> isTaken_;
  std::unordered_map<std::string, int> given_;  // by the letters, the number's digits and extension
};

}  // namespace corvel::desk
