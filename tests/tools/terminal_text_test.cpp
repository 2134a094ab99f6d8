// Faded lines on a terminal: the client's tags become colours, everything else stays text.
#include "tools/terminal_text.h"

#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

TEST(TerminalText, ShowsTagsAsColoursOrLeavesThemOut) {
  struct Case {
    const char* line;
    const char* plain;
    const char* colored;
  };
  const Case kCases[] = {
      {"hi", "hi", "hi\x1b[0m"},
      {"<B>a</B>", "a", "\x1b[1ma\x1b[22m\x1b[0m"},
      {"<FONT COLOR=#D4002A>H<sup>i</sup>", "Hi", "\x1b[38;2;212;0;42mHi\x1b[0m"},
      {"<FONT COLOR=#D4002>H", "<FONT COLOR=#D4002>H", "<FONT COLOR=#D4002>H\x1b[0m"},
      {"<FONT COLOR=#D4002G>H", "<FONT COLOR=#D4002G>H", "<FONT COLOR=#D4002G>H\x1b[0m"},
      {"1 < 2 > 1 <", "1 < 2 > 1 <", "1 < 2 > 1 <\x1b[0m"},
      {"\x95", "•", "•\x1b[0m"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(OnTerminal(c.line, false), c.plain);
    EXPECT_EQ(OnTerminal(c.line, true), c.colored);
  }
}

}  // namespace
}  // namespace corvel::tools
