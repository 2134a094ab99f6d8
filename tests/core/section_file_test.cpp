#include "core/section_file.h"

#include "base/error.h"
#include "tests/core/core_fixture.h"

#include <fstream>
#include <iterator>

namespace corvel {
namespace {

// "name>value;" of a good line, "number!fault;" of another.
std::string Shown(const std::vector<SectionLine>& lines) {
  std::string text;
  for (const SectionLine& line : lines)
    text += line.fault == LineFault::kNone ? line.name + ">" + line.value + ";"
                                           : std::to_string(line.number) + "!" +
                                                 std::to_string(static_cast<int>(line.fault)) + ";";
  return text;
}

TEST(SectionFile, ReadsLinesFromAnyBytes) {
  using namespace std::string_literals;
  struct Case {
    std::string bytes, lines;
  };
  const std::string name(255, 'n'), value(1023, 'v');
  const Case cases[] = {
      {"", ""},
      {"a=1\r\nb=2\nc=3\rd=4", "a>1;b>2;c>3;d>4;"},
      {"first=second=third\r\n", "first>second=third;"},
      {" a = b \r\nempty=\r\n", " a > b ;empty>;"},
      {"\r\n\r\nbehind=empty lines\r\n", "behind>empty lines;"},
      {"[Section]\r\nno equals\r\ngood=1", "1!1;2!1;good>1;"},
      {"=no name\r\n=", "1!2;2!2;"},
      {name + "=" + value, name + ">" + value + ";"},
      {name + "n=1\r\na=" + value + "v\r\nb=1", "1!3;2!3;b>1;"},
      {"a\tb=1\r\na=\x01\r\na\0b=1\r\nc=\0\r\nd=\x7F\r\ne=t\tab"s, "1!4;2!4;3!4;4!4;5!4;e>t\tab;"},
  };
  for (const Case& c : cases) EXPECT_EQ(Shown(ParseSectionFile(c.bytes)), c.lines);
}

class SectionFileTest : public CoreTest {
 protected:
  static constexpr const char* kPath = "C:\\Corvel\\section.dat";
  void SetUp() override { desk_.files().PutFolder("C:\\Corvel"); }
  std::string Value(const std::string& name) { return program_->store.ReadKey("Alias", name); }
  std::string Load(const std::string& bytes) {
    desk_.files().Put(kPath, bytes);
    std::string refused;
    As([&] { refused = Shown(FileToSection(*program_, kPath, "Alias")); });
    return refused;
  }
  std::string Save() {
    As([&] { leftOut_ = SectionToFile(*program_, "Alias", kPath); });
    return *desk_.files().Peek(kPath);
  }
  std::vector<std::string> leftOut_;
};

TEST_F(SectionFileTest, TheExampleOfItsPageComesBackByteForByte) {
  std::ifstream file(CORVEL_SOURCE_DIR "/docs/formats/section.dat", std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  EXPECT_EQ(Load(bytes), "");
  EXPECT_EQ(Value("Ann Bob"), "Annie");
  EXPECT_EQ(Value("bobtwo"), "Bob = the second");
  EXPECT_EQ(Value("\x95\xA4\x95"), "tabs\there");
  EXPECT_EQ(Save(), bytes);
  EXPECT_TRUE(leftOut_.empty());
}

TEST_F(SectionFileTest, ANameNeverLeadsToAnotherSection) {
  EXPECT_EQ(Load("..\\IM\\TabsOn=False\r\n\\Toolbar\\MenuAccess=Menu\r\n"), "");
  EXPECT_EQ(Value("..\\IM\\TabsOn"), "False");
  EXPECT_EQ(program_->store.ReadKey("IM", "TabsOn"), "");
  EXPECT_EQ(program_->store.ReadKey("Toolbar", "MenuAccess"), "");
  EXPECT_EQ(program_->store.ReadKey("Alias\\Toolbar", "MenuAccess"), "");
}

TEST_F(SectionFileTest, ValuesAreAddedAndTheRefusedOnesTold) {
  program_->store.WriteKey("Alias", "stays", "1");
  program_->store.WriteKey("Alias", "Changes", "1");
  EXPECT_EQ(Load("changes=2\r\nno equals\r\ntwice=1\r\ntwice=2\r\ncleared=\r\n"), "2!1;");
  EXPECT_EQ(Value("stays"), "1");
  EXPECT_EQ(Value("Changes"), "2");
  EXPECT_EQ(Value("twice"), "2");
  EXPECT_EQ(Value("cleared"), " ");
  desk_.registry().FailWrites(true);
  EXPECT_EQ(Load("a=1\r\nb=2\r\n"), "1!5;2!5;");
  desk_.registry().FailWrites(false);
  As([&] { EXPECT_THROW(FileToSection(*program_, "C:\\no.dat", "Alias"), RunTimeError); });
}

TEST_F(SectionFileTest, WhatNoLineCanHoldIsLeftOutAndTold) {
  SettingsStore& store = program_->store;
  store.WriteKey("Alias", "good", "1");
  store.WriteKey("Alias", "a=b", "1");
  store.WriteKey("Alias", "torn", "two\r\nlines");
  store.WriteKey("Alias", "long", std::string(1024, 'x'));  // can't be read back
  EXPECT_EQ(Save(), "good=1\r\n");
  EXPECT_EQ(leftOut_, (std::vector<std::string>{"a=b", "torn", "long"}));
  store.DeleteSection("Alias");
  EXPECT_EQ(Save(), "");
}

TEST_F(SectionFileTest, AnOldStoreOfAliasesLosesWhatStandsBehindItsTab) {
  desk_.files().Put(kPath, "Ann=Annie\t\r\nBob=Bobby\r\nCy=t\tab\r\nDee=\t\r\nno equals\t\r\n");
  As([&] {
    EXPECT_EQ(Shown(AliasToReg(*program_, kPath, "Alias")), "5!1;");
    EXPECT_TRUE(AliasToReg(*program_, "C:\\no.dat", "Alias").empty());
  });
  EXPECT_EQ(Value("Ann"), "Annie");
  EXPECT_EQ(Value("Bob"), "Bobby");
  EXPECT_EQ(Value("Cy"), "t\ta");
  EXPECT_EQ(Value("Dee"), " ");
}

}  // namespace
}  // namespace corvel
