// Every operation of the bridge against the practice client, in all its versions and countries.
#include "base/text.h"
#include "core/settings_shell.h"
#include "tests/aolbridge/clients.h"

#include <algorithm>

namespace corvel {
namespace {

using practice::Locale;

INSTANTIATE_TEST_SUITE_P(Bridge, EveryClient, testing::ValuesIn(kKnownClients),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(EveryClient, IsKnownByVersionCountryAndTexts) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Do([](AolClient& client, Program& p) {
    EXPECT_EQ(p.g.AOLVer, GetParam().aolVer);
    EXPECT_EQ(p.g.AOLVerFull, GetParam().version);
    EXPECT_EQ(p.g.AOLLocale, GetParam().aolLocale);
    EXPECT_EQ(client.Strings().AOLWriteTitle, GetParam().writeTitle);
    EXPECT_EQ(client.CountryOf().code, GetParam().country);
  });
}

TEST_P(EveryClient, IsKnownThoughItHangsAsItIsAsked) {
  Bridge bridge(GetParam().Setup());
  const auto setHung = [&](bool hung) {
    bridge.desk.windows().SetHung(bridge.clientProcess, hung);
  };
  setHung(true);
  bridge.desk.After(0, 8000, [&] { setHung(false); });
  bridge.Identify();
  EXPECT_EQ(bridge.program().g.AOLLocale, GetParam().aolLocale);
}

TEST_P(EveryClient, TellsSignedOnFromSignedOff) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Do([](AolClient& client, Program&) { EXPECT_TRUE(client.IsAOLOnline(false)); });
  bridge.Client({"sign-off"});
  bridge.Do([](AolClient& client, Program&) { EXPECT_FALSE(client.IsAOLOnline(true)); });
  ASSERT_EQ(bridge.presser.texts.size(), 1U);
  EXPECT_TRUE(bridge.presser.texts[0].starts_with("~B~CRYou are not currently signed on!"));
}

TEST_P(EveryClient, GivesItsScreenNamesOnAndOffline) {
  for (const bool online : {true, false}) {
    practice::Setup setup = GetParam().Setup();
    if (!online) setup.signedOnAs.clear();
    Bridge bridge(setup);
    bridge.Identify();
    bridge.Do([](AolClient& client, Program&) { client.GetScreenNames(); });
    const Globals& g = bridge.program().g;
    EXPECT_EQ(g.SN[0], "PracticeOne");
    EXPECT_EQ(g.SN[1], "Practice Two");
    EXPECT_EQ(g.SN[2], "");
    EXPECT_EQ(g.CurrentSN, online ? "PracticeOne" : "");
  }
}

TEST_P(EveryClient, ShowsARoomOnceItHasALineAndTakesText) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Do([](AolClient& client, Program& p) {
    client.LookForRoom();
    EXPECT_FALSE(p.g.hChatRoom);
    client.TextToChat("lost", 1);
  });
  EXPECT_EQ(bridge.presser.texts.size(), 1U);
  bridge.Client({"room", "Lobby", "Anna B", "PracticeOne", "SixteenLettersXX"});
  bridge.Do([](AolClient& client, Program& p) {
    client.LookForRoom();
    ASSERT_TRUE(p.g.hChatRoom);
    EXPECT_EQ(client.FindChatRoom(p.g.hMDI, "AOL Child"), p.g.hChatRoom);
    p.g.CurrentSN = "PracticeOne";
    auto names = client.ListRoomNames();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Anna B", "SixteenLettersXX"}));
    client.TextToChat("kept", 0);
  });
  EXPECT_EQ(bridge.Ask({"input"}), "kept");
  bridge.Do([](AolClient& client, Program&) { client.TextToChat("hello", 2); });
  EXPECT_EQ(bridge.Ask({"input"}), "");
  bridge.Do([](AolClient& client, Program& p) {
    EXPECT_EQ(client.GetLastChatLine(client.PartsOfRoom(p.g.hChatRoom).view), "PracticeOne:hello");
  });
  bridge.Client({"leave-room"});
  bridge.Do([](AolClient& client, Program& p) {
    client.LookForRoom();
    EXPECT_FALSE(p.g.hChatRoom);
  });
}

TEST_P(EveryClient, OpensAWriteMailWindowOnceOnly) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Do([](AolClient& client, Program& p) {
    const Window mail = client.AOLOpenEMail("Anna B", false);
    ASSERT_TRUE(mail);
    EXPECT_EQ(client.IsWriteMailWindow(mail), mail);
    EXPECT_EQ(client.AOLOpenEMail("", false), mail);
    EXPECT_FALSE(client.IsWriteMailWindow(client.FindChildByTitle(p.g.hMDI, "Welcome,")));
  });
  EXPECT_EQ(bridge.Ask({"mail", "to"}), "Anna B");
}

TEST_P(EveryClient, FetchesAProfileAndComesOutOfAnHourglass) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  for (const char* state : {"online", "offline"}) {
    bridge.Client({"member", "Anna B", state});
    bridge.Do([](AolClient& client, Program& p) {
      client.AOLGetProfile("Anna B");
      EXPECT_FALSE(client.FindChildByTitle(p.g.hMDI, "Get a Member's Profile"));
    });
  }
  bridge.Do([](AolClient& client, Program&) { client.AOLCursor(); });
  bridge.desk.RunFor(1000);
  EXPECT_FALSE(bridge.program().platform.windows.Find("_AOL_Modal", std::nullopt));
}

TEST(Bridge, RefusesTheClientsItDoesNotKnow) {
  const struct {
    const char* version;
    Locale locale;
    const char* text;
  } rows[] = {{"6.0", Locale::kUs, "AOL 6.0 Detected!"},
              {"5.0", Locale::kGermany, "AOL DE Ermittelt!"}};
  for (const auto& row : rows) {
    practice::Setup setup;
    setup.version = row.version;
    setup.locale = row.locale;
    Bridge bridge(setup);
    bridge.Identify();
    ASSERT_EQ(bridge.presser.texts.size(), 1U) << row.version;
    EXPECT_TRUE(HoldsNoCase(bridge.presser.texts[0], row.text));
    EXPECT_FALSE(bridge.IsRunning());
  }
}

TEST(Bridge, KeywordsGoToTheClientWhateverTheyAre) {
  Bridge bridge({});
  bridge.Identify();
  bridge.Do([](AolClient& client, Program& p) {
    p.settings.General.UseExternalBrowser.SetForThisRun(true);
    client.RunKeyword("http://example.com/a");
  });
  bridge.desk.RunFor(500);
  const auto& entries = bridge.desk.journal().Entries();
  EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [](const auto& entry) {
    return entry.kind == "keyword" &&
           entry.words == std::vector<std::string>{"http://example.com/a"};
  }));
}

TEST(Bridge, RichTextSurvivesTheClipboardAndNeverStealsIt) {
  Bridge bridge({});
  const std::string text(1 << 20, 'x');
  bridge.Do([&](AolClient& client, Program& p) {
    EXPECT_EQ(client.GetRichText(p.g.hAOL), "");
    client.PutRichText(p.g.hAOL, text);
    EXPECT_EQ(client.GetRichText(p.g.hAOL), text);
    bridge.desk.clipboard().HoldOpenByStranger(true);
    client.PutRichText(p.g.hAOL, "other");
    EXPECT_EQ(client.GetRichText(p.g.hAOL), "");
    bridge.desk.clipboard().HoldOpenByStranger(false);
    EXPECT_EQ(client.GetRichText(p.g.hAOL), text);
  });
}

TEST(Bridge, MenuRowsNeedTheirShortcutAndLieOneDeep) {
  practice::Setup setup;
  setup.version = "3.0";
  Bridge bridge(setup);
  bridge.Do([](AolClient& client, Program& p) {
    EXPECT_TRUE(client.RunMenuByString(p.g.hAOL, "&compose mail\tctrl+m", false));
    EXPECT_FALSE(client.RunMenuByString(p.g.hAOL, "&Compose Mail", false));
    EXPECT_FALSE(client.RunMenuByString({}, "&Compose Mail\tCtrl+M", true));
  });
}

// A row that opens a menu has no id of its own, and one without a text is a separator.
TEST(Bridge, MenuRowsThatRunNothingAreNeverMeant) {
  Bridge bridge({});
  bridge.Do([](AolClient& client, Program& p) {
    Menus& menus = p.platform.menus;
    const MenuHandle file = menus.SubMenu(menus.MenuOf(p.g.hAOL), 0);
    menus.Insert(file, 0, menu_flag::kByPosition | menu_flag::kPopup, 0, menus.CreatePopup(),
                 "&Deeper");
    EXPECT_FALSE(client.RunMenuByString(p.g.hAOL, "&Deeper", true));
    EXPECT_FALSE(client.RunMenuByString(p.g.hAOL, "", true));
    EXPECT_TRUE(client.RunMenuByString(p.g.hAOL, "E&xit", false));
  });
}

TEST_P(EveryClient, PutsTheCaretInTheSubjectOfAnAddressedMail) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Do([](AolClient& client, Program&) { client.AOLOpenEMail("Anna B", true); });
  bridge.Client({"type", "About it"});
  EXPECT_EQ(bridge.Ask({"mail", "subject"}), "About it");
  EXPECT_EQ(bridge.Ask({"mail", "to"}), "Anna B");
}

TEST(Bridge, SearchesCountFromOneAndIgnoreCase) {
  Bridge bridge({});
  bridge.Do([](AolClient& client, Program& p) {
    EXPECT_FALSE(client.FindChildByClass(p.g.hAOL, "MDIClient", 0));
    EXPECT_EQ(client.FindChildByClass(p.g.hAOL, "mdiCLIENT", 1), p.g.hMDI);
    EXPECT_FALSE(client.FindChildByClass(p.g.hAOL, "MDIClient", 2));
    EXPECT_FALSE(client.FindChildByClass({}, "MDIClient"));
    EXPECT_TRUE(client.FindChildByTitle(p.g.hMDI, "wELCOME,"));
    EXPECT_EQ(client.CountChildren({}), 0);
    EXPECT_GE(client.CountChildren(p.g.hAOL), 2);
  });
}

// The limits go by the time of day: a wait that crosses midnight ends at once.
TEST(Bridge, WaitsEndAtTheirLimit) {
  const struct {
    CivilTime now;
    std::int64_t least, most;
  } rows[] = {{{1999, 11, 21, 12, 0, 0, 0}, 10'000, 10'100},
              {{1999, 11, 21, 23, 59, 58, 0}, 1'900, 2'200}};
  for (const auto& row : rows) {
    Bridge bridge({});
    bridge.desk.SetWallClock(row.now);
    const std::int64_t start = bridge.desk.NowMs();
    bridge.Do([](AolClient& client, Program&) {
      EXPECT_FALSE(client.WaitForWindow("NoSuchClass", std::nullopt));
    });
    EXPECT_GE(bridge.desk.NowMs() - start, row.least);
    EXPECT_LE(bridge.desk.NowMs() - start, row.most);
  }
}

// Whatever is going on, the client's death ends every wait for it.
TEST(Bridge, ADyingClientEndsEveryWait) {
  const std::function<void(AolClient&)> waits[] = {
      [](AolClient& c) { c.AOLOpenEMail("x", true); },
      [](AolClient& c) { c.AOLGetProfile("x"); },
      [](AolClient& c) { c.AOLCursor(); },
      [](AolClient& c) { c.TextToChat("x", 2); },
  };
  for (const auto& wait : waits) {
    practice::Setup setup;
    setup.delayMs = 3000;
    Bridge bridge(setup);
    bridge.desk.RunFor(5000);
    bridge.Identify();
    const std::int64_t start = bridge.desk.NowMs();
    bridge.Do([&](AolClient& client, Program&) {
      bridge.desk.Kill(bridge.clientProcess);
      wait(client);
    });
    EXPECT_LE(bridge.desk.NowMs() - start, 21'000);
  }
}

}  // namespace
}  // namespace corvel
