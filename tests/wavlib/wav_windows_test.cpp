// What a scenario can't see or can't time: the printer, and what happens in the middle of a send.
#include "base/cp1252.h"
#include "base/error.h"
#include "core/settings_store.h"
#include "tests/wavlib/evening.h"
#include "tools/scenario_player.h"
#include "voice/give_back.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace corvel {
namespace {

// --- The printer ---------------------------------------------------------------------------------

// Plays a scenario and gives what was printed: each line as "text|font|points".
Texts Printed(const std::string& scenario) {
  Texts printed;
  tools::ScenarioOptions options;
  options.onEffect = [&](const desk::JournalEntry& entry) {
    if (entry.kind == "print-line")
      printed.push_back(entry.words[0] + "|" + entry.words[1] + "|" + entry.words[2]);
  };
  tools::DeskStage stage(1);
  const auto verdict = tools::PlayScenario(stage, "printing", scenario, {}, options);
  for (const std::string& message : verdict.messages) ADD_FAILURE() << message;
  return printed;
}

constexpr const char* kTwoWavs =
    "wav C:\\Wavs\\b.wav\nwav C:\\Wavs\\a.wav\n"
    "file C:\\Corvel\\data\\desc1.dat \"[Data]\\r\\na=first\\r\\n\"\n"
    "setting Categories Mine \"C:\\\\Wavs\"\n"
    "setting \"Wav List\" \"Default Category\" Mine\n"
    "names Someone\n";
constexpr const char* kPrintWavs =
    "start\nmenu mnuWavs \"Wav List\"\nclick frmTabs.cmdPrint\npopup \"Print to Printer\"\n";

TEST(Printer, WavsFiveALineOrOneEach) {
  const std::string title = "Wav List for Catgory: Mine|Times New Roman|16";
  EXPECT_EQ(Printed(std::string(kTwoWavs) + kPrintWavs),
            (Texts{title, "a             b|Courier New|12"}));
  EXPECT_EQ(Printed(std::string(kTwoWavs) + "setting \"Wav List\" PrintDirection 1\n" + kPrintWavs),
            (Texts{title, "a|Courier New|12", "b|Courier New|12"}));
}

TEST(Printer, Descriptions) {
  EXPECT_EQ(Printed(std::string(kTwoWavs) +
                    "start\nmenu mnuEditor \"Wav Descriptions\"\nclick frmEditDesc.cmdPrint\n"
                    "popup \"Print to Printer\"\n"),
            (Texts{"Someone's Wav Descriptions|Times New Roman|16", "a|Courier New|12",
                   "first|Courier New|12"}));
}

// --- The middle of a send ------------------------------------------------------------------------

// The program beside a client in a room, its fader on, and the wav list open with a wav that has a
// description.
class Sending : public Evening {
 protected:
  Sending() {
    SettingsStore store(desk().registry());
    store.WriteKey("Categories", "Mine", "C:\\Wavs");
    store.WriteKey("Wav List", "Default Category", "Mine");
    store.WriteKey("Descriptions", "SendToRoom", "True");
    store.WriteKey("Fader", "On", "True");
    stage_.PutWave("C:\\Wavs\\a.wav", 1);
    desk().files().Put("C:\\Corvel\\data\\desc1.dat", "[Data]\r\na=first\r\n");
    stage_.PutClient();
    script_.Then(500, [this] { stage_.StartProgram(""); });
    Client(5000, {"room", "Lobby", "Ann"});
    Click(1000, "frmCV7.cmdWavs");
    script_.Then(100, [this] { EXPECT_EQ(user_.Choose({"Wav List"}), ""); });
    script_.Then(500, [this] { hooksBefore_ = Hooks(); });
  }

  std::size_t Lines() {
    const auto& entries = desk().journal().Entries();
    return static_cast<std::size_t>(std::count_if(
        entries.begin(), entries.end(), [](const auto& entry) { return entry.kind == "line"; }));
  }
  std::size_t Hooks() { return desk().windows().HookCount(); }
  std::string MailBody() {
    const auto reply = stage_.Client()->Ask({"mail", "body"});
    return reply.answers.empty() ? "(" + reply.error + ")" : reply.answers.front();
  }

  std::size_t hooksBefore_ = 0;
};

TEST_F(Sending, InputBoxIsFreeWhileAFadedLineGoesOutAndHookedAgainAfterwards) {
  Click(0, "frmTabs.cmdSend");
  Look(150, [this] {
    EXPECT_EQ(Hooks(), hooksBefore_ - 1);
    EXPECT_EQ(Lines(), 1U);
  });
  Look(1000, [this] {
    EXPECT_EQ(Hooks(), hooksBefore_);
    EXPECT_EQ(Lines(), 2U);
  });
  script_.Run();
}

// Whether the central window has seen the room go before the description follows, or sees it later.
class ClosingRoom : public Sending, public testing::WithParamInterface<int> {};

TEST_P(ClosingRoom, IsNotHookedAgain) {
  Click(0, "frmTabs.cmdSend");
  Client(GetParam(), {"leave-room"});
  Look(1000, [this] {
    EXPECT_EQ(Lines(), 1U);
    std::string why;  // the message that there is no room
    if (const auto ok = user_.FindControl("frmMsg.Command1(0)", why)) {
      EXPECT_EQ(stage_.hand().Click(ok->window).refusal, "");
    }
  });
  Look(500, [this] { EXPECT_EQ(Hooks(), hooksBefore_ - 4); });
  Client(0, {"room", "Elsewhere", "Bob"});
  Look(1000, [this] { EXPECT_EQ(Hooks(), hooksBefore_); });
  Click(0, "frmTabs.cmdSend");
  Look(1000, [this] { EXPECT_EQ(Lines(), 3U); });
  script_.Run();
}
INSTANTIATE_TEST_SUITE_P(Delays, ClosingRoom, testing::Values(10, 90, 170, 250));

TEST_F(Sending, WavListThatIsClosedMeanwhileSendsToItsEnd) {
  Click(0, "frmTabs.cmdSend");
  Click(50, "frmTabs.cmdClose");
  Look(1000, [this] {
    EXPECT_FALSE(user_.FindForm("frmTabs"));
    EXPECT_EQ(Lines(), 2U);
    EXPECT_EQ(Hooks(), hooksBefore_);
  });
  script_.Run();
}

TEST_F(Sending, ProgramThatDiesMeanwhileLeavesNothingBehind) {
  Click(0, "frmTabs.cmdSend");
  Look(100, [this] { desk().Kill(stage_.Program()); });
  Look(1000, [this] {
    EXPECT_EQ(stage_.Program(), 0U);
    EXPECT_EQ(Hooks(), 0U);
    EXPECT_EQ(desk().LeftOpen(0), Texts{});
  });
  script_.Run();
}

TEST_F(Sending, ClipboardThatAnotherProgramHoldsIsNotPastedFrom) {
  Client(0, {"write-mail"});
  Look(1000, [this] {
    desk().clipboard().Put("", "a secret");
    desk().clipboard().HoldOpenByStranger(true);
  });
  Click(0, "frmTabs.cmdSend");
  Click(500, "frmMsg.Command1(0)");
  Look(500, [this] {
    EXPECT_EQ(MailBody(), "");
    desk().clipboard().HoldOpenByStranger(false);
    desk().clipboard().Put("AOLMAIL", "kept");
  });
  Click(0, "frmTabs.cmdSend");
  Look(500, [this] {
    EXPECT_EQ(MailBody(), "{S a}");
    EXPECT_EQ(desk().clipboard().Peek("AOLMAIL"), "kept");
  });
  script_.Run();
}

// Stands for a rich text control of the client: notes the commands that it gets.
class CommandRecorder : public WindowProcedure {
 public:
  explicit CommandRecorder(OwnWindows& windows) : windows_(windows) {}
  MessageResult OnMessage(Window window, const Message& message) override {
    if (message.id == wm::kCommand) {
      commands.emplace_back(window, message.wParam);
      if (onCommand) onCommand();
    }
    return windows_.Default(window, message);
  }
  std::vector<std::pair<Window, WParam>> commands;
  std::function<void()> onCommand;

 private:
  OwnWindows& windows_;
};

// Windows of the client's that a test makes itself.
class StandIns : public Sending {
 protected:
  Window Make(const char* className, const char* caption, Window parent) {
    Window made;
    desk().RunAs(stage_.ClientProcess(), [&] {
      NewWindow window;
      window.className = className;
      window.caption = caption;
      window.parent = parent;
      window.mdiChild = parent == Mdi();
      made = windows_.Create(window, recorder_);
    });
    return made;
  }
  void Destroy(Window window) {
    desk().RunAs(stage_.ClientProcess(), [&] { windows_.Destroy(window); });
  }
  Window Mdi() { return stage_.Client()->Mdi(); }

  OwnWindows& windows_ = desk().platform().ownWindows;
  CommandRecorder recorder_{windows_};
};

// An IM that the manager has taken in is no child of the client's any more: it lies in a picture
// box of the manager's window, the one on top first.
TEST_F(StandIns, ManagedIMOnTopTakesTheCodeInItsSecondTextBox) {
  Window manager, entry;
  Look(0, [&] {
    manager = Make("AOL Child", "Corvel IM Manager", Mdi());
    const Window pictures = Make("Picture", "", Make("Picture", "", manager));
    for (const char* person : {">Instant Message From: Ann", ">Instant Message From: Bob"}) {
      const Window im = Make("AOL Child", person, pictures);
      Make("RICHCNTL", "", im);
      const Window box = Make("RICHCNTL", "", im);
      if (!entry) entry = box;
    }
  });
  Click(0, "frmTabs.cmdSend");
  Look(500, [&] {
    EXPECT_EQ(recorder_.commands, (std::vector<std::pair<Window, WParam>>{{entry, 20003}}));
    EXPECT_EQ(Lines(), 0U);
    Destroy(manager);
  });
  script_.Run();
}

// The clipboard is the user's again, whatever happens to it while the code is pasted from it.
TEST_F(StandIns, ClipboardIsGivenBackAsSoonAsAnotherProgramLetsGoOfIt) {
  Window mail;
  Look(0, [&] {
    mail = Make("AOL Child", "Re: sounds", Mdi());
    Make("RICHCNTL", "", mail);
    desk().clipboard().Put("AOLMAIL", "kept");
    recorder_.onCommand = [this] {
      EXPECT_EQ(desk().clipboard().Peek(""), "{S a}");
      desk().clipboard().HoldOpenByStranger(true);
    };
  });
  Click(0, "frmTabs.cmdSend");
  Look(300, [this] { desk().clipboard().HoldOpenByStranger(false); });
  Look(200, [&] {
    EXPECT_EQ(desk().clipboard().Peek("AOLMAIL"), "kept");
    EXPECT_EQ(desk().clipboard().Peek(""), std::nullopt);
    Destroy(mail);
  });
  script_.Run();
}

TEST_F(StandIns, WhatTheUserHasCopiedMeanwhileStaysOnTheClipboard) {
  Window mail;
  Look(0, [&] {
    mail = Make("AOL Child", "Re: sounds", Mdi());
    Make("RICHCNTL", "", mail);
    desk().clipboard().Put("AOLMAIL", "older");
    recorder_.onCommand = [this] { desk().clipboard().Put("", "newer"); };
  });
  Click(0, "frmTabs.cmdSend");
  Look(500, [&] {
    EXPECT_EQ(desk().clipboard().Peek(""), "newer");
    Destroy(mail);
  });
  script_.Run();
}

TEST(GivingBack, HappensOnEveryRoad) {
  int given = 0;
  AndGiveBack([] {}, [&] { ++given; });
  EXPECT_THROW(AndGiveBack([] { throw ProcessExit{}; }, [&] { ++given; }), ProcessExit);
  EXPECT_EQ(given, 2);
}

TEST_F(Sending, DescriptionWindowIsMovedByItsTextAndRemembersItsPlace) {
  SettingsStore store(desk().registry());
  store.WriteKey("Descriptions", "Show", "False");
  store.WriteKey("Descriptions", "ShowAs", "Window");
  store.WriteKey("Descriptions", "Top", "1500");
  store.WriteKey("Descriptions", "Left", "3000");
  store.WriteKey("Descriptions", "Width", "6000");
  store.WriteKey("Descriptions", "Height", "900");
  std::string why;
  Look(0, [&] { stage_.hand().RightClick(user_.FindControl("frmTabs.lstWav", why)->window); });
  Look(50, [&] { EXPECT_EQ(user_.Choose({"Show Wav Descriptions"}), ""); });
  Look(50, [&] {
    const auto text = user_.FindControl("frmDescrip.lblDes", why);
    ASSERT_TRUE(text) << why;
    EXPECT_EQ(text->state->place, (Rect{0, 0, 400, 60}));
    EXPECT_EQ(stage_.hand().Drag(text->window, 10, -20).refusal, "");
  });
  Look(50, [&] {
    EXPECT_EQ(user_.FindForm("frmDescrip")->state->place, (Rect{210, 80, 400, 60}));
    EXPECT_EQ(store.ReadKey("Descriptions", "Left"), "3150");
    EXPECT_EQ(store.ReadKey("Descriptions", "Top"), "1200");
  });
  script_.Run();
}

}  // namespace
}  // namespace corvel
