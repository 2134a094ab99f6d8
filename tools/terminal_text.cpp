// Lines of the room on a terminal; see terminal_text.h.
#include "tools/terminal_text.h"

#include "base/cp1252.h"
#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <unistd.h>

namespace corvel::tools {
namespace {

struct TagCode {
  const char* tag;
  const char* code;
};
constexpr TagCode kTags[] = {{"<b>", "\x1b[1m"},   {"</b>", "\x1b[22m"},   {"<i>", "\x1b[3m"},
                             {"</i>", "\x1b[23m"}, {"<u>", "\x1b[4m"},     {"</u>", "\x1b[24m"},
                             {"<sup>", ""},        {"</sup>", ""},         {"<sub>", ""},
                             {"</sub>", ""},       {"</font>", "\x1b[39m"}};
constexpr std::string_view kColorTag = "<font color=#";
constexpr std::size_t kLongestTag = kColorTag.size() + 7;
constexpr const char* kReset = "\x1b[0m";

std::optional<std::string> ColorCode(std::string_view tag) {
  if (tag.size() != kColorTag.size() + 7 ||
      !EqualNoCase(tag.substr(0, kColorTag.size()), kColorTag))
    return std::nullopt;
  unsigned rgb = 0;
  const char* const digits = tag.data() + kColorTag.size();
  if (std::from_chars(digits, digits + 6, rgb, 16).ptr != digits + 6) return std::nullopt;
  return "\x1b[38;2;" + std::to_string(rgb >> 16) + ';' + std::to_string(rgb >> 8 & 255) + ';' +
         std::to_string(rgb & 255) + 'm';
}

// The terminal's code for a whole tag; nothing if it is none of the client's.
std::optional<std::string> CodeOf(std::string_view tag) {
  for (const TagCode& known : kTags)
    if (EqualNoCase(tag, known.tag)) return known.code;
  return ColorCode(tag);
}

bool SaysColor(const char* variable) {
  const char* const value = std::getenv(variable);
  const std::string_view text = value ? value : "";
  return text.find("truecolor") != text.npos || text.find("24bit") != text.npos ||
         text.find("direct") != text.npos;
}

}  // namespace

std::string OnTerminal(std::string_view markedUp, bool color) {
  std::string out;
  std::size_t at = 0;
  while (at < markedUp.size()) {
    const std::size_t open = std::min(markedUp.find('<', at), markedUp.size());
    out += ToUtf8(markedUp.substr(at, open - at));
    at = open;
    if (at == markedUp.size()) break;
    const std::size_t close = markedUp.substr(at, kLongestTag).find('>');
    const std::size_t size = close == markedUp.npos ? 1 : close + 1;
    const auto code = CodeOf(markedUp.substr(at, size));
    if (!code) {
      out += markedUp[at++];
      continue;
    }
    if (color) out += *code;
    at += size;
  }
  return color ? out + kReset : out;
}

bool StdoutIsTerminal() { return isatty(STDOUT_FILENO) == 1; }
bool StdinIsTerminal() { return isatty(STDIN_FILENO) == 1; }

bool StdoutShowsColor() {
  return StdoutIsTerminal() && (SaysColor("COLORTERM") || SaysColor("TERM"));
}

}  // namespace corvel::tools
