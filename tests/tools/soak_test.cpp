// The soak over a short stretch, that a seed gives the same run again, and that its user finds
// whatever stands on the screen by himself.
#include "tools/desk/soak.h"

#include "tests/tools/sample_program.h"

#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

void ExpectHeld(const std::string& failure, const Soak& soak, std::uint64_t seed) {
  EXPECT_EQ(failure, "") << "again: corvel-desk soak --seed " << seed;
  if (failure.empty()) return;
  for (const std::string& line : soak.LastEffects()) std::printf("%s\n", line.c_str());
}

TEST(Soak, HoldsForAShortWhile) {
  for (const std::uint64_t seed : {1u, 2u, 3u}) {
    Soak soak(seed);
    ExpectHeld(soak.Run(0.25), soak, seed);
    EXPECT_GT(soak.Lives(), 0);
    EXPECT_GT(soak.Deeds(), 20);
  }
}

TEST(Soak, IsTheSameForTheSameSeed) {
  Soak first(7), second(7), other(8);
  first.Run(0.05);
  second.Run(0.05);
  other.Run(0.05);
  EXPECT_EQ(first.LastEffects(), second.LastEffects());
  EXPECT_NE(first.LastEffects(), other.LastEffects());
}

// Nobody has told him of this window.
TEST(Soak, UsesANewWindowWithAllThatIsInIt) {
  constexpr std::uint64_t kSeed = 11;
  Soak soak(kSeed);
  SampleProgram sample(soak.stage());
  sample.Begin();
  ExpectHeld(soak.Run(4), soak, kSeed);
  for (const char* event : {"lblName click",
                            "cmdOk click",
                            "cmdOk key",
                            "txtName change",
                            "txtName key",
                            "chkOn click",
                            "optOne click",
                            "optTwo click",
                            "lstRows click",
                            "lstRows double-click",
                            "cboRows click",
                            "lvwRows click",
                            "lvwRows double-click",
                            "lvwRows right click",
                            "tabRows click",
                            "picName click",
                            "row &First\tCtrl+F",
                            "row Deep",
                            "row Of the list",
                            "close"})
    EXPECT_GT(sample.Times(event), 0) << event;
  for (const char* event : {"cmdGreyed click", "lblHidden click", "row Greyed", "row Deep, greyed"})
    EXPECT_EQ(sample.Times(event), 0) << event;
  EXPECT_GT(soak.Uses().UsesOf("frmSample.cmdMenu > More > Deep"), 0);
}

// What has stood on the screen often enough has been used: nothing of the program is out of reach.
TEST(Soak, UsesAllThatStands) {
  constexpr std::uint64_t kSeed = 5;
  constexpr int kOften = 400;
  Soak soak(kSeed);
  ExpectHeld(soak.Run(4), soak, kSeed);
  int used = 0;
  for (const SoakUses::Row& row : soak.Uses().Table()) {
    EXPECT_TRUE(row.used > 0 || row.seen < kOften) << row.thing << ", seen " << row.seen;
    used += row.used > 0;
  }
  EXPECT_GT(used, 100);
}

// A word that is new to the language is played as soon as it stands in its table.
TEST(Soak, CanSayEveryWordOfTheClientAndTheDrive) {
  Dice dice(1);
  SoakWords made(dice);
  for (const auto table : {ClientCommands(), SceneCommands()})
    for (const Command& command : table) {
      if (command.when == When::kScene || WeightOf(command) == 0) continue;
      if (command.word == std::string_view("start") || command.word == std::string_view("wait"))
        continue;
      int said = 0;
      for (int i = 0; i < 50; ++i) {
        const auto line = made.LineOf(command);
        said += line && CheckCommand(*line).empty();
      }
      EXPECT_GT(said, 25) << command.word << " " << command.form
                          << ": tell tools/desk/soak_words.cpp what stands for its words";
    }
}

}  // namespace
}  // namespace corvel::tools
