// What the program looks for, found the way it looks: in every version and locale.
#include "base/cp1252.h"
#include "tests/practice/practice_fixture.h"

namespace corvel::practice {
namespace {

struct Case {
  const char* version;
  Locale locale;
  std::string title, aboutRow, writeTitle, signOnTitle, goodbyeTitle;
};

const Case kCases[] = {
    {"3.0", Locale::kUs, "America  Online", "&About America Online", "Compose Mail", "Welcome",
     "Goodbye from America Online!"},
    {"4.0", Locale::kUs, "America  Online", "&About America Online", "Write Mail", "Sign On",
     "Goodbye from America Online!"},
    {"5.0", Locale::kUs, "America  Online", "&About America Online", "Write Mail", "Sign On",
     "Goodbye from America Online!"},
    {"5.1", Locale::kUs, "America  Online", "&About America Online", "Write Mail", "Sign On",
     "Goodbye from America Online!"},
    {"4.0", Locale::kUk, "AOL", "&About AOL", "Write Mail", "Sign On", "Goodbye from AOL!"},
    {"5.0", Locale::kUk, "AOL", "&About AOL", "Write Email", "Sign On", "Goodbye from AOL!"},
    {"4.0", Locale::kCanada, "AOL Canada", "&About AOL Canada", "Write Mail", "Sign On",
     "Goodbye from AOL Canada!"},
    {"5.0", Locale::kCanada, "AOL Canada", "&About AOL Canada", "Write Mail", "Sign On",
     "Goodbye from AOL Canada!"},
    {"4.0", Locale::kAustralia, "AOL", "&About AOL", "Write e-mail", "Sign On",
     "Goodbye from AOL!"},
    {"5.0", Locale::kAustralia, "AOL", "&About AOL", "Write e-mail", "Sign On", "Goodbye from AOL"},
};

class EveryClient : public testing::TestWithParam<Case> {
 protected:
  EveryClient() : desk(MakeSetup(GetParam().version, GetParam().locale)) { desk.desk.RunFor(1000); }
  bool Is3() const { return std::string(GetParam().version) == "3.0"; }
  bool Is(Locale locale) const { return GetParam().locale == locale; }
  bool WideIm() const { return GetParam().version[0] == '5' && Is(Locale::kAustralia); }
  Window ToolbarRow() {
    const Window outer = desk.Child(desk.Frame(), "AOL Toolbar");
    return Is3() ? outer : desk.Child(outer, "_AOL_TOOLBAR");
  }
  Window Toolbar(int icon) { return desk.Child(ToolbarRow(), "_AOL_ICON", icon); }
  Window Room() {
    desk.DoAndWait({"room", "Lobby", "Ann"});
    return desk.Document("Lobby");
  }
  PracticeDesk desk;
};

INSTANTIATE_TEST_SUITE_P(Clients, EveryClient, testing::ValuesIn(kCases), [](const auto& info) {
  const std::string version = info.param.version;
  return "v" + version.substr(0, 1) + version.substr(2) + "locale" +
         std::to_string(static_cast<int>(info.param.locale));
});

TEST_P(EveryClient, TellsThroughItsToolbarThatItIsSignedOn) {
  const int online = Is3() ? 6 : 1;
  EXPECT_TRUE(desk.windows().IsEnabled(Toolbar(online)));
  EXPECT_EQ(desk.Text(Toolbar(3)) == "e-mail centre", Is(Locale::kAustralia));
  desk.Do({"sign-off"});
  EXPECT_TRUE(desk.windows().Exists(Toolbar(online)));
  EXPECT_FALSE(desk.windows().IsEnabled(Toolbar(online)));
}

TEST_P(EveryClient, NamesItsUserInTheWelcomeWindow) {
  EXPECT_TRUE(desk.windows().IsVisible(desk.Document("Welcome, PracticeOne!")));
}

TEST_P(EveryClient, HasItsMenuRows) {
  Menus& menus = desk.desk.platform().menus;
  const int tops = menus.Count(menus.MenuOf(desk.Frame()));
  EXPECT_GE(tops, Is3() ? 7 : 5);
  EXPECT_LE(tops, Is3() ? 8 : 6);
  EXPECT_EQ(menus.Count(menus.SubMenu(menus.MenuOf(desk.Frame()), 2)), 10) << "window rows";
  EXPECT_NE(desk.MenuId(GetParam().aboutRow), 0u);
  EXPECT_NE(desk.MenuId(Is3() ? "Set Up && Sign On" : "&Sign On Screen"), 0u);
  EXPECT_NE(desk.MenuId("&New\tCtrl+N"), 0u);
  EXPECT_EQ(desk.MenuId("&Compose Mail\tCtrl+M") != 0, Is3());
  EXPECT_EQ(desk.MenuId("Get a Member's Profile\tCtrl+G") != 0, Is3());
  for (std::string_view other : {"&About AOL", "&About AOL Canada", "&About America Online"})
    EXPECT_EQ(desk.MenuId(other) != 0, other == GetParam().aboutRow) << other;
}

TEST_P(EveryClient, HasTheRoomWindowsInTheirOrder) {
  const Window room = Room();
  ASSERT_TRUE(room);
  const char* text = Is3() ? "_AOL_EDIT" : "RICHCNTL";
  const Window view = desk.Child(room, Is3() ? "_AOL_VIEW" : "RICHCNTL");
  const Window input = desk.Child(room, text, Is3() ? 1 : 2);
  Window send = desk.windows().Next(input);
  if (Is(Locale::kUk)) send = desk.windows().Next(send);
  EXPECT_EQ(desk.windows().ClassOf(send), "_AOL_ICON");
  EXPECT_TRUE(desk.Child(room, "_AOL_LISTBOX"));
  EXPECT_TRUE(desk.Child(room, Is3() ? "_AOL_ICON" : "_AOL_COMBOBOX"));
  EXPECT_EQ(desk.Text(view), "OnlineHost:\t*** You are in \"Lobby\". ***");

  desk.Do({"type", "hello"});
  EXPECT_EQ(desk.Text(input), "hello");
  desk.Click(send);
  EXPECT_EQ(desk.Noted("line"), Strings{"hello"});
}

TEST_P(EveryClient, OpensItsWriteMailWindow) {
  if (Is3())
    desk.RunMenu("&Compose Mail\tCtrl+M");
  else
    desk.Click(desk.windows().Next(Toolbar(1)));
  const Window mail = desk.Document(GetParam().writeTitle);
  ASSERT_TRUE(desk.windows().IsVisible(mail));
  EXPECT_EQ(desk.windows().TopChild(desk.Mdi()), mail);
  if (Is3()) {
    EXPECT_TRUE(desk.windows().FindChild(mail, {}, "_AOL_STATIC", "Address Book"));
  } else {
    EXPECT_TRUE(desk.Child(mail, "_AOL_FONTCOMBO"));
    EXPECT_TRUE(
        desk.Text(desk.Child(mail, "_AOL_CHECKBOX")).starts_with("Request \"Return Receipt\""));
  }
  EXPECT_TRUE(desk.Child(mail, "_AOL_EDIT", 3)) << "the subject";
  EXPECT_TRUE(desk.Child(mail, "RICHCNTL"));
}

TEST_P(EveryClient, MarksAReadMailByItsReplyLabel) {
  desk.DoAndWait({"read-mail", "Wavs for you", "Here is {s boing}"});
  const Window mail = desk.Document("Wavs for you");
  const int place = Is(Locale::kUk) ? 9 : 3;
  EXPECT_EQ(desk.Text(desk.Child(mail, "_AOL_STATIC", place)), "Reply");
  EXPECT_EQ(desk.Text(desk.Child(mail, "RICHCNTL")), "Here is {s boing}");
}

TEST_P(EveryClient, HasTheImControlsInTheirOrder) {
  desk.DoAndWait({"im", "Ann", "hi"});
  const Window im = desk.Document(">Instant Message From: Ann");
  ASSERT_TRUE(im);
  EXPECT_EQ(desk.Text(desk.Child(im, "_AOL_STATIC", WideIm() ? 2 : 1)), "Ann");
  EXPECT_EQ(desk.Text(desk.Child(im, "RICHCNTL")), "Ann:\thi\r");
  const int send = WideIm() ? 10 : 9;
  EXPECT_EQ(desk.Text(desk.Child(im, "_AOL_ICON", send + 1)), "Respond");

  const Window entry = desk.Child(im, "RICHCNTL", 2);
  desk.AsStranger([&] { return desk.windows().SendText(entry, wm::kSetText, 0, "hello"); });
  desk.Click(desk.Child(im, "_AOL_ICON", send));
  EXPECT_EQ(desk.Noted("im-sent"), Strings{"Ann|hello"});
}

TEST_P(EveryClient, TellsWhetherAMemberCanTakeAnIm) {
  desk.Do({"member", "Ann Lee", "offline"});
  desk.Keyword("aol://9293:Ann%20Lee");
  const Window compose = desk.Document("Send Instant Message");
  ASSERT_TRUE(compose);
  Window button = desk.Child(compose, "RICHCNTL");
  for (int i = 0; i < (Is(Locale::kUk) ? 4 : 2); ++i) button = desk.windows().Next(button);
  desk.Click(button);
  const Window box = desk.windows().Find("#32770", GetParam().title);
  EXPECT_EQ(desk.Text(desk.Child(box, "Static", 2)), "Ann Lee is not currently signed on.");
}

TEST_P(EveryClient, ShowsItsAboutBox) {
  desk.RunMenu(GetParam().aboutRow);
  const Window box = desk.windows().Find("_AOL_Modal", std::nullopt);
  EXPECT_TRUE(desk.Child(box, "_AOL_GLYPH"));
  desk.Do({"hourglass", "on"});
  desk.Click(desk.Child(box, "_AOL_ICON"));
  EXPECT_FALSE(desk.windows().Exists(box));
  EXPECT_EQ(desk.Ask({"hourglass"}), "0");
}

TEST_P(EveryClient, SaysGoodbyeWithItsScreenNames) {
  desk.DoAndWait({"sign-off"});
  const Window goodbye = desk.Document(GetParam().goodbyeTitle);
  ASSERT_TRUE(goodbye);
  const Window combo = desk.Child(goodbye, "_AOL_COMBOBOX");
  EXPECT_EQ(desk.RowNames(combo, wm::kCbGetCount, wm::kCbGetItemData),
            (Strings{"PracticeOne", "Guest"}));
}

TEST_P(EveryClient, BeginsAtItsSignOnWindow) {
  auto setup = MakeSetup(GetParam().version, GetParam().locale);
  setup.screenNames = {"Mary Ann", "Sixteen Letters"};
  setup.signedOnAs = "";
  PracticeDesk off(setup);
  off.desk.RunFor(1000);
  EXPECT_TRUE(off.windows().IsVisible(off.Document(GetParam().signOnTitle)));
  EXPECT_EQ(off.Do({"room", "Lobby"}), "the user is not signed on");
}

TEST(Facts, TheMainDocumentOfGenerationFiveIsToldByItsCheckBoxes) {
  PracticeDesk us(MakeSetup("5.0", Locale::kUs)), uk(MakeSetup("5.0", Locale::kUk));
  for (PracticeDesk* desk : {&us, &uk}) {
    desk->desk.RunFor(1000);
    const int count = desk == &us ? 19 : 17;
    EXPECT_TRUE(desk->Child(desk->Document("Channels"), "_AOL_Checkbox", count));
    EXPECT_FALSE(desk->Child(desk->Document("Channels"), "_AOL_Checkbox", count + 1));
  }
}

TEST(Facts, TheGermanClientIsToldByItsAboutRow) {
  PracticeDesk desk(MakeSetup("5.0", Locale::kGermany));
  EXPECT_NE(desk.MenuId("&Über AOL 5.0"_cp), 0u);
  EXPECT_EQ(desk.MenuId("&About AOL"), 0u);
}

TEST(Facts, TheLibraryAnswersForTheClient) {
  auto setup = MakeSetup("5.10beta", Locale::kUs);
  setup.screenNames = {"One", "Two", "Three", "Four", "Five", "Six"};
  setup.signedOnAs = "Two";
  PracticeDesk desk(setup);
  ClientLibrary& library = desk.desk.platform().clientLibrary;
  EXPECT_EQ(library.GetVersion("C:\\AOL"), "5.1");
  EXPECT_EQ(library.IsOnline(), 1);
  const Strings names = library.GetScreenNames("C:\\AOL\\");
  ASSERT_EQ(names.size(), 6u);
  EXPECT_EQ(names[0].substr(0, 5), std::string("One\0 ", 5));
  EXPECT_EQ(names[5].substr(0, 4), std::string("Two\0", 4));
  desk.Do({"sign-off"});
  EXPECT_EQ(library.IsOnline(), 0);
}

// Walks the file as its readers do: records of 22 bytes, back from the guest's.
Strings NamesInIndex(const std::string& bytes) {
  const std::size_t guest = bytes.find(std::string("\0Guest     \0", 12)) + 1;
  Strings names;
  for (std::size_t at = guest - 22; names.size() < 7; at -= 22) {
    std::string field = bytes.substr(at, 16);
    if (field[0] == '\0' || field[0] == '\x01') break;
    field.resize(std::min(field.find('\0'), field.size()));
    names.insert(names.begin(), field.substr(0, field.find_last_not_of(' ') + 1));
  }
  return names;
}

TEST(AccountIndex, HoldsTheNamesInFrontOfTheGuest) {
  const Strings accounts[] = {{"Solo"},
                              {"Mary Ann", "Sixteen Letters1"},
                              {"One", "Two", "Three", "Four", "Five", "Six", "Seven"}};
  for (const Strings& names : accounts) EXPECT_EQ(NamesInIndex(AccountIndex(names)), names);
  EXPECT_EQ(NamesInIndex(AccountIndex({})), Strings{"New User"});
}

TEST(AccountIndex, FollowsAChangeOfTheSetup) {
  PracticeDesk desk;
  auto setup = MakeSetup("4.0", Locale::kUs);
  setup.screenNames = {"Other"};
  ChangeSetup(desk.desk, setup);
  EXPECT_EQ(desk.desk.files().Peek("C:\\AOL\\idb\\main.idx"), AccountIndex({"Other"}));
}

}  // namespace
}  // namespace corvel::practice
