// The program's table of facts against the practice client's own: each question about the client's
// windows, in all its versions and countries, and of a client that nobody knows.
#include "base/text.h"
#include "tests/aolbridge/clients.h"

namespace corvel {
namespace {

class FactsOfEveryClient : public EveryClient {};

INSTANTIATE_TEST_SUITE_P(Facts, FactsOfEveryClient, testing::ValuesIn(kKnownClients),
                         [](const auto& info) { return std::string(info.param.name); });

// Presses a button of the client's.
void Press(Program& p, Window icon) {
  p.platform.windows.Send(icon, wm::kLButtonDown, 1, 0);
  p.platform.windows.Send(icon, wm::kLButtonUp, 0, 0);
}

TEST_P(FactsOfEveryClient, HasItsRoomsPartsWhereTheTableSays) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Client({"room", "Lobby", "Anna B"});
  bridge.Do([](AolClient& client, Program& p) {
    client.LookForRoom();
    const RoomParts room = client.PartsOfRoom(p.g.hChatRoom);
    ASSERT_TRUE(room.AllThere());
    EXPECT_EQ(room.viewTellsLines, GetParam().Is3());
    EXPECT_EQ(client.CanFade(), !GetParam().Is3());
    p.platform.windows.SendText(room.input, wm::kSetText, 0, "by the icon");
    Press(p, room.sendIcon);
    EXPECT_EQ(client.GetLastChatLine(room.view), "PracticeOne:by the icon");
  });
}

TEST_P(FactsOfEveryClient, HasItsMailsPartsWhereTheTableSays) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Client({"read-mail", "Hello", "a letter"});
  bridge.Do([](AolClient& client, Program&) {
    EXPECT_EQ(client.ReadMailOnTop(), client.TopDocument());
    EXPECT_EQ(client.GetAPIText(client.BodyOf(client.TopDocument())), "a letter");
    EXPECT_FALSE(client.WriteMailOnTop());
    EXPECT_FALSE(client.WriteMailByTitle());
  });
  bridge.Client({"write-mail"});
  bridge.Do([](AolClient& client, Program& p) {
    EXPECT_FALSE(client.ReadMailOnTop());
    const Window mail = client.WriteMailOnTop();
    ASSERT_TRUE(mail);
    EXPECT_EQ(client.WriteMailByTitle(), mail);
    const MailParts parts = client.PartsOfMail(mail);
    WindowSystem& windows = p.platform.windows;
    windows.SendText(parts.address, wm::kSetText, 0, "Anna B");
    windows.SendText(parts.subject, wm::kSetText, 0, "About it");
    windows.SendText(parts.body, wm::kSetText, 0, "the text");
    const Window attach =
        client.FindChildByClass(mail, facts::kIcon, facts::kAttachIcon(GetParam().Known()));
    EXPECT_EQ(client.GetAPIText(attach), client.Strings().AOLAttachText);
  });
  EXPECT_EQ(bridge.Ask({"mail", "to"}), "Anna B");
  EXPECT_EQ(bridge.Ask({"mail", "subject"}), "About it");
  EXPECT_EQ(bridge.Ask({"mail", "body"}), "the text");
}

TEST_P(FactsOfEveryClient, HasItsIMsPartsWhereTheTableSays) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Client({"im", "Anna B", "are you there?"});
  bridge.Do([](AolClient& client, Program&) {
    const Window im = client.UnreadIM();
    ASSERT_TRUE(im);
    EXPECT_EQ(client.IMOnTop(), im);
    EXPECT_EQ(client.GetIMSender(im), "Anna B");
    const IMParts parts = client.PartsOfIM(im);
    EXPECT_EQ(client.GetAPIText(parts.name), "Anna B");
    EXPECT_EQ(client.GetLastChatLine(parts.transcript), "Anna B:are you there?\r");
    EXPECT_TRUE(parts.entry);
    if (GetParam().Is3()) {  // no manager there, which would need them
      EXPECT_FALSE(parts.sendIcon || parts.respondIcon || client.CanManageIMs());
      return;
    }
    EXPECT_TRUE(client.CanManageIMs());
    EXPECT_EQ(client.GetAPIText(parts.sendIcon), "Send");
    // The manager counts one icon further on every Australian client.
    const bool counted = GetParam().aolVer[0] == '4' && GetParam().aolLocale == locale::kAustralia;
    EXPECT_EQ(client.GetAPIText(parts.respondIcon), counted ? "" : "Respond");
    if (facts::kIMNotify(GetParam().Known()) == facts::Notify::kFifteenthIcon) {
      const Window notify = client.FindChildByClass(im, facts::kIcon, 15);
      EXPECT_EQ(client.GetAPIText(notify), "Notify AOL");
    }
  });
}

TEST_P(FactsOfEveryClient, HasTheButtonsOfANewIMWhereTheTableSays) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Client({"keyword", "aol://9293:Anna"});
  bridge.Do([](AolClient& client, Program& p) {
    const Window im = client.NewIMWindow();
    ASSERT_TRUE(im);
    EXPECT_FALSE(client.IsIM(im));
    const auto text = [&](int n) {
      return client.GetAPIText(client.FindChildByClass(im, facts::kIcon, n));
    };
    EXPECT_EQ(text(facts::kNewIMSendIcon), "Send");
    Window available = client.BodyOf(im);
    for (int i = facts::kAvailableBehindText(GetParam().Known()); i > 0; --i)
      available = p.platform.windows.Next(available);
    EXPECT_EQ(client.GetAPIText(available), "Available?");
  });
}

TEST_P(FactsOfEveryClient, HasTheSessionsWindowsThatTheTableSays) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  const bool is5 = GetParam().aolVer[0] == '5';
  bridge.Do([&](AolClient& client, Program& p) {
    EXPECT_EQ(client.FindFrame(), p.g.hAOL);
    EXPECT_EQ(client.FindMdi(), p.g.hMDI);
    EXPECT_EQ(client.GetAPIText(client.WelcomeWindow()), "Welcome, PracticeOne!");
    EXPECT_EQ(client.GetAPIText(client.MainWindow()), is5 ? "Channels" : "");
    EXPECT_EQ(client.HasMainWindow(), is5 && GetParam().aolLocale == locale::kUs);
    EXPECT_TRUE(client.RunMenuByString(p.g.hAOL, facts::kSignOnRow(GetParam().Known()), false));
    EXPECT_EQ(bool(client.WindowMenu()), !GetParam().Is3());
    EXPECT_FALSE(client.ModalWindow() || client.UploadWindow() || client.ClientBox());
  });
}

TEST_P(FactsOfEveryClient, ShowsWhatItAsksByTheBoxesInTheTable) {
  Bridge bridge(GetParam().Setup());
  bridge.Identify();
  bridge.Client({"invite", "Anna B"});
  bridge.Client({"room", "Lobby", "Anna B"});
  bridge.Client({"upload", "on"});
  bridge.Do([](AolClient& client, Program&) {
    EXPECT_TRUE(client.BuddyInvitation());
    EXPECT_TRUE(client.UploadWindow());
    EXPECT_FALSE(client.RefusalBox());
  });
  bridge.Client({"upload", "off"});
  bridge.Client({"refuse-next-line"});
  bridge.Do([](AolClient& client, Program&) {
    client.LookForRoom();
    client.TextToChat("too long", 2);
  });
  bridge.desk.RunFor(500);
  bridge.Do([](AolClient& client, Program& p) {
    const Window box = client.RefusalBox();
    EXPECT_TRUE(box);
    p.platform.windows.EndDialog(box, -1);
    EXPECT_FALSE(client.RefusalBox());
  });
  bridge.Client({"room-full", "Busy", "1"});
  bridge.Client({"keyword", "aol://2719:2-2-Busy"});
  bridge.Do([](AolClient& client, Program& p) {
    const auto title = facts::kFullRoomTitle(GetParam().Known());
    const auto any = title.empty() ? std::nullopt : std::optional(title);
    const Window box = p.platform.windows.Find(facts::kModal, any);
    EXPECT_TRUE(client.FindChildByClass(box, facts::kFullRoomButton(GetParam().Known())));
  });
}

TEST(ClientFacts, OurMenuHasItsPlaceInEveryBar) {
  const struct {
    const char* aolVer;
    int count, place;
  } rows[] = {{"3", 7, 7}, {"3", 8, 8}, {"3", 9, 9}, {"3", 10, 9}, {"4", 5, 5}, {"4", 6, 6},
              {"4", 7, 7}, {"5", 9, 7}, {"", 5, 5},  {"", 8, 8},   {"", 10, 9}};
  Bridge bridge({});
  bridge.Do([&](AolClient& client, Program& p) {
    for (const auto& row : rows) {
      p.g.AOLVer = row.aolVer;
      EXPECT_EQ(client.PlaceOfOurMenu(row.count), row.place) << row.aolVer << " " << row.count;
    }
  });
}

// What the two rows of it that no client reaches now would say.
TEST(ClientFacts, KeepTheRowOfTheFormerLocale) {
  constexpr int kFormer = 4;
  for (const char* const version : {"4", "5"}) {
    EXPECT_EQ(StringsOf(EditionOf(version, kFormer)).AOLWriteTitle, "Write e-mail");
    EXPECT_EQ(facts::kReplyLabel(*EditionOf(version, kFormer)), 3);
  }
}

// A client of another version looks like one that is known. Nothing is read into that, and nothing
// that drives it begins.
TEST(ClientFacts, OfAnUnknownClientAreNone) {
  practice::Setup setup;
  setup.version = "7.0";
  Bridge bridge(setup);
  bridge.Identify();
  bridge.Client({"room", "Lobby", "Anna B"});
  bridge.Client({"refuse-next-line"});
  bridge.Client({"read-mail", "Hello", "a letter"});
  const auto questions = [](AolClient& client, Program& p) {
    EXPECT_EQ(p.g.AOLVer, "");
    EXPECT_EQ(p.g.AOLVerFull, "7.0");
    client.LookForRoom();
    EXPECT_FALSE(p.g.hChatRoom || client.FindChatRoom(p.g.hMDI, facts::kDocument));
    EXPECT_FALSE(client.PartsOfRoom(client.TopDocument()).AllThere());
    EXPECT_FALSE(client.IsAOLOnline(false) || client.CanFade() || client.CanManageIMs());
    EXPECT_FALSE(client.ReadMailOnTop() || client.WriteMailOnTop() || client.MainWindow());
    EXPECT_FALSE(client.WriteMailByTitle() || client.ClientBox() || client.WindowMenu());
  };
  const auto orders = [](AolClient& client, Program& p) {
    client.GetScreenNames();
    client.MSNCheck();
    client.AOLCursor();
    client.AOLGetProfile("Anna B");
    EXPECT_FALSE(client.AOLOpenEMail("Anna B", true));
    EXPECT_EQ(p.g.SN[0], "");
  };
  const std::int64_t start = bridge.desk.NowMs();
  bridge.Do(questions);
  bridge.Do(orders);
  EXPECT_LT(bridge.desk.NowMs() - start, 100);
  EXPECT_EQ(bridge.Ask({"target"}).find("Profile"), std::string::npos);
  EXPECT_TRUE(bridge.IsRunning());
}

}  // namespace
}  // namespace corvel
