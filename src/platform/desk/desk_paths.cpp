// DOS paths and names.
#include "platform/desk/desk_paths.h"

#include "base/cp1252.h"
#include "base/text.h"

#include <algorithm>

namespace corvel::desk {
namespace {

bool IsSlash(char c) { return c == '\\' || c == '/'; }

std::string_view WithoutTail(std::string_view name) {
  const auto last = name.find_last_not_of(". ");
  return last == std::string_view::npos ? name : name.substr(0, last + 1);
}

void AddPart(DosPath& path, std::string_view part) {
  if (part.empty() || part == ".") return;
  if (part != "..")
    path.parts.push_back(HasWildCards(part) ? part : WithoutTail(part));  // "*." is a pattern
  else if (!path.parts.empty())
    path.parts.pop_back();
}

bool MatchesWhole(std::string_view pattern, std::string_view name) {
  constexpr auto kNone = std::string_view::npos;
  std::size_t p = 0, n = 0, star = kNone, resume = 0;
  while (true) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      resume = n;
      const std::string_view tail = pattern.substr(p);
      if (!HasWildCards(tail)) {  // nothing to try: it is the name's end or not
        return name.size() - n >= tail.size() && name.ends_with(tail);
      }
    } else if (p < pattern.size() && pattern[p] == '?') {
      ++p;  // at a dot or the end it stands for nothing
      if (n < name.size() && name[n] != '.') ++n;
    } else if (p < pattern.size() && n < name.size() && pattern[p] == name[n]) {
      ++p, ++n;
    } else if (p == pattern.size() && n == name.size()) {
      return true;
    } else if (star == kNone || resume >= name.size()) {
      return false;
    } else {  // the last star takes one character more
      p = star + 1;
      n = ++resume;
    }
  }
}

bool IsShortChar(char c) {
  return static_cast<unsigned char>(c) > ' ' &&
         std::string_view("\"*+,./:;<=>?[\\]|").find(c) == std::string_view::npos;
}

std::string ShortChars(std::string_view text) {
  std::string result;
  for (const char c : text)
    if (IsShortChar(c)) result += UpperChar(c);
  return result;
}

// A name before and behind its last dot. A dot in front makes no extension.
std::pair<std::string_view, std::string_view> SplitName(std::string_view name) {
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return {name, ""};
  return {name.substr(0, dot), name.substr(dot + 1)};
}

}  // namespace

DosPath ParsePath(std::string_view path) {
  DosPath result;
  if (path.size() >= 2 && path[1] == ':') {
    result.drive = LowerChar(path[0]);
    path.remove_prefix(2);
  }
  result.endsInSlash = !path.empty() && IsSlash(path.back());
  while (!path.empty()) {
    const auto end = std::find_if(path.begin(), path.end(), IsSlash);
    const auto length = static_cast<std::size_t>(end - path.begin());
    AddPart(result, path.substr(0, length));
    path.remove_prefix(std::min(length + 1, path.size()));
  }
  return result;
}

bool IsValidName(std::string_view name) {
  if (name.find_first_not_of(". ") == std::string_view::npos) return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' ||
           std::string_view("<>:\"|?*").find(c) != std::string_view::npos;
  });
}

bool MatchesWildCards(std::string_view pattern, std::string_view name) {
  if (MatchesWhole(pattern, name)) return true;
  return name.find('.') == std::string_view::npos && pattern.find('.') != std::string_view::npos &&
         MatchesWhole(pattern, std::string(name) + ".");
}

bool HasWildCards(std::string_view pattern) {
  return pattern.find_first_of("*?") != std::string_view::npos;
}

std::optional<std::string> ShortNames::IfShort(std::string_view name) {
  const auto [base, extension] = SplitName(name);
  const bool fits = base.size() <= 8 && extension.size() <= 3 && ShortChars(base) == Upper(base) &&
                    ShortChars(extension) == Upper(extension) && !base.empty();
  if (!fits) return std::nullopt;
  return Upper(name);
}

std::string ShortNames::For(std::string_view name) {
  if (const auto already = IfShort(name)) return *already;
  const auto [longBase, longExtension] = SplitName(name);
  const std::string base = ShortChars(longBase);
  std::string tail = ShortChars(longExtension).substr(0, 3);
  if (!tail.empty()) tail.insert(0, 1, '.');
  int least = 1;  // of the numbers with so many digits
  for (std::size_t digits = 1;; ++digits, least *= 10) {
    const std::string letters = base.substr(0, std::min<std::size_t>(6, 7 - digits)) + '~';
    int& given = given_[letters + std::to_string(digits) + tail];
    while (given < least * 9) {
      std::string made = letters + std::to_string(least + given++) + tail;
      if (!isTaken_(made)) return made;
    }
  }
}

}  // namespace corvel::desk
