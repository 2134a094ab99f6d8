// Playing by hand: each line is answered, errors don't end the play.
#include "tools/desk/interactive.h"

#include <gtest/gtest.h>
#include <sstream>

namespace corvel::tools {
namespace {

struct Played {
  int exitCode;
  std::string out;
  bool Says(const std::string& text) const { return out.find(text) != std::string::npos; }
};

Played PlayLines(const std::string& lines) {
  std::istringstream in(lines);
  std::ostringstream out;
  const int exitCode = PlayByHand(in, out, false, 1);
  return {exitCode, out.str()};
}

TEST(ByHand, TellsEffectsAndVerdictsLineByLine) {
  const Played played = PlayLines(
      "room Lobby Ann\nwait 1\ntype hi\nkey enter\nexpect line hi\nexpect line more\nhelp\n");
  EXPECT_EQ(played.exitCode, 1);
  EXPECT_TRUE(played.Says(" line \"hi\"\n")) << played.out;
  EXPECT_TRUE(played.Says("holds")) << played.out;
  EXPECT_TRUE(played.Says("line 6: expected line \"more\", got no line")) << played.out;
  EXPECT_TRUE(played.Says("refuse-next-line")) << "the help lists the commands";
}

TEST(ByHand, GoesOnBehindALineThatItCantRead) {
  const Played played =
      PlayLines("dance\nwait\nclient-crash\nclient 5.0 us\nexpect client-ended\n");
  EXPECT_EQ(played.exitCode, 2);
  EXPECT_TRUE(played.Says("line 1: no such command: dance")) << played.out;
  EXPECT_TRUE(played.Says("line 4: expected client before the start")) << played.out;
  EXPECT_TRUE(played.Says("holds")) << played.out;
}

}  // namespace
}  // namespace corvel::tools
