#include "base/cp1252.h"

namespace corvel {
namespace {

void AppendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {  // nothing in the code page lies above U+FFFF
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

constexpr unsigned char Lower(unsigned char c) {
  if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
  switch (c) {
    case 0x8A:
    case 0x8C:
    case 0x8E:
      return c + 0x10;
    case 0x9F:
      return 0xFF;
    default:
      return c;
  }
}

constexpr unsigned char Upper(unsigned char c) {
  if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
  switch (c) {
    case 0x9A:
    case 0x9C:
    case 0x9E:
      return c - 0x10;
    case 0xFF:
      return 0x9F;
    default:
      return c;
  }
}

template <typename F>
constexpr std::array<char, 256> Table(F f) {
  std::array<char, 256> table{};
  for (int i = 0; i < 256; ++i)
    table[static_cast<std::size_t>(i)] = static_cast<char>(f(static_cast<unsigned char>(i)));
  return table;
}

constexpr auto kLower = Table(Lower);
constexpr auto kUpper = Table(Upper);

}  // namespace

std::string ToUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) AppendUtf8(out, cp1252::ToCodePoint(static_cast<unsigned char>(c)));
  return out;
}

std::optional<std::string> FromUtf8(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const int byte = cp1252::FromCodePoint(cp1252::NextCodePoint(utf8, at));
    if (byte < 0) return std::nullopt;
    out += static_cast<char>(byte);
  }
  return out;
}

char LowerChar(char c) { return kLower[static_cast<unsigned char>(c)]; }
char UpperChar(char c) { return kUpper[static_cast<unsigned char>(c)]; }

bool IsAlphaNumeric(char c) {
  const auto u = static_cast<unsigned char>(c);
  if ((u >= '0' && u <= '9') || LowerChar(c) != c || UpperChar(c) != c) return true;
  switch (u) {  // letters without a partner in the page, and the superscript digits
    case 0x83:
    case 0xAA:
    case 0xB2:
    case 0xB3:
    case 0xB5:
    case 0xB9:
    case 0xBA:
    case 0xDF:
      return true;
    default:
      return false;
  }
}

}  // namespace corvel
