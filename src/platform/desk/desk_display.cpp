// The widths of a dialog font of 8 points at 96 dots an inch, as layouts of the time met them.
#include "platform/desk/desk_display.h"

#include <array>

namespace corvel::desk {
namespace {

constexpr int kFontHeight = 13;

struct WidthGroup {
  int width;
  std::string_view characters;
};

// Characters of the same width; 6 pixels for those that are not listed.
constexpr WidthGroup kGroups[] = {
    {2, "'il|\xA6\x91\x92\x82\xCC\xCD\xCE\xCF\xEC\xED\xEE\xEF"},
    {3, " !,.:;Ijft()[]\\/`\xA0\xA1\xAD\xB7\xB8\xB4\x8B\x9B\x93\x94\x84\x88\x98"},
    {4, "r\"{}-*\x95\xB0\xB2\xB3\xB9\xBA\xAA"},
    {5, "cksxyzJ^\xE7\x9A\x9E\xFD\xFF\xA7\xB6"},
    {7,
     "ABCDEGHKNPRSUVXYZ&w\xC0\xC1\xC2\xC3\xC4\xC5\xC7\xC8\xC9\xCA\xCB\xD0\xD1\xD9\xDA\xDB\xDC\xDD"
     "\xDE\x8A\x8E\x9F"},
    {8, "mMOQ%\xD2\xD3\xD4\xD5\xD6\xD8"},
    {9, "W\xA9\xAE\xE6\x9C"},
    {10, "\xC6\x8C\xBC\xBD\xBE"},
    {11, "@\x97\x85\x99\x89"},
};

constexpr std::array<signed char, 256> MakeWidths() {
  std::array<signed char, 256> widths{};
  widths.fill(6);
  for (const WidthGroup& group : kGroups)
    for (const char c : group.characters)
      widths[static_cast<unsigned char>(c)] = static_cast<signed char>(group.width);
  return widths;
}

constexpr auto kWidths = MakeWidths();

}  // namespace

Size DeskDisplay::TextExtent(std::string_view text, const FontStyle& style) {
  int width = 0;
  for (const char c : text) width += kWidths[static_cast<unsigned char>(c)];
  if (style.bold) width += static_cast<int>(text.size());
  return {width, kFontHeight};
}

}  // namespace corvel::desk
