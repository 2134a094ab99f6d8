// Windows-1252, the text of the whole program.
//
// All text inside is bytes of Windows-1252 in std::string, as the client and the system's ANSI
// calls take it. UTF-8 exists only at the edges: in our own source (turned at compile time by _cp),
// in scenario files and on the terminal.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvel {

namespace cp1252 {

// The code points of the bytes 0x80 to 0x9F. The five bytes that the code page leaves open keep
// their own number, as the system's conversion does.
inline constexpr std::array<char32_t, 32> kHigh = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

constexpr char32_t ToCodePoint(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kHigh[byte - 0x80] : byte;
}

// The byte of a code point, or -1 where the code page has none.
constexpr int FromCodePoint(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code < 0x100)) return static_cast<int>(code);
  for (std::size_t i = 0; i < kHigh.size(); ++i)
    if (kHigh[i] == code) return static_cast<int>(0x80 + i);
  return -1;
}

// Reads one code point of well-formed UTF-8 at `at` and moves `at` behind it. Ill-formed bytes
// (overlong, cut, surrogates, above U+10FFFF) give 0xFFFFFFFF and move one byte on.
constexpr char32_t NextCodePoint(std::string_view utf8, std::size_t& at) {
  constexpr char32_t kBad = 0xFFFFFFFF;
  const auto lead = static_cast<unsigned char>(utf8[at++]);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xF0 && lead < 0xF5   ? 3
                   : lead >= 0xE0 && lead < 0xF0 ? 2
                   : lead >= 0xC2 && lead < 0xE0 ? 1
                                                 : 0;
  if (more == 0 || at + static_cast<std::size_t>(more) > utf8.size()) return kBad;
  char32_t code = lead & (0x3F >> more);
  for (int i = 0; i < more; ++i) {
    const auto next = static_cast<unsigned char>(utf8[at + static_cast<std::size_t>(i)]);
    if ((next & 0xC0) != 0x80) return kBad;
    code = code << 6 | (next & 0x3F);
  }
  if ((more == 2 && code < 0x800) || (more == 3 && code < 0x10000) || code > 0x10FFFF ||
      (code >= 0xD800 && code < 0xE000))
    return kBad;
  at += static_cast<std::size_t>(more);
  return code;
}

template <std::size_t N>
struct Literal {
  std::array<char, N> bytes{};
  std::size_t length = 0;
  consteval Literal(const char (&utf8)[N]) {  // NOLINT: must convert from the literal by itself
    for (std::size_t at = 0; at + 1 < N;) {
      const int byte = FromCodePoint(NextCodePoint({utf8, N - 1}, at));
      if (byte < 0) throw "a character of this literal is not in Windows-1252";
      bytes[length++] = static_cast<char>(byte);
    }
  }
};

}  // namespace cp1252

// "•¤•"_cp is the Windows-1252 bytes of the literal; one that the code page lacks does not compile.
template <cp1252::Literal L>
consteval std::string_view operator""_cp() {
  return {L.bytes.data(), L.length};
}

// Windows-1252 to UTF-8. Never fails.
std::string ToUtf8(std::string_view text);

// UTF-8 to Windows-1252; nothing if it is ill-formed or holds a character outside the code page.
std::optional<std::string> FromUtf8(std::string_view utf8);

// Case by the code page: accented letters and the pairs Š/š, Œ/œ, Ž/ž, Ÿ/ÿ change too.
char LowerChar(char c);
char UpperChar(char c);

// A letter or digit as IsCharAlphaNumericA sees it in this code page: accented letters count, and
// so do ª º ƒ ² ³ ¹ and µ.
bool IsAlphaNumeric(char c);

}  // namespace corvel
