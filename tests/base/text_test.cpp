#include "base/text.h"

#include "base/cp1252.h"

#include <gtest/gtest.h>
#include <limits>

namespace corvel {
namespace {

TEST(Cp1252, EveryByteGoesToUtf8AndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text) << byte;
  }
}

TEST(Cp1252, LiteralsAreBytesOfTheCodePage) {
  EXPECT_EQ("•¤•–—Ü€"_cp, "\x95\xA4\x95\x96\x97\xDC\x80");
  EXPECT_EQ(ToUtf8("•¤•"_cp), "•¤•");
}

TEST(Cp1252, RefusesIllFormedAndForeignText) {
  for (const char* bad : {"\xC3", "\xE2\x82", "\x80", "\xC0\xAF", "\xED\xA0\x80",
                          "\xF5\x80\x80\x80", "\xE0\x80\x80", "日", "😀", "ok\xFF"})
    EXPECT_FALSE(FromUtf8(bad).has_value()) << bad;
}

TEST(Cp1252, CaseFollowsTheCodePage) {
  EXPECT_EQ(Lower("ÀÖØÞŠŒŽŸ×AZ"_cp), "àöøþšœžÿ×az"_cp);
  EXPECT_EQ(Upper("àöøþšœžÿ÷ßµ"_cp), "ÀÖØÞŠŒŽŸ÷ßµ"_cp);
  for (const char c : "Aé9ßµª"_cp) EXPECT_TRUE(IsAlphaNumeric(c)) << int(c);
  for (const char c : "-_. •×÷€\t"_cp) EXPECT_FALSE(IsAlphaNumeric(c)) << int(c);
}

TEST(Text, TrimCutsBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim(" \ta\r\n "), "\ta\r\n");
  EXPECT_EQ(Trim("   "), "");
}

TEST(Text, LinesTakeEveryLineEnd) {
  EXPECT_EQ(Lines("a\r\nb\nc\rd"), (std::vector<std::string_view>{"a", "b", "c", "d"}));
  EXPECT_EQ(Lines("a\r\n\r\nb\n"), (std::vector<std::string_view>{"a", "", "b"}));
  EXPECT_TRUE(Lines("").empty());
}

TEST(Text, PathsComeApartAtTheLastBackslash) {
  EXPECT_EQ(FolderOf("C:\\a\\b.wav"), "C:\\a");
  EXPECT_EQ(FileNameOf("C:\\a\\b.wav"), "b.wav");
  EXPECT_EQ(FolderOf("b.wav"), "");
  EXPECT_EQ(FileNameOf("b.wav"), "b.wav");
}

TEST(Text, ValReadsWhatStandsInFront) {
  const struct {
    const char* text;
    double value;
  } rows[] = {{"12", 12},
              {" 1 2 x", 12},
              {"-3.5abc", -3.5},
              {"+7", 7},
              {"", 0},
              {"abc", 0},
              {"1e3", 1000},
              {"1d2", 100},
              {"1e", 1},
              {".5", 0.5},
              {"-", 0},
              {"&H10", 16},
              {"&hFFFF", -1},
              {"&HFFFFFF", 16777215},
              {"&H8000000F", -2147483633.0},
              {"&O17", 15},
              {"&", 0},
              {"1e-999", 0}};
  for (const auto& row : rows) EXPECT_EQ(Val(row.text), row.value) << row.text;
  EXPECT_EQ(Val("1e999"), std::numeric_limits<double>::max());
  EXPECT_EQ(IntVal("99999999999999999999"), std::numeric_limits<int>::max());
  EXPECT_EQ(IntVal("-99999999999999999999"), std::numeric_limits<int>::min());
}

TEST(Text, NumericIsTheWholeText) {
  for (const char* yes : {"1", " 1.5 ", "-2e3"}) EXPECT_TRUE(IsNumeric(yes)) << yes;
  for (const char* no : {"", " ", "abc", "1a", "--1"}) EXPECT_FALSE(IsNumeric(no)) << no;
}

TEST(Text, SearchesIgnoreCase) {
  EXPECT_TRUE(HoldsNoCase("Welcome, PracticeOne!", "welcome,"));
  EXPECT_TRUE(HoldsNoCase("x", ""));
  EXPECT_FALSE(HoldsNoCase("", "x"));
  EXPECT_EQ(Replaced("aXbXc", "X", "--"), "a--b--c");
}

}  // namespace
}  // namespace corvel
