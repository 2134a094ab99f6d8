#include "base/text.h"

#include "base/cp1252.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace corvel {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The number written in `base` at the front of `digits`; wraps as the system's &H and &O do.
double RadixVal(std::string_view digits, unsigned base) {
  std::uint64_t value = 0;
  for (const char c : digits) {
    const char low = LowerChar(c);
    const unsigned digit = IsDigit(low)               ? static_cast<unsigned>(low - '0')
                           : low >= 'a' && low <= 'f' ? static_cast<unsigned>(low - 'a' + 10)
                                                      : 99;
    if (digit >= base || value > std::numeric_limits<std::uint32_t>::max()) break;
    value = value * base + digit;
  }
  return value <= 0xFFFF && digits.size() <= 4
             ? static_cast<double>(static_cast<std::int16_t>(value))
             : static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

// The length of the decimal number at the front of `text`, 0 if it has no digit.
std::size_t DecimalLength(std::string_view text) {
  std::size_t at = 0, digits = 0;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  while (at < text.size() && IsDigit(text[at])) ++at, ++digits;
  if (at < text.size() && text[at] == '.') {
    ++at;
    while (at < text.size() && IsDigit(text[at])) ++at, ++digits;
  }
  if (digits == 0) return 0;
  if (at < text.size() &&
      (text[at] == 'e' || text[at] == 'E' || text[at] == 'd' || text[at] == 'D')) {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
    if (exponent < text.size() && IsDigit(text[exponent])) {
      while (exponent < text.size() && IsDigit(text[exponent])) ++exponent;
      at = exponent;
    }
  }
  return at;
}

double DecimalVal(std::string text) {
  for (char& c : text)
    if (c == 'd' || c == 'D') c = 'e';
  const char* first = text.data() + (text[0] == '+' ? 1 : 0);
  double value = 0;
  const auto result = std::from_chars(first, text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  const auto e = text.find_first_of("eE");
  if (e != std::string::npos && text[e + 1] == '-') return 0;
  return text[0] == '-' ? std::numeric_limits<double>::lowest()
                        : std::numeric_limits<double>::max();
}

}  // namespace

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string Lower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = LowerChar(c);
  return out;
}

std::string Upper(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = UpperChar(c);
  return out;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return LowerChar(x) == LowerChar(y);
         });
}

bool LessNoCase(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(LowerChar(x)) < static_cast<unsigned char>(LowerChar(y));
  });
}

bool HoldsNoCase(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](char x, char y) { return LowerChar(x) == LowerChar(y); }) != text.end() ||
         part.empty();
}

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string out;
  for (std::size_t at = 0;;) {
    const auto hit = text.find(from, at);
    out += text.substr(at, hit - at);
    if (hit == std::string_view::npos) return out;
    out += to;
    at = hit + from.size();
  }
}

std::string WithoutBlanks(std::string_view text) { return Replaced(text, " ", ""); }

std::string Reversed(std::string_view text) { return {text.rbegin(), text.rend()}; }

std::string CutAtNul(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }

std::string FolderOf(std::string_view path) {
  const auto slash = path.rfind('\\');
  return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

std::string FileNameOf(std::string_view path) {
  const auto slash = path.rfind('\\');
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

namespace {

// Where the first line ends, or npos. Lists are read anew for each look-up, and find_first_of goes
// through its set for every character, several times as slow.
std::size_t EndOfLine(std::string_view text) {
  const auto end =
      std::find_if(text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; });
  return end == text.end() ? std::string_view::npos : static_cast<std::size_t>(end - text.begin());
}

}  // namespace

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = EndOfLine(text);
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
    text.remove_prefix(end + (pair ? 2 : 1));
  }
  return lines;
}

double Val(std::string_view text) {
  std::string dense;  // the language skips blanks, tabs and line ends inside a number too
  for (const char c : text) {
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
    dense += c;
    if (dense.size() > 400) break;  // more digits than a double can tell apart
  }
  if (dense.size() > 2 && dense[0] == '&') {
    const char kind = LowerChar(dense[1]);
    if (kind == 'h') return RadixVal(std::string_view(dense).substr(2), 16);
    if (kind == 'o') return RadixVal(std::string_view(dense).substr(2), 8);
    return 0;
  }
  dense.resize(DecimalLength(dense));
  return dense.empty() ? 0 : DecimalVal(dense);
}

int IntVal(std::string_view text) {
  const double value = Val(text);
  if (value <= static_cast<double>(std::numeric_limits<int>::min()))
    return std::numeric_limits<int>::min();
  if (value >= static_cast<double>(std::numeric_limits<int>::max()))
    return std::numeric_limits<int>::max();
  return static_cast<int>(value);
}

bool IsNumeric(std::string_view text) {
  const std::string trimmed = Trim(text);
  return !trimmed.empty() && DecimalLength(trimmed) == trimmed.size();
}

std::string TwoDigits(int number) {
  return (number >= 0 && number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace corvel
