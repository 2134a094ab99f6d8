// `corvel-desk fade`: what it writes, and what it refuses.
#include "tools/desk/fade_command.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <vector>

namespace corvel::tools {
namespace {

struct Outcome {
  int code;
  std::string output, error;
};

Outcome RunWith(const std::vector<std::string>& args, const std::string& text) {
  std::istringstream input(text);
  std::ostringstream output, error;
  const int code = RunFade(args, input, output, error);
  return {code, output.str(), error.str()};
}

TEST(FadeCommand, WritesTheEnginesBytes) {
  const std::string black = "<FONT COLOR=#000000>", red = "<FONT COLOR=#FF0000>";
  const struct {
    std::vector<std::string> args;
    std::string input, output;
  } kCases[] = {
      // the end of the last line isn't part of the text; any other is
      {{}, "a\n", black + "a\n"},
      {{"--bold"}, "a\r\n", "<B>" + black + "a</B>\r\n"},
      {{}, "a\n\n", black + "a" + black + "\n\n"},
      {{}, "\n", "\n"},
      {{"--colors", "255"}, "ab", red + "ab"},
      {{"--colors", "0,255"}, "a", red + "a"},
      {{"--number", "1", "--colors", "255,0", "--uline"}, "a", "<U>" + red + "a</U>"},
      {{"--colors", "255,0", "--solid", "--bold", "--italic"},
       "a b",
       "<I><B>" + red + "a " + black + "b</B></I>"},
      {{"--colors", "-2147483633"}, "\x95", "<FONT COLOR=#0F0080>\x95"},
      {{"--number", "7"}, "as it came\r\n", "as it came\r\n"},
      {{"--lines"}, "a\n\nb", black + "a\n\n" + black + "b\n"},
      {{"--lines"}, "", ""},
      {{"--lines", "--number", "1"}, "\n", black + "\n"},
      {{"--lines", "--wavy", "--number", "1"},
       "ab\nc\n",
       black + "a<sup>b\n" + black + "</sup>c\n"},
  };
  for (const auto& c : kCases) {
    const Outcome outcome = RunWith(c.args, c.input);
    EXPECT_EQ(outcome.output, c.output);
    EXPECT_EQ(outcome.code, 0) << outcome.error;
  }
}

TEST(FadeCommand, RefusesBadOptionsWithAMessage) {
  const std::vector<std::string> kCases[] = {
      {"--colours", "1"},      {"text"},           {"--number"},
      {"--number", "two"},     {"--number", "1x"}, {"--number", "32768"},
      {"--colors", "1,,2"},    {"--colors", "1,"}, {"--colors", "1,2,3,4,5,6,7"},
      {"--colors", "#FF0000"}, {"--html"},         {"--colors", "4294967295"},
  };
  for (const auto& args : kCases) {
    const Outcome outcome = RunWith(args, "text");
    EXPECT_EQ(outcome.code, 2) << args.front();
    EXPECT_EQ(outcome.output, "") << args.front();
    EXPECT_NE(outcome.error.find("corvel-desk fade: "), std::string::npos) << args.front();
  }
}

TEST(FadeCommand, WritesAPageThatShowsTextAsText) {
  const auto path = std::filesystem::temp_directory_path() / "corvel_fade_command_test.html";
  const Outcome outcome = RunWith({"--colors", "255", "--html", path.string()}, "<B>&\x01\n");
  EXPECT_EQ(outcome.output, "<FONT COLOR=#FF0000><B>&\x01\n") << "the output stays the engine's";
  std::ifstream file(path, std::ios::binary);
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  std::filesystem::remove(path);
  EXPECT_NE(page.find("<p><FONT COLOR=#FF0000>&lt;B&gt;&amp;?</p>"), std::string::npos) << page;
}

TEST(FadeCommand, RefusesInputThatCannotBeRead) {
  std::ifstream folder(std::filesystem::temp_directory_path(), std::ios::binary);
  std::ostringstream output, error;
  EXPECT_EQ(RunFade({}, folder, output, error), 2);
  EXPECT_NE(error.str().find("cannot read the input"), std::string::npos);
}

TEST(FadeCommand, RefusesAPageThatCannotBeWritten) {
  const Outcome outcome = RunWith({"--html", "/no such folder/page.html"}, "text");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.error.find("/no such folder/page.html"), std::string::npos);
}

}  // namespace
}  // namespace corvel::tools
