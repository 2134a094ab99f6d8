// Verdicts of scenarios: what is found before the run, what fails in it and with which words.
#include "tools/scenario_player.h"

#include "tools/desk/desk_stage.h"

#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

ScenarioVerdict Play(const std::string& text, const ScenarioOptions& options = {}) {
  DeskStage stage(1);
  return PlayScenario(stage, "t.scn", text, {}, options);
}

std::string FirstMessage(const ScenarioVerdict& verdict) {
  return verdict.messages.empty() ? "" : verdict.messages.front();
}

TEST(Scenario, IsRefusedBeforeTheRunWhereItCantBeRead) {
  const std::pair<const char*, const char*> kFiles[] = {
      {"dance", "t.scn:1: no such command: dance"},
      {"\nwait", "t.scn:2: words are missing; it reads: wait SECONDS"},
      {"wait 1 2", "t.scn:1: too many words; it reads: wait SECONDS"},
      {"wait soon", "t.scn:1: a number of seconds is wanted"},
      {"wait -1", "t.scn:1: a number of seconds is wanted"},
      {"start\nclock \"11-21-1999 20:15:00\"", "t.scn:2: clock can stand before the start only"},
      {"clock \"02-30-1999 20:15:00\"", "t.scn:1: the time reads"},
      {"client 4.0 fr", "t.scn:1: the locale is"},
      {"expect happiness", "t.scn:1: no such expectation: happiness"},
      {"expect line", "t.scn:1: words are missing; it reads: expect line"},
      {"expect im Ann in-manager", "t.scn:1: `expect im ... in-manager` is not built yet"},
      {"click frmMsg", "t.scn:1: FORM.CONTROL is wanted"},
      {"click frmMsg.Command1(x)", "t.scn:1: FORM.CONTROL is wanted"},
      {"menu mnuNone \"Row\"", "t.scn:1: the menus are"},
      {"key return", "t.scn:1: the keys are"},
      {"type \"half", "t.scn:1: the quote is not closed"},
      {"only mars \"It is far.\"", "t.scn:1: it is desk or windows"},
      {"start\nonly desk \"Late.\"", "t.scn:2: only can stand before the start only"},
      {"random 1", "t.scn:1: each number lies in [0, 1)"},
      {"begin begin client-close", "t.scn:1: only a command of the user"},
      {"begin wait 1", "t.scn:1: only a command of the user"},
      {"begin answer OK", "t.scn:1: only a command of the user"},
      {"begin after 1 client-close", "t.scn:1: only a command of the user"},
      {"begin dance", "t.scn:1: no such command: dance"},
      {"begin key return", "t.scn:1: the keys are"},
      {"begin start\nclock \"11-21-1999 20:15:00\"", "t.scn:2: clock can stand before"},
      {"after soon client-close", "t.scn:1: a number of seconds is wanted"},
      {"after 1 click frmTabs.cmdSend", "t.scn:1: only a command of the client can come later"},
      {"after 1 after 1 client-close", "t.scn:1: only a command of the client can come later"},
      {"after 1 begin client-close", "t.scn:1: only a command of the client can come later"},
      {"after 1 say Ann", "t.scn:1: words are missing; it reads: say PERSON"},
      {"key ctrl+1", "t.scn:1: the keys are"},
      {"expect window Lobby open", "t.scn:1: it is shown, hidden, closed or has"},
      {"expect place Lobby 1 2 3 x", "t.scn:1: whole numbers of pixels are wanted"},
      {"without-file nothing.dll", "t.scn:1: no runtime file is called so"},
  };
  for (const auto& [text, message] : kFiles) {
    const ScenarioVerdict verdict = Play(text);
    EXPECT_EQ(verdict.exitCode, kUnreadable) << text;
    EXPECT_EQ(FirstMessage(verdict).rfind(message, 0), 0u) << text << ": " << FirstMessage(verdict);
  }
}

TEST(Scenario, TellsEveryBadLineAtOnce) {
  const ScenarioVerdict verdict = Play("dance\nwait 1\nwait\ntype \"x");
  ASSERT_EQ(verdict.messages.size(), 3u);
  EXPECT_EQ(verdict.messages[1].rfind("t.scn:3:", 0), 0u);
  EXPECT_EQ(verdict.messages[2].rfind("t.scn:4:", 0), 0u);
}

TEST(Scenario, HoldsWhereEverythingIsAsExpected) {
  const char* const kFiles[] = {
      "",
      "# nothing\n",
      "expect client-running\nexpect client-enabled\nexpect ended",
      "client 4.0 us not-running\nexpect client-ended",
      "file C:\\Corvel\\a.txt \"one\\r\\n\"\nexpect file C:\\CORVEL\\A.TXT \"one\\r\\n\"\n"
      "expect file-has C:\\Corvel\\a.txt one\nexpect no-file C:\\Corvel\\b.txt",
      "setting \"Wav List\" Top 100\nsetting Fader One \"\"\n"
      "expect setting \"Wav List\" top 100\nexpect setting Fader One \"\"\n"
      "expect no-setting \"Wav List\" Left",
      "room Lobby Ann\nwait 1\nsay Ann \"hi all\"\nexpect line-seen Ann \"hi all\"\n"
      "type hello\nexpect input hello\nkey enter\nexpect line hello\nexpect no-line",
      // What sets the scene may stand behind what needs the client.
      "room Lobby\nwait 1\nnames Fred\nclient 5.0 uk\nstart\nexpect running",
      "start\nwait 1\nexpect running\nclient-close\nwait 5\nexpect ended\nexpect client-ended",
      "start\nwait 1\nexpect shown frmCV7\nclient-crash\nwait 3\nexpect ended",
  };
  for (const char* text : kFiles) {
    const ScenarioVerdict verdict = Play(text);
    EXPECT_EQ(verdict.exitCode, kHeld) << text << "\n" << FirstMessage(verdict);
  }
}

TEST(Scenario, FailsWithWhatItExpectedAndWhatItGot) {
  const std::pair<const char*, const char*> kFiles[] = {
      {"expect running", "t.scn:1: expected running, got it has ended"},
      {"\nexpect line \"a \\\"b\"", "t.scn:2: expected line \"a \\\"b\", got no line"},
      {"room Lobby\nwait 1\ntype hi\nkey enter\nexpect line hello",
       "t.scn:5: expected line \"hello\", got line \"hi\""},
      {"room Lobby\nwait 1\ntype hi\nkey enter\nexpect no-line",
       "t.scn:5: expected no-line, got line \"hi\""},
      {"expect file C:\\a.txt \"\"",
       "t.scn:1: expected file \"C:\\\\a.txt\" \"\", got no such file"},
      {"expect shown frmTabs", "t.scn:1: expected shown \"frmTabs\", got it is not loaded"},
      {"leave-room", "t.scn:1: expected to do leave-room, got no room is open"},
      {"click frmTabs.cmdSend",
       "t.scn:1: expected to click frmTabs.cmdSend, got no window frmTabs "
       "is loaded"},
      {"start\nwait 1\nmenu mnuWavs \"No Such Row\"",
       "t.scn:3: expected to choose the row \"No Such Row\", got the menu has no row \"No Such "
       "Row\""},
      {"popup Anything",
       "t.scn:1: expected to choose the row \"Anything\", got no pop-up menu is open"},
  };
  for (const auto& [text, message] : kFiles) {
    const ScenarioVerdict verdict = Play(text);
    EXPECT_EQ(verdict.exitCode, kFailed) << text;
    EXPECT_EQ(FirstMessage(verdict), message) << text;
  }
}

TEST(Scenario, IsSkippedIfItIsForAnotherHome) {
  const ScenarioVerdict elsewhere = Play("only windows \"It needs a taskbar.\"\nexpect running");
  EXPECT_EQ(elsewhere.exitCode, kHeld);
  EXPECT_EQ(elsewhere.skipped, "t.scn: only on windows: It needs a taskbar.");
  const ScenarioVerdict here = Play("only desk \"It breaks the drive.\"\nexpect running");
  EXPECT_EQ(here.exitCode, kFailed);
  EXPECT_EQ(here.skipped, "");
}

// On a home whose time goes on by itself, what is expected may still be on its way.
class PatientStage : public DeskStage {
 public:
  PatientStage() : DeskStage(1) {}
  std::int64_t PatienceMs() const override { return 5000; }
};

TEST(Scenario, TriesAnExpectationAgainForAsLongAsItsHomeIsPatient) {
  PatientStage kept, broken;
  const char* const coming =
      "start\nroom Lobby Ann\nexpect hooked 5\ntype hi\nkey enter\nexpect line hi\n"
      "client-close\nexpect ended\nexpect client-ended";
  EXPECT_EQ(FirstMessage(PlayScenario(kept, "t.scn", coming, {}, {})), "");
  const auto verdict = PlayScenario(broken, "t.scn", "wait 1\nexpect line hi\nwait 9", {}, {});
  EXPECT_EQ(FirstMessage(verdict), "t.scn:2: expected line \"hi\", got no line");
  EXPECT_GE(broken.NowMs(), 6000);
  EXPECT_LT(broken.NowMs(), 7000);
}

constexpr const char* kNoWavSelected =
    "menu mnuWavs \"Wav List\"\nwait 1\nclick frmTabs.cmdSend\nwait 1\n";
constexpr const char* kNoWavText =
    "~B~CRNo wav selected!~B~CN~N ~NPlease choose a wav in the wav list box before attempting to "
    "use thie feature!";

TEST(Scenario, FailsForADialogThatNobodyNamed) {
  const std::string text = std::string("start\nwait 1\n") + kNoWavSelected;
  const ScenarioVerdict verdict = Play(text);
  EXPECT_EQ(verdict.exitCode, kFailed);
  EXPECT_EQ(FirstMessage(verdict),
            "t.scn:5: expected no dialog, got \"" + std::string(kNoWavText) + "\"");
}

TEST(Scenario, HoldsForADialogThatIsNamedOrAnswered) {
  const std::string begin = std::string("start\nwait 1\n");
  EXPECT_EQ(Play(begin + kNoWavSelected + "expect message \"" + kNoWavText + "\"").exitCode, kHeld);
  EXPECT_EQ(Play(begin + kNoWavSelected + "expect message-like \"No wav\"").exitCode, kHeld);
  EXPECT_EQ(Play(begin + "answer OK\n" + kNoWavSelected).exitCode, kHeld);
}

// A client whose About window takes ten minutes holds up what waits for it.
TEST(Scenario, IsStuckAfterTenMinutesInOneCommand) {
  const ScenarioVerdict verdict =
      Play("start\nwait 1\nclient-delay 600\nmenu mnuMenu \"Kill the Hourglass\"");
  EXPECT_EQ(verdict.exitCode, kFailed);
  EXPECT_TRUE(FirstMessage(verdict).starts_with("t.scn:4: stuck in the wait "));
}

TEST(Scenario, GivesTheSameTraceEachTime) {
  const auto traceOf = [] {
    std::vector<std::string> kinds;
    ScenarioOptions options;
    options.onEffect = [&](const desk::JournalEntry& entry) {
      kinds.push_back(std::to_string(entry.at) + entry.kind);
    };
    Play("start\nroom Lobby Ann\nwait 2\ntype hi\nkey enter\nclient-close\nwait 9", options);
    return kinds;
  };
  const auto first = traceOf();
  EXPECT_FALSE(first.empty());
  EXPECT_EQ(first, traceOf());
}

}  // namespace
}  // namespace corvel::tools
