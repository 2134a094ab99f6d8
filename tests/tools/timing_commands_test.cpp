// Commands that are only begun, and those that come later: when they are played, what is said of
// one that goes wrong, and what the end of a scenario makes of them.
#include "tools/desk/desk_stage.h"
#include "tools/scenario_player.h"

#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

// Kinds and times of the effects, "line 1250 line 2000"; and the first message.
struct Played {
  std::string effects, message;
  std::int64_t endedAt = 0;
};

Played Play(const std::string& text, const std::string& kind = "line") {
  Played played;
  DeskStage stage(1);
  ScenarioOptions options;
  options.onEffect = [&](const desk::JournalEntry& entry) {
    if (entry.kind == kind) played.effects += std::to_string(entry.at) + " ";
  };
  const ScenarioVerdict verdict = PlayScenario(stage, "t.scn", text, {}, options);
  if (!verdict.messages.empty()) played.message = verdict.messages.front();
  played.endedAt = stage.NowMs();
  return played;
}

const std::string kInRoom = "room Lobby\nwait 1\ntype hi\n";  // the last is said at 1250

TEST(After, ComesAtItsTimeAndHoldsNothingUp) {
  EXPECT_EQ(Play(kInRoom + "after 0.25 key enter\nexpect no-line\nwait 1\nexpect line hi").effects,
            "1500 ");
  // Those of one time in the order in which they were said.
  const Played two = Play(kInRoom +
                          "after 0.5 key enter\nafter 0.2 type a\nafter 0.2 type b\nwait 1\n"
                          "expect line hiab");
  EXPECT_EQ(two.message, "");
  EXPECT_EQ(two.effects, "1750 ");
}

TEST(After, FindsTheProgramInWhateverWaitItIs) {
  const Played played =
      Play("after 0.5 client-crash\nstart\nwait 3\nexpect ended\nexpect client-ended");
  EXPECT_EQ(played.message, "");
}

TEST(After, IsWaitedForAtTheEnd) {
  const Played played = Play("after 2.5 leave-room\nwait 1");
  EXPECT_EQ(played.message, "t.scn:1: expected to do leave-room, got no room is open");
  EXPECT_EQ(Play(kInRoom + "after 3 key enter").effects, "4250 ");
}

TEST(Begin, LetsTheNextCommandComeAtOnce) {
  EXPECT_EQ(Play("start\nwait 1").effects, "");
  const Played one = Play("begin start\nexpect hidden frmCV7\nwait 3\nexpect shown frmCV7");
  EXPECT_EQ(one.message, "");
  // All that belongs to the command is done first: the row of the menu, the last character.
  EXPECT_EQ(
      Play("start\nwait 1\nbegin menu mnuWavs \"Wav List\"\nwait 1\nexpect shown frmTabs").message,
      "");
}

TEST(Begin, TellsWhatWentWrongOfItsOwnLine) {
  EXPECT_EQ(Play("begin leave-room\nwait 1\nexpect ended").message,
            "t.scn:1: expected to do leave-room, got no room is open");
  EXPECT_EQ(Play("begin leave-room").message,
            "t.scn:1: expected to do leave-room, got no room is open");
  EXPECT_EQ(Play("start\nbegin click frmTabs.cmdSend\nwait 1").message,
            "t.scn:2: expected to click frmTabs.cmdSend, got no window frmTabs is loaded");
}

TEST(Begin, IsWaitedForAtTheEnd) {
  // The description goes out a while behind its line.
  const Played played = Play(
      "wav C:\\AOL\\boing.wav\nfile C:\\Corvel\\data\\desc1.dat "
      "\"[Data]\\r\\nboing=A spring\\r\\n\"\n"
      "setting Descriptions SendToRoom True\nstart\nroom Lobby Ann\nwait 1\n"
      "menu mnuWavs \"Wav List\"\nselect frmTabs.lstWav boing\nbegin click frmTabs.cmdSend");
  EXPECT_EQ(played.message, "");
  EXPECT_EQ(played.effects, "2452 2752 ");
}

TEST(Begin, DoesNotLetGoOfWhatWasStartedBefore) {
  // The first click waits in a box for its user; the second ends with its own line.
  const Played played = Play(
      "start\nwait 1\nmenu mnuWavs \"Wav List\"\nanswer nobody\nclick frmTabs.cmdSend\n"
      "begin click frmMsg.Command1(0)\nexpect message-like \"No wav\"\nwait 0.1\n"
      "expect hidden frmMsg");
  EXPECT_EQ(played.message, "");
}

}  // namespace
}  // namespace corvel::tools
