// Profile files as text.
#include "platform/desk/profile_text.h"

#include <gtest/gtest.h>

namespace corvel::desk {
namespace {

using namespace std::literals;

TEST(ProfileText, AValueIsFoundByTheSystemsRules) {
  struct {
    std::string_view text, section, key;
    std::optional<std::string_view> value;
  } const kTable[] = {
      {"[Data]\r\na=1\r\n", "data", "A", "1"},
      {"[Data]\na=1", "Data", "a", "1"},
      {" [ Data ] x\r\n\t a \t=  b c \t\r\n", "Data", "a", "b c"},
      {"[Data]\r\na=\" b \"\r\n", "Data", "a", " b "},
      {"[Data]\r\na='b'\r\n", "Data", "a", "b"},
      {"[Data]\r\na=\"\"b\"\"\r\n", "Data", "a", "\"b\""},
      {"[Data]\r\na=\"\r\n", "Data", "a", "\""},
      {"[Data]\r\na=1\r\na=2\r\n", "Data", "a", "1"},
      {"[Data]\r\n[x]\r\na=2\r\n[Data]\r\na=3\r\n", "Data", "a", std::nullopt},
      {"a=1\r\n[Data]\r\n", "Data", "a", std::nullopt},
      {"[Data]\r\n;a=1\r\n ;a=2\r\na=3\r\n", "Data", "a", "3"},
      {"[Data]\r\n;a=1\r\n", "Data", ";a", std::nullopt},
      {"[Data]\r\nab=1\r\na\r\na=2\r\n", "Data", "a", "2"},
      {"[Data]\r\na=b=c\r\n", "Data", "a", "b=c"},
      {"[Data]\r\na=b=c\r\n", "Data", "a=b", "c"},
      {"[Data]\r\na=\r\n", "Data", "a", ""},
      {"[Data]\r\na=x\0y\r\nb\0=2\r\nb=3"sv, "Data", "a", "x"},
      {"[Data]\r\na=x\0y\r\nb\0=2\r\nb=3"sv, "Data", "b", "3"},
      {"[Data\r\na=1\r\n", "Data", "a", std::nullopt},
      {"", "", "", std::nullopt},
  };
  for (const auto& row : kTable)
    EXPECT_EQ(ProfileValue(row.text, row.section, row.key), row.value) << row.text;
}

TEST(ProfileText, AChangeLeavesAllElseAsItWas) {
  struct {
    std::string_view before;
    std::optional<std::string_view> value;  // of key "a" in section "Data"
    std::string_view after;
  } const kTable[] = {
      {"", "1", "[Data]\r\na=1\r\n"},
      {"; mine\n[x]\ny = 2", "1", "; mine\n[x]\ny = 2\r\n[Data]\r\na=1\r\n"},
      {"[Data]\r\n A = old \r\nb=2\r\n", "1", "[Data]\r\n A =1\r\nb=2\r\n"},
      {"[Data]\na=old", "1", "[Data]\na=1"},
      {"[Data]\r\nb=2\r\n\r\n \r\n[x]\r\n", "1", "[Data]\r\nb=2\r\na=1\r\n\r\n \r\n[x]\r\n"},
      {"[Data]", "1", "[Data]\r\na=1\r\n"},
      {"[Data]\r\nb=2", "1", "[Data]\r\nb=2\r\na=1\r\n"},
      {"[Data]\r\na=1\r\nb=2\r\n", std::nullopt, "[Data]\r\nb=2\r\n"},
      {"[Data]\r\nb=2\r\na=1", std::nullopt, "[Data]\r\nb=2\r\n"},
      {"[Data]\r\nb=2\r\n", std::nullopt, "[Data]\r\nb=2\r\n"},
      {"[Data]\r\na=1\r\na=2\r\n", std::nullopt, "[Data]\r\na=2\r\n"},
      {"[Data]\r\n", "two\r\n[x]\r\n", "[Data]\r\na=two\r\n"},
  };
  for (const auto& row : kTable)
    EXPECT_EQ(WithProfileValue(row.before, "Data", "a", row.value), row.after) << row.before;
}

TEST(ProfileText, HugeLinesAndManyLinesAreReadInOnePass) {
  const std::string line(10 << 20, '[');
  EXPECT_EQ(ProfileValue("[Data]\r\n" + line + "\r\na=1", "Data", "a"), "1");
  const std::string blanks(10 << 20, ' ');
  EXPECT_EQ(ProfileValue("[Data]\r\na=" + blanks + "1" + blanks, "Data", "a"), "1");
  std::string many = "[Data]\r\n";
  for (int i = 0; i < 1 << 20; ++i) many += "[x\r\n";
  EXPECT_EQ(ProfileValue(many + "a=1", "Data", "a"), "1");
}

}  // namespace
}  // namespace corvel::desk
