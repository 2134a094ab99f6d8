// One number for a great many ramps, so that builds for different machines can be compared.
#pragma once

#include "fader/channel_ramp.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace corvel {

// A block of values of a ramp.
inline void TakeBlock(ChannelRamp& ramp, std::span<std::uint8_t> values) {
  auto course = ramp.BeginBlock();
  for (std::uint8_t& value : values) value = course.Next();
  ramp.EndBlock(course, values.size(),
                [&](std::size_t i, std::uint8_t value) { values[i] = value; });
}

inline constexpr int kDigestLengths = 300;

// A start colour from which a ramp of `difference` stays within 0 to 255; another for each length.
inline int DigestStart(int difference, int length) {
  const int room = 255 - (difference < 0 ? -difference : difference);
  return (difference < 0 ? -difference : 0) + (length * 7 + difference * difference) % (room + 1);
}

// Every difference of two channels over every length up to kDigestLengths, as a 64-bit FNV-1a.
inline std::uint64_t RampDigest() {
  std::uint64_t digest = 14695981039346656037u;
  std::array<std::uint8_t, kDigestLengths> values;
  for (int length = 1; length <= kDigestLengths; ++length)
    for (int difference = -255; difference <= 255; ++difference) {
      const int from = DigestStart(difference, length);
      ChannelRamp ramp(static_cast<std::uint8_t>(from),
                       static_cast<std::uint8_t>(from + difference),
                       static_cast<std::uint32_t>(length));
      const auto count = static_cast<std::size_t>(length);
      TakeBlock(ramp, {values.data(), count});
      for (std::size_t i = 0; i < count; ++i) digest = (digest ^ values[i]) * 1099511628211u;
    }
  return digest;
}

}  // namespace corvel
