// What the header of a wave file says.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvel::desk {

struct WaveHeader {
  std::uint16_t format = 0;  // 1: PCM
  std::uint16_t channels = 0;
  std::uint32_t samplesPerSecond = 0;
  std::uint32_t bytesPerSecond = 0;
  std::uint16_t bitsPerSample = 0;
  std::uint64_t dataBytes = 0;  // what is really there, where the file ends early

  // 0 if the header gives no rate.
  std::int64_t Milliseconds() const {
    return bytesPerSecond == 0 ? 0 : static_cast<std::int64_t>(dataBytes * 1000 / bytesPerSecond);
  }
};

// Nothing if the bytes are no RIFF wave file with a format and a data chunk. Any bytes are taken.
std::optional<WaveHeader> ReadWaveHeader(std::string_view bytes);

}  // namespace corvel::desk
