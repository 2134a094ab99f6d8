// Mark-up in lines and messages, as far as the client draws it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

// How a stretch of text is drawn.
struct TextLook {
  std::int32_t color = -1;  // 0x00BBGGRR; -1 for the window's own
  bool bold = false, italic = false, underline = false;
  int rise = 0;  // 1 above the line, -1 below it
  friend bool operator==(const TextLook&, const TextLook&) = default;
};

// Where it stands: `length` bytes from `start` on.
struct LookRun {
  std::size_t start = 0, length = 0;
  TextLook look{};
  friend bool operator==(const LookRun&, const LookRun&) = default;
};

// What a reader sees of a text with mark-up, in stretches of one look, in order. Tags lie between
// them.
std::vector<LookRun> RunsOf(std::string_view text);

// Text that has been freed of its mark-up, and how it looked with it.
struct ShownText {
  std::string text{};
  std::vector<LookRun> looks{};
  void Add(std::string_view plain, const TextLook& look = {});
  void Add(const ShownText& more);
};
ShownText Shown(std::string_view marked);

// The text as a reader sees it: without the tags FONT, B, I, U, SUP and SUB and their ends, in any
// case. Everything else between angles is text.
std::string Rendered(std::string_view text);

// A screen name as the service compares it: lower case, without blanks.
std::string NameKey(std::string_view name);

// A keyword's argument: "%20" and its like are characters.
std::string Unescaped(std::string_view argument);

}  // namespace corvel::practice
