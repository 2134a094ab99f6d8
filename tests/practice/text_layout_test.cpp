// Mark-up as it is seen, and text in lines.
#include "practice/controls/text_layout.h"

#include <gtest/gtest.h>
#include <string>

namespace corvel::practice {
namespace {

// Ten pixels a character, eleven in bold.
class TenWide : public CharacterWidths {
 public:
  int Of(char, const TextLook& look) const override { return look.bold ? 11 : 10; }
};

TextLayout Lay(const std::string& text, int width) {
  const TenWide widths;
  return TextLayout(text, RunsOf(text), width, &widths);
}

// What is seen, lines parted by "|".
std::string Seen(const std::string& text, int width) {
  const TextLayout layout = Lay(text, width);
  std::string seen;
  for (const TextLine& line : layout.Lines()) {
    seen += &line == &layout.Lines().front() ? "" : "|";
    for (const LinePiece& piece : line.pieces) seen += text.substr(piece.start, piece.length);
  }
  return seen;
}

TEST(MarkUp, GivesEachStretchItsLook) {
  const ShownText shown = Shown(
      "a<FONT COLOR=#FF8000>b<font  color=\"#0000ff\" size=3>c</FONT>d<B><sup>e</b></SUP>f<x>");
  EXPECT_EQ(shown.text, "abcdef<x>");
  const std::vector<LookRun> expected = {
      {0, 1, {}}, {1, 1, {.color = 0x0080FF}},       {2, 1, {.color = 0xFF0000}},
      {3, 1, {}}, {4, 1, {.bold = true, .rise = 1}}, {5, 4, {}}};
  EXPECT_EQ(shown.looks, expected);
}

TEST(MarkUp, ForgivesWhatIsNoColor) {
  for (const char* text : {"<FONT COLOR=red>x", "<FONT COLOR=#12345>x", "<FONT COLOR=#GG0000>x",
                           "<FONT COLOR=>x", "<FONT>x"})
    EXPECT_EQ(Shown(text).looks, (std::vector<LookRun>{{0, 1, {}}})) << text;
  EXPECT_EQ(Shown("<FONT COLOR=#000000").text, "<FONT COLOR=#000000") << "never closed";
  EXPECT_EQ(Shown("").text, "");
}

TEST(TextLayout, BreaksLinesAtTheirEndsAndBetweenWords) {
  struct Case {
    const char* text;
    int width;
    const char* seen;
  };
  for (const Case& c :
       {Case{"", 100, ""}, Case{"one two", 0, "one two"},
        Case{"one two three", 80, "one two |three"}, Case{"one two", 70, "one two"},
        Case{"one two", 69, "one |two"}, Case{"abcdefgh", 30, "abc|def|gh"},
        Case{"a bcdefgh", 30, "a |bcd|efg|h"}, Case{"a\rb\nc\r\nd\r", 100, "a|b|c|d|"},
        Case{"one <B>two</B> x", 72, "one |two x"}, Case{"on<I>e tw</I>o", 60, "one |two"},
        Case{"aa     b", 40, "aa     |b"}})
    EXPECT_EQ(Seen(c.text, c.width), c.seen) << c.text;
}

TEST(TextLayout, FindsPlacesOverTagsAndBreaks) {
  const std::string text = "ab<B>c</B>\rde";
  const TextLayout layout = Lay(text, 100);
  const std::size_t c = text.find('c'), end = text.find('\r');
  EXPECT_EQ(layout.XOf(c), 20);
  EXPECT_EQ(layout.XOf(end), 31);
  EXPECT_EQ(layout.After(1), c) << "over the tag";
  EXPECT_EQ(layout.Before(c), 1u);
  EXPECT_EQ(layout.After(text.size()), text.size());
  EXPECT_EQ(layout.Before(0), 0u);
  EXPECT_EQ(layout.At(0, 24), c);
  EXPECT_EQ(layout.At(0, 1000), end);
  EXPECT_EQ(layout.At(1, 1000), text.size());
  EXPECT_EQ(layout.At(9, 0), text.find('d'));
  EXPECT_EQ(layout.LineOf(end), 0u);
  EXPECT_EQ(layout.LineOf(end + 1), 1u);
  EXPECT_EQ(layout.LineOf(text.size()), 1u);
}

// Whatever the text and the width, each visible character stands once, in order, and fits.
TEST(TextLayout, LosesNothing) {
  const std::string words[] = {"a",    "bb ", "ccccccccc", "\t", "\r",
                               "\r\n", "<B>", "</B>",      " ",  "<"};
  std::uint32_t state = 1;
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (int i = 0; i < 30; ++i) {
      state = state * 1664525 + 1013904223;
      text += words[state >> 16 & 0xFFFF ? (state >> 16) % std::size(words) : 0];
    }
    const int width = 15 + round % 90;
    std::string seen, expected;
    for (const char each : Rendered(text))
      if (each != '\r' && each != '\n' && each != '\t') expected += each;
    const TextLayout layout = Lay(text, width);
    for (const TextLine& line : layout.Lines())
      for (const LinePiece& piece : line.pieces) {
        seen += text.substr(piece.start, piece.length);
        const std::string solid = text.substr(piece.start, piece.length);
        const auto last = solid.find_last_not_of(' ');
        if (last != std::string::npos && piece.x > 0) {
          EXPECT_LE(piece.x + 10 * static_cast<int>(last), width) << text;
        }
      }
    EXPECT_EQ(seen, expected) << text << " at " << width;
  }
}

}  // namespace
}  // namespace corvel::practice
