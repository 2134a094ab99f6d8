// The client's life: windows that take their time, sessions, keywords, closing.
#include "tests/practice/practice_fixture.h"

namespace corvel::practice {
namespace {

TEST(ClientLife, AWindowIsFoundBeforeItsControlsAndBothBeforeItShows) {
  PracticeDesk desk(MakeSetup("4.0", Locale::kUs, 200));
  desk.desk.RunFor(1000);
  desk.Do({"write-mail"});
  EXPECT_EQ(desk.Ask({"busy"}), "1");
  desk.desk.RunFor(50);
  EXPECT_FALSE(desk.Document("Write Mail"));
  desk.desk.RunFor(100);
  const Window mail = desk.Document("Write Mail");
  ASSERT_TRUE(mail);
  EXPECT_FALSE(desk.windows().IsVisible(mail));
  EXPECT_FALSE(desk.windows().TopChild(mail)) << "no control yet";
  desk.desk.RunFor(49);
  EXPECT_FALSE(desk.windows().IsVisible(mail));
  desk.desk.RunFor(1);
  EXPECT_TRUE(desk.windows().IsVisible(mail));
  EXPECT_TRUE(desk.Child(mail, "RICHCNTL"));
  EXPECT_EQ(desk.Ask({"busy"}), "0");
}

TEST(ClientLife, AWindowClosedBeforeItStandsStaysAway) {
  PracticeDesk desk(MakeSetup("4.0", Locale::kUs, 200));
  desk.desk.RunFor(1000);
  desk.Do({"write-mail"});
  desk.desk.RunFor(150);
  const Window mail = desk.Document("Write Mail");
  desk.AsStranger([&] { return desk.windows().Send(mail, wm::kClose, 0, 0); });
  desk.desk.RunFor(1000);
  EXPECT_FALSE(desk.Document("Write Mail"));
}

TEST(ClientLife, EveryCommandSurvivesEveryDelay) {
  const std::vector<Strings> evening = {{"room", "Lobby", "Ann"},
                                        {"say", "Ann", "hi"},
                                        {"enter", "Bob"},
                                        {"type", "hello"},
                                        {"key", "enter"},
                                        {"im", "Ann", "psst"},
                                        {"im-to", "Bob", "hey"},
                                        {"read-mail", "T", "B"},
                                        {"write-mail"},
                                        {"invite", "Bob"},
                                        {"upload", "on"},
                                        {"upload", "off"},
                                        {"client-menu", "&New\tCtrl+N"},
                                        {"keyword", "welcome"},
                                        {"keyword", "aol://3548:Ann"},
                                        {"leave-room"},
                                        {"sign-off"},
                                        {"sign-on", "PracticeOne"},
                                        {"client-close"}};
  for (std::uint32_t delay : {0u, 5u, 10u, 19u, 50u, 3000u}) {
    PracticeDesk desk(MakeSetup("5.0", Locale::kUk, delay));
    for (const Strings& command : evening) {
      desk.Do(command);
      desk.desk.RunFor(delay / 3);
    }
    desk.desk.RunFor(10000);
    EXPECT_FALSE(desk.running()) << delay;
    EXPECT_EQ(desk.desk.LeftOpen(0), Strings{}) << delay;
  }
}

TEST(ClientLife, SigningOnPassesItsProgressWindow) {
  auto setup = MakeSetup("4.0", Locale::kUs, 200);
  setup.screenNames = {"One", "Two"};
  setup.signedOnAs = "";
  PracticeDesk desk(setup);
  desk.desk.RunFor(1000);
  EXPECT_EQ(desk.Do({"sign-on", "Two"}), "");
  EXPECT_EQ(desk.Do({"sign-on", "One"}), "the user is signed on already");
  const Window modal = desk.windows().Find("_AOL_MODAL", std::nullopt);
  EXPECT_EQ(desk.Text(desk.Child(modal, "_AOL_ICON")), "Cancel");
  desk.desk.RunFor(1000);
  EXPECT_FALSE(desk.windows().Exists(modal));
  EXPECT_EQ(desk.Ask({"signed-on-as"}), "Two");
  EXPECT_TRUE(desk.Document("Welcome, Two!"));
  EXPECT_FALSE(desk.Document("Sign On"));

  desk.DoAndWait({"sign-off"});
  const Window combo = desk.Child(desk.Document("Goodbye from America Online!"), "_AOL_COMBOBOX");
  EXPECT_EQ(desk.AsStranger([&] { return desk.windows().Send(combo, wm::kCbGetCurSel, 0, 0); }), 1)
      << "the name that was used last";
}

TEST(ClientLife, CancelEndsTheSignOn) {
  auto setup = MakeSetup("4.0", Locale::kUs, 2000);
  setup.signedOnAs = "";
  PracticeDesk desk(setup);
  desk.desk.RunFor(5000);
  desk.Do({"sign-on", "PracticeOne"});
  desk.Click(desk.Child(desk.windows().Find("_AOL_MODAL", std::nullopt), "_AOL_ICON"));
  desk.desk.RunFor(5000);
  EXPECT_EQ(desk.Ask({"signed-on-as"}), "");
  EXPECT_EQ(desk.Do({"sign-on", "PracticeOne"}), "");
}

TEST(ClientLife, TheSignOnRowBringsUpOneWindow) {
  auto setup = MakeSetup("4.0", Locale::kUs, 100);
  setup.signedOnAs = "";
  setup.screenNames = {};
  PracticeDesk desk(setup);
  for (int i = 0; i < 5; ++i)
    desk.AsStranger([&] {
      return desk.windows().Send(desk.Frame(), wm::kCommand, desk.MenuId("&Sign On Screen"), 0);
    });
  desk.desk.RunFor(1000);
  const Window first = desk.Document("Sign On");
  EXPECT_FALSE(desk.windows().FindChild(desk.Mdi(), first, "AOL Child", "Sign On"));
  EXPECT_EQ(desk.RowNames(desk.Child(first, "_AOL_COMBOBOX"), wm::kCbGetCount, wm::kCbGetItemData),
            (Strings{"New User", "Guest"}));
}

TEST(ClientLife, SigningOffClosesWhatBelongsToTheSession) {
  PracticeDesk desk;
  desk.desk.RunFor(1000);
  desk.DoAndWait({"room", "Lobby"});
  desk.DoAndWait({"im", "Ann", "hi"});
  desk.Do({"write-mail"});
  desk.DoAndWait({"sign-off"});
  const Window only = desk.windows().TopChild(desk.Mdi());
  EXPECT_EQ(desk.Text(only), "Goodbye from America Online!");
  EXPECT_FALSE(desk.windows().Next(only));
}

TEST(ClientLife, KeywordsAreTakenOverFromASecondProcess) {
  PracticeDesk desk;
  desk.desk.RunFor(1000);
  desk.Do({"close-window", "Welcome,"});
  desk.Keyword("welcome");
  EXPECT_TRUE(desk.Document("Welcome, PracticeOne!"));
  desk.Keyword("http://somewhere/a b");
  EXPECT_EQ(desk.Noted("keyword"), (Strings{"welcome", "http://somewhere/a b"}));
  EXPECT_EQ(desk.desk.FindProcess("waol.exe"), desk.process) << "the messenger has ended";
}

TEST(ClientLife, LocateSpeaksTheServicesSentences) {
  struct {
    Strings state;
    const char* sentence;  // nullptr: a box instead
    bool canGo;
  } cases[] = {
      {{"online"}, "Ann is online, but not in a chat area.", false},
      {{"private"}, "Ann is in a private room.", false},
      {{"room", "Den"}, "Ann is in chat room \"Den\" in \"Town Square.\"", true},
      {{"conference", "Hall"}, "Ann is in conference room \"Hall.\"", true},
      {{"offline"}, nullptr, false},
  };
  for (const auto& one : cases) {
    PracticeDesk desk;
    desk.desk.RunFor(1000);
    Strings command = {"member", "Ann"};
    command.insert(command.end(), one.state.begin(), one.state.end());
    ASSERT_EQ(desk.Do(command), "");
    desk.Keyword("aol://3548:Ann");
    const Window locate = desk.Document("Locate Ann");
    EXPECT_EQ(desk.windows().Exists(desk.windows().Find("#32770", "America  Online")),
              one.sentence == nullptr);
    if (one.sentence == nullptr) continue;
    EXPECT_EQ(desk.Text(desk.Child(locate, "_AOL_STATIC")), one.sentence);
    EXPECT_EQ(desk.windows().IsEnabled(desk.Child(locate, "_AOL_ICON")), one.canGo);
  }
}

TEST(ClientLife, AProfileComesOrABoxSaysThereIsNone) {
  PracticeDesk desk;
  desk.desk.RunFor(1000);
  desk.Do({"member", "Nobody", "unknown"});
  const Window row = desk.Child(desk.Child(desk.Frame(), "AOL Toolbar"), "_AOL_Toolbar");
  const auto ask = [&](std::string_view name) {
    desk.AsStranger(
        [&] { return desk.windows().Send(desk.Child(row, "_AOL_ICON"), wm::kChar, 'g', 0); });
    desk.desk.RunFor(1000);
    const Window window = desk.Document("Get a Member's Profile");
    const Window field = desk.Child(window, "_AOL_EDIT");
    desk.AsStranger([&] {
      desk.windows().SendText(field, wm::kSetText, 0, name);
      return desk.windows().Send(field, wm::kChar, 13, 0);
    });
    desk.desk.RunFor(1000);
    desk.AsStranger([&] { return desk.windows().Send(window, wm::kClose, 0, 0); });
  };
  ask("Ann");
  EXPECT_TRUE(desk.Document("Member Profile"));
  EXPECT_FALSE(desk.windows().Find("#32770", std::nullopt));
  ask("Nobody");
  EXPECT_TRUE(desk.windows().Find("#32770", "America  Online"));
}

TEST(ClientLife, AnUploadBlocksTheClientBehindItsGauge) {
  PracticeDesk desk;
  desk.Do({"upload", "on"});
  EXPECT_TRUE(desk.Child(desk.windows().Find("_AOL_MODAL", std::nullopt), "_AOL_GAUGE"));
  EXPECT_EQ(desk.Do({"type", "x"}), "the client is disabled");
  desk.Do({"upload", "off"});
  EXPECT_EQ(desk.Ask({"enabled"}), "1");
}

TEST(ClientLife, ARowOfAStrangerIsARowOfTheMenu) {
  PracticeDesk desk;
  Menus& menus = desk.desk.platform().menus;
  desk.AsStranger([&] {
    const MenuHandle inner = menus.CreatePopup();
    menus.Insert(inner, -1, menu_flag::kByPosition, 1200, {}, "&WavList");
    menus.Insert(inner, -1, menu_flag::kByPosition | menu_flag::kGrayed, 1203, {}, "F&ade");
    const MenuHandle outer = menus.CreatePopup();
    menus.Insert(outer, -1, menu_flag::kByPosition | menu_flag::kPopup, 0, inner, "&Wavs");
    return menus.Insert(menus.MenuOf(desk.Frame()), 6, menu_flag::kByPosition | menu_flag::kPopup,
                        0, outer, "Corve&l");
  });
  EXPECT_EQ(desk.Ask({"menu", "&WavList"}), "1");
  EXPECT_EQ(desk.Do({"client-menu", "WavList"}), "");
  EXPECT_EQ(desk.Do({"client-menu", "Fade"}), "the row Fade is greyed");
  EXPECT_EQ(desk.Ask({"menu", "Gone"}), "0");
}

TEST(ClientLife, EveryWayOutEndsIt) {
  const std::vector<Strings> ways = {{"client-close"}, {"client-menu", "E&xit"}};
  for (const Strings& way : ways) {
    PracticeDesk desk;
    desk.desk.RunFor(1000);
    desk.DoAndWait({"room", "Lobby"});
    desk.Do({"write-mail"});
    desk.Do(way);
    desk.desk.RunFor(1000);
    EXPECT_FALSE(desk.Frame()) << way[0];
    EXPECT_FALSE(desk.desk.IsRunning(desk.process)) << way[0];
  }
}

TEST(ClientLife, ItStartsAgainAfterACrash) {
  PracticeDesk desk;
  desk.desk.RunFor(1000);
  desk.DoAndWait({"room", "Lobby", "Ann"});
  desk.desk.Kill(desk.process);
  desk.desk.RunFor(100);
  EXPECT_FALSE(desk.running());
  EXPECT_EQ(desk.desk.platform().clientLibrary.IsOnline(), 0);
  desk.AsStranger([&] { return desk.desk.platform().processes.Run("C:\\AOL\\aol.exe", 1); });
  desk.desk.RunFor(1000);
  EXPECT_TRUE(desk.running());
  EXPECT_TRUE(desk.Document("Welcome, PracticeOne!"));
}

TEST(ClientLife, BadCommandsSaySo) {
  PracticeDesk desk;
  const std::pair<Strings, std::string> cases[] = {
      {{}, "no command"},
      {{"dance"}, "dance: not built yet"},
      {{"say", "Ann"}, "say needs more words"},
      {{"leave-room", "x"}, "leave-room has too many words"},
      {{"leave-room"}, "no room is open"},
      {{"member", "Ann", "asleep"}, "a member can't be asleep"},
      {{"member", "Ann", "room"}, "which room?"},
      {{"client-delay", "soon"}, "soon is no number of seconds"},
      {{"client-menu", "Nothing"}, "the client's menus have no row Nothing"},
  };
  for (const auto& [command, error] : cases) EXPECT_EQ(desk.Do(command), error);
}

}  // namespace
}  // namespace corvel::practice
