// What practice.exe is told, and the people who keep its user company.
#include "practice/settings.h"

#include "practice/people.h"
#include "tests/practice/practice_fixture.h"

namespace corvel::practice {
namespace {

Settings Read(const std::string& ini, std::string_view commandLine) {
  desk::Desk desk;
  if (!ini.empty()) desk.files().Put("C:\\AOL\\practice.ini", "[client]\r\n" + ini);
  return ReadSettings(desk.platform().files, "C:\\AOL", commandLine);
}

TEST(Settings, WithoutAWordAreTheDefaults) {
  const Settings settings = Read("", "");
  EXPECT_EQ(settings.setup.version, "4.0");
  EXPECT_EQ(settings.setup.signedOnAs, "PracticeOne");
  EXPECT_EQ(settings.setup.folder, "C:\\AOL");
  EXPECT_TRUE(settings.people) << "whoever starts it from a menu is not left alone";
  EXPECT_EQ(settings.mistakes, Strings{});
}

TEST(Settings, OfTheCommandLineCountMoreThanThoseOfTheFile) {
  const Settings settings =
      Read("version=3.0\r\nlocale=uk\r\nnames=Ann, Bob B ,\r\ndelay=200\r\npeople=off\r\n",
           "VERSION=5.0  \"names=Carl,Dora D\" -saol://9293:x y ");
  EXPECT_EQ(settings.setup.version, "5.0");
  EXPECT_EQ(settings.setup.locale, Locale::kUk);
  EXPECT_EQ(settings.setup.screenNames, (Strings{"Carl", "Dora D"}));
  EXPECT_EQ(settings.setup.signedOnAs, "Carl") << "the first of the names that count";
  EXPECT_EQ(settings.setup.delayMs, 200u);
  EXPECT_FALSE(settings.people);
  EXPECT_EQ(settings.target, "aol://9293:x y");
  EXPECT_EQ(settings.mistakes, Strings{});
}

TEST(Settings, CanSayThatNobodyIsSignedOn) {
  EXPECT_EQ(Read("signed-on=nobody\r\n", "").setup.signedOnAs, "");
  EXPECT_EQ(Read("", "signed-on=").setup.signedOnAs, "");
}

TEST(Settings, TellEachMistakeAndKeepTheDefault) {
  const Settings settings = Read("locale=fr\r\ndelay=-1\r\n",
                                 "delay=soon people=maybe names=1,2,3,4,5,6,7,8 what "
                                 "names=AnnWithAVeryLongName version=");
  EXPECT_EQ(settings.mistakes.size(), 8u);
  EXPECT_EQ(settings.setup.locale, Locale::kUs);
  EXPECT_EQ(settings.setup.delayMs, practice::Setup{}.delayMs);
  EXPECT_EQ(settings.setup.screenNames, practice::Setup{}.screenNames);
  EXPECT_EQ(settings.setup.version, "4.0");
}

// The people live in the client's own process.
class PracticePeople : public testing::Test {
 protected:
  PracticePeople() {
    desk.desk.RunAs(desk.process, [&] { people.emplace(desk.desk.platform(), desk.client()); });
  }
  ~PracticePeople() override {
    desk.desk.RunAs(desk.process, [&] { people.reset(); });
  }
  void Hear(std::string_view kind, const Strings& words) {
    desk.desk.RunAs(desk.process, [&] { people->Hear(kind, words); });
  }
  PracticeDesk desk;
  std::optional<People> people;
};

TEST_F(PracticePeople, ComeIntoTheRoomTalkAndWrite) {
  desk.DoAndWait({"room", "Lobby"});
  desk.desk.RunFor(60000);
  const std::string view = desk.Ask({"view"});
  EXPECT_NE(view.find("ChattyKathy:\t"), std::string::npos) << view;
  EXPECT_EQ(desk.Do({"right-click", "WavWarren"}), "") << "is in the room";
  EXPECT_EQ(desk.Ask({"im", "QuietQuinn", "open"}), "1");
}

TEST_F(PracticePeople, AnswerWhomTheUserSpeaksTo) {
  desk.DoAndWait({"room", "Lobby"});
  desk.desk.RunFor(3000);
  const std::string before = desk.Ask({"view"});
  Hear("line", {"hi <B>quietquinn</B>"});
  desk.desk.RunFor(4500);
  const std::string after = desk.Ask({"view"}).substr(before.size());
  EXPECT_NE(after.find("QuietQuinn:\t"), std::string::npos) << after;
  Hear("im-sent", {"wav warren", "hello"});
  desk.desk.RunFor(4500);
  EXPECT_EQ(desk.Ask({"im", "WavWarren", "open"}), "1");
}

TEST_F(PracticePeople, AreSilentWithoutARoomAndAfterSigningOff) {
  Hear("line", {"hi ChattyKathy"});
  desk.DoAndWait({"sign-off"});
  desk.desk.RunFor(60000);
  EXPECT_EQ(desk.Ask({"im", "QuietQuinn", "open"}), "0");
  EXPECT_EQ(desk.Ask({"room"}), "");
}

}  // namespace
}  // namespace corvel::practice
