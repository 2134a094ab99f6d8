// What a scenario can't see or can't time: the printer, and what happens in the middle of a send.
#include "base/cp1252.h"
#include "core/settings_store.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tools/desk/desk_stage.h"
#include "tools/scenario_player.h"
#include "tools/user.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvel {
namespace {

using Texts = std::vector<std::string>;

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

// The user's deeds by the clock, also while the program waits.
class Script : public desk::Agent {
 public:
  explicit Script(desk::Desk& desk) : desk_(desk) {}
  // So many milliseconds behind the deed before it.
  void Then(std::int64_t ms, std::function<void()> deed) {
    end_ += ms;
    deeds_.emplace_back(end_, std::move(deed));
  }
  void Run() {
    while (desk_.NowMs() < end_ + 2000) desk_.Round(end_ + 2000);
  }
  bool Act() override {
    if (deeds_.empty() || deeds_.front().first > desk_.NowMs()) return false;
    const auto deed = std::move(deeds_.front().second);
    deeds_.pop_front();
    deed();
    return true;
  }
  std::optional<std::int64_t> NextActAt() override {
    return deeds_.empty() ? std::nullopt : std::optional(deeds_.front().first);
  }

 private:
  desk::Desk& desk_;
  std::int64_t end_ = 0;
  std::deque<std::pair<std::int64_t, std::function<void()>>> deeds_;
};

// The program beside a client in a room, its fader on, and the wav list open with a wav that has a
// description.
class Sending : public testing::Test {
 protected:
  Sending() {
    SettingsStore store(desk().registry());
    store.WriteKey("Categories", "Mine", "C:\\Wavs");
    store.WriteKey("Wav List", "Default Category", "Mine");
    store.WriteKey("Descriptions", "SendToRoom", "True");
    store.WriteKey("Fader", "On", "True");
    stage_.PutWave("C:\\Wavs\\a.wav", 1);
    desk().files().Put("C:\\Corvel\\data\\desc1.dat", "[Data]\r\na=first\r\n");
    desk().SetAgent(&script_);
    stage_.PutClient();
    script_.Then(500, [this] { stage_.StartProgram(""); });
    Client(5000, {"room", "Lobby", "Ann"});
    Click(1000, "frmCV7.cmdWavs");
    script_.Then(100, [this] { EXPECT_EQ(user_.Choose({"Wav List"}), ""); });
    script_.Then(500, [this] { hooksBefore_ = Hooks(); });
  }
  ~Sending() override { desk().SetAgent(nullptr); }

  desk::Desk& desk() { return stage_.desk(); }

  void Client(std::int64_t ms, const Texts& words) {
    script_.Then(ms, [this, words] {
      desk().RunAs(stage_.ClientProcess(), [&] { stage_.Client()->Do(words); });
    });
  }
  void Click(std::int64_t ms, const std::string& name) {
    script_.Then(ms, [this, name] {
      std::string why;
      const auto control = user_.FindControl(name, why);
      ASSERT_TRUE(control) << why;
      EXPECT_EQ(stage_.hand().Click(control->window).refusal, "") << name;
    });
  }
  void Look(std::int64_t ms, std::function<void()> look) { script_.Then(ms, std::move(look)); }

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

  tools::DeskStage stage_{1};
  tools::User user_{stage_};
  Script script_{desk()};
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
    if (message.id == wm::kCommand) commands.emplace_back(window, message.wParam);
    return windows_.Default(window, message);
  }
  std::vector<std::pair<Window, WParam>> commands;

 private:
  OwnWindows& windows_;
};

// An IM that the manager has taken in is no child of the client's any more: it lies in a picture
// box of the manager's window, the one on top first.
TEST_F(Sending, ManagedIMOnTopTakesTheCodeInItsSecondTextBox) {
  OwnWindows& windows = desk().platform().ownWindows;
  CommandRecorder recorder(windows);
  Window manager, entry;
  Look(0, [&] {
    desk().RunAs(stage_.ClientProcess(), [&] {
      const auto make = [&](const char* className, const char* caption, Window parent) {
        NewWindow window;
        window.className = className;
        window.caption = caption;
        window.parent = parent;
        window.mdiChild = parent == stage_.Client()->Mdi();
        return windows.Create(window, recorder);
      };
      manager = make("AOL Child", "Corvel IM Manager", stage_.Client()->Mdi());
      const Window pictures = make("Picture", "", make("Picture", "", manager));
      for (const char* person : {">Instant Message From: Ann", ">Instant Message From: Bob"}) {
        const Window im = make("AOL Child", person, pictures);
        make("RICHCNTL", "", im);
        const Window box = make("RICHCNTL", "", im);
        if (!entry) entry = box;
      }
    });
  });
  Click(0, "frmTabs.cmdSend");
  Look(500, [&] {
    EXPECT_EQ(recorder.commands, (std::vector<std::pair<Window, WParam>>{{entry, 20003}}));
    EXPECT_EQ(Lines(), 0U);
    desk().RunAs(stage_.ClientProcess(), [&] { windows.Destroy(manager); });
  });
  script_.Run();
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
