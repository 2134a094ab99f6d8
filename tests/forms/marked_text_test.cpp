#include "forms/marked_text.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace corvel::forms {
namespace {

// Pieces written out: [bui,colour:text], / for a new line.
std::string Written(std::string_view marked) {
  std::string out;
  for (const MarkedPiece& piece : ParseMarkedText(marked)) {
    if (piece.newLine) {
      out += '/';
      continue;
    }
    std::string style;
    if (piece.style.bold) style += 'b';
    if (piece.style.underline) style += 'u';
    if (piece.style.italic) style += 'i';
    if (piece.style.color == 0x0000FF) style += "red";
    if (piece.style.color == 0x00FF00) style += "green";
    if (piece.style.color == 0xFF0000) style += "blue";
    out += "[" + style + ":" + std::string(piece.text) + "]";
  }
  return out;
}

TEST(MarkedText, ReadsCodes) {
  const struct {
    std::string_view marked, written, plain;
  } kCases[] = {
      {"", "", ""},
      {"   ", "", ""},
      {"  plain  ", "[:plain]", "plain"},
      {"~B~CRtitle~B~CN~N ~Ntext", "[bred:title]/[: ]/[:text]", "title\n \ntext"},
      {"~b~cgx~Cn~u~Iy", "[bgreen:x][bui:y]", "xy"},
      {"~CBa~CRb", "[blue:a][red:b]", "ab"},
      {"~Bopen to the end", "[b:open to the end]", "open to the end"},
      {"a~~Nb", "[:a][:Nb]", "aNb"},  // "~~" makes no code and goes, the N stays
      {"~Xa~ b", "[:a][:b]", "ab"},   // unknown codes go
      {"~CXa", "[:a]", "a"},          // with the letter of an unknown colour
      {"a~", "[:a]", "a"},            // cut codes
      {"a~C", "[:a]", "a"},
      {"a\r\nb\rc\nd~Ne", "[:a]/[:b]/[:c]/[:d]/[:e]", "a\nb\nc\nd\ne"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Written(c.marked), c.written) << c.marked;
    EXPECT_EQ(PlainText(c.marked), c.plain) << c.marked;
  }
}

// Ten pixels a character, bold eleven.
int Width(std::string_view text, const FontStyle& style) {
  return static_cast<int>(text.size()) * (style.bold ? 11 : 10);
}

// Runs written out: text@x,y.
std::string SetIn(int width, std::string_view marked, int indent = 0) {
  std::string out;
  for (const TextRun& run : SetMarkedText(marked, {width, 8, indent, 13}, Width).runs)
    out += run.text + "@" + std::to_string(run.x) + "," + std::to_string(run.y) + "|";
  return out;
}

TEST(MarkedText, WrapsWords) {
  const struct {
    int width;
    std::string_view marked, runs;
  } kCases[] = {
      {100, "one two", "one two@0,0|"},       // 70 + 2 fits into 92
      {80, "one two", "one two@0,0|"},        // exactly
      {79, "one two", "one @0,0|two@0,13|"},  // one pixel less
      {79, "one ~Btwo~B six", "one @0,0|two@0,13| @33,13|six@0,26|"},
      {60, "a muchtoolong b", "a @0,0|muchtoolong @0,13|b@0,26|"},
      {60, "muchtoolong b", "muchtoolong @0,0|b@0,13|"},  // no empty line in front
      {100, "a~N~Nb", "a@0,0|b@0,26|"},
      {0, "a b", "a @0,0|b@0,13|"},
      {-5, "a b", "a @0,0|b@0,13|"},
  };
  for (const auto& c : kCases) EXPECT_EQ(SetIn(c.width, c.marked), c.runs) << c.marked;
  EXPECT_EQ(SetIn(40, "a b c", 3), "a @3,0|b c@0,13|");
}

TEST(MarkedText, TellsTheHeightItNeeds) {
  const struct {
    std::string_view marked;
    int height;
  } kCases[] = {{"", 13}, {"one", 13}, {"one two", 26}, {"one~N ~Ntwo", 39}, {"one~N", 26}};
  for (const auto& c : kCases)
    EXPECT_EQ(SetMarkedText(c.marked, {60, 8, 0, 13}, Width).height, c.height) << c.marked;
}

TEST(MarkedText, MeasuresEachByteOnceAndLosesNone) {
  std::string text;
  for (int i = 0; i < 200'000; ++i) text += "~B ~Cx\xFF\x01"[i % 8];
  std::size_t measured = 0;
  const SetText set =
      SetMarkedText(text, {100, 8, 3, 13}, [&](std::string_view word, const FontStyle& style) {
        measured += word.size();
        return Width(word, style);
      });
  std::string printed, plain = PlainText(text);
  for (const TextRun& run : set.runs) printed += run.text;
  std::erase(plain, '\n');
  EXPECT_EQ(printed, plain);
  EXPECT_EQ(measured, plain.size());
}

}  // namespace
}  // namespace corvel::forms
