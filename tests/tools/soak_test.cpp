// The soak over a short stretch, and that a seed gives the same run again.
#include "tools/desk/soak.h"

#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

TEST(Soak, HoldsForAShortWhile) {
  for (const std::uint64_t seed : {1u, 2u, 3u}) {
    Soak soak(seed);
    const std::string failure = soak.Run(0.25);
    for (const std::string& line :
         failure.empty() ? std::vector<std::string>() : soak.LastEffects())
      std::printf("%s\n", line.c_str());
    EXPECT_EQ(failure, "") << "again: corvel-desk soak --seed " << seed;
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

}  // namespace
}  // namespace corvel::tools
