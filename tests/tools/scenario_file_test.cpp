// The form of scenario files: words, quotes, escapes, files beside; and what is told of bad lines.
#include "tools/scenario_file.h"

#include "base/cp1252.h"

#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

const ReadBeside kBeside = [](const std::string& name) -> std::optional<std::string> {
  if (name == "bytes.bin") return std::string("\x80\0\r\n", 4);
  return std::nullopt;
};

struct Good {
  const char* line;
  std::vector<std::string> words;
};

TEST(ScenarioLines, GiveTheirWords) {
  const Good kLines[] = {
      {"", {}},
      {"  \t ", {}},
      {"# a comment", {}},
      {"  # a comment", {}},
      {"wait 0.5", {"wait", "0.5"}},
      {"  say\tAnn  \"hi all\"  ", {"say", "Ann", "hi all"}},
      {R"(type "")", {"type", ""}},
      {R"(type "a\"b\\c\t\r\n\x80\xff")", {"type", "a\"b\\c\t\r\n\x80\xff"}},
      {R"(wav C:\AOL\x41.wav)", {"wav", "C:\\AOL\\x41.wav"}},
      {"type \"•¤• ž\"", {"type", "\x95\xA4\x95 \x9E"}},
      {"say Zoë é", {"say", "Zo\xEB", "\xE9"}},
      {R"(type "# no comment")", {"type", "# no comment"}},
      {R"(type "@bytes.bin")", {"type", std::string("\x80\0\r\n", 4)}},
      {R"(type "\x40bytes.bin")", {"type", "@bytes.bin"}},
      {"type @bytes.bin", {"type", "@bytes.bin"}},
  };
  for (const Good& good : kLines) {
    std::string error = "left over";
    EXPECT_EQ(ParseScenarioLine(good.line, kBeside, error).All(), good.words) << good.line;
    EXPECT_EQ(error, "") << good.line;
  }
}

TEST(ScenarioLines, TellWhatIsWrong) {
  const std::pair<std::string, const char*> kLines[] = {
      {R"(type "hi)", "not closed"},
      {R"(type "hi\)", "escape"},
      {R"(type "hi\")", "not closed"},
      {R"(type "C:\AOL")", "escape"},
      {R"(type "\x4")", "escape"},
      {R"(type "\xg0")", "escape"},
      {R"(type "a"b)", "blank is missing"},
      {R"(type a"b")", "inside a word"},
      {"type \"日\"", "outside Windows-1252"},
      {"type \xC3", "outside Windows-1252"},
      {R"(type "@missing.bin")", "missing.bin"},
  };
  for (const auto& [line, part] : kLines) {
    std::string error;
    EXPECT_TRUE(ParseScenarioLine(line, kBeside, error).empty()) << line;
    EXPECT_NE(error.find(part), std::string::npos) << line << " gives: " << error;
  }
}

TEST(ScenarioFiles, KeepLineNumbersAndNarration) {
  const ScenarioFile file = ParseScenario(
      "\xEF\xBB\xBF# first\r\n\r\nstart\r\n#: It begins.\r\ntype \"hi\nwait 1", kBeside);
  ASSERT_EQ(file.lines.size(), 3u);
  EXPECT_EQ(file.lines[0].number, 3);
  EXPECT_EQ(file.lines[1].narration, "It begins.");
  EXPECT_EQ(file.lines[2].words.All(), (std::vector<std::string>{"wait", "1"}));
  EXPECT_EQ(file.lines[2].number, 6);
  ASSERT_EQ(file.errors.size(), 1u);
  EXPECT_EQ(file.errors[0].line, 5);
}

TEST(ScenarioFiles, QuotedTextsReadBackAsTheSameBytes) {
  std::string every;
  for (int byte = 0; byte < 256; ++byte) every += static_cast<char>(byte);
  std::string error;
  const Words words = ParseScenarioLine("type " + Quoted(every), {}, error);
  ASSERT_EQ(error, "");
  EXPECT_EQ(words[1], every);
}

TEST(ScenarioWords, KnowAKeywordFromATextThatReadsTheSame) {
  std::string error;
  const Words words = ParseScenarioLine("answer-input cancel \"cancel\"", {}, error);
  EXPECT_TRUE(words.IsBare(1, "cancel"));
  EXPECT_FALSE(words.IsBare(2, "cancel"));
  EXPECT_FALSE(words.IsBare(3, "cancel"));
}

}  // namespace
}  // namespace corvel::tools
