#include "practice/markup.h"

#include "base/text.h"

#include <array>

namespace corvel::practice {
namespace {

// The length of the tag at the front of the text, 0 if there is none.
std::size_t TagLength(std::string_view text) {
  static constexpr std::array<std::string_view, 6> kTags = {"font", "b", "i", "u", "sup", "sub"};
  const std::size_t end = text.substr(0, 200).find('>');
  if (end == std::string_view::npos) return 0;
  std::string_view inside = text.substr(1, end - 1);
  if (inside.starts_with('/')) inside.remove_prefix(1);
  const std::string_view word = inside.substr(0, inside.find(' '));
  for (std::string_view tag : kTags)
    if (EqualNoCase(word, tag)) return end + 1;
  return 0;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::string Rendered(std::string_view text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t tag = text[at] == '<' ? TagLength(text.substr(at)) : 0;
    if (tag == 0) shown += text[at];
    at += tag == 0 ? 1 : tag;
  }
  return shown;
}

std::string NameKey(std::string_view name) { return Lower(WithoutBlanks(name)); }

std::string Unescaped(std::string_view argument) {
  std::string plain;
  for (std::size_t at = 0; at < argument.size(); ++at) {
    const bool escape = argument[at] == '%' && at + 2 < argument.size() &&
                        HexDigit(argument[at + 1]) >= 0 && HexDigit(argument[at + 2]) >= 0;
    if (!escape) {
      plain += argument[at];
      continue;
    }
    plain += static_cast<char>(HexDigit(argument[at + 1]) * 16 + HexDigit(argument[at + 2]));
    at += 2;
  }
  return plain;
}

}  // namespace corvel::practice
