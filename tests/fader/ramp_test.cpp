// The arithmetic of a colour channel: the very digits of double precision, made of integers.
#include "tests/fader/ramp_digest.h"
#include "tests/fader/reference_fade.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace corvel {
namespace {

// The first place where the ramp, taken in blocks of `block`, isn't what double precision gives; 0
// if there is none.
int FirstDifference(int from, int to, int length, int block) {
  ChannelRamp ramp(static_cast<std::uint8_t>(from), static_cast<std::uint8_t>(to),
                   static_cast<std::uint32_t>(length));
  std::vector<std::uint8_t> values(static_cast<std::size_t>(length));
  for (int at = 0; at < length; at += block)
    TakeBlock(ramp,
              std::span(values).subspan(static_cast<std::size_t>(at),
                                        static_cast<std::size_t>(std::min(block, length - at))));
  for (int i = 1; i <= length; ++i)
    if (values[static_cast<std::size_t>(i - 1)] != ReferenceChannel(from, to, length, i)) return i;
  return 0;
}

TEST(Ramp, IsDoublePrecisionForEveryDifferenceOverShortLengths) {
  for (int length = 1; length <= 120; ++length)
    for (int difference = -255; difference <= 255; ++difference) {
      const int from = DigestStart(difference, length);
      ASSERT_EQ(FirstDifference(from, from + difference, length, length), 0)
          << from << " to " << from + difference << " over " << length;
    }
}

TEST(Ramp, IsDoublePrecisionOverLongLengthsInBlocks) {
  const unsigned seed = std::random_device{}();
  std::mt19937 random(seed);
  const auto upTo = [&](unsigned most) { return static_cast<int>(random() % (most + 1)); };
  for (int round = 0; round < 500; ++round) {
    // Half of the lengths have many small factors, and so many ties.
    const int length = round % 2 ? 1 + upTo(32767) : 480 * (1 + upTo(67));
    const int from = upTo(255), to = upTo(255), block = 1 + upTo(400);
    ASSERT_EQ(FirstDifference(from, to, length, block), 0)
        << from << " to " << to << " over " << length << " in blocks of " << block << ", seed "
        << seed;
  }
}

// Ties that rounding on the way has moved off the middle, so that they don't go to the even side.
TEST(Ramp, KeepsTheTiesThatDoublePrecisionMisses) {
  int missed = 0;
  for (int length = 2; length <= 90; length += 2)
    for (int to = 1; to <= 255; ++to)
      for (int i = 1; i < length; ++i) {
        if (2 * to * i % length != 0 || 2 * to * i / length % 2 == 0) continue;
        const int below = to * i / length, even = below + below % 2;
        if (ReferenceChannel(0, to, length, i) == even) continue;
        ++missed;
        ASSERT_EQ(FirstDifference(0, to, length, 128), 0) << to << " over " << length;
      }
  EXPECT_GT(missed, 10) << "no such tie was met, so nothing was tested";
}

// x87_check.sh compares the same number with the one of a 32-bit build.
TEST(Ramp, HasTheDigestOfEveryOtherMachine) { EXPECT_EQ(RampDigest(), 0xe49a700df8e11a33u); }

}  // namespace
}  // namespace corvel
