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
  std::uint32_t toldBytes = 0;  // of data, as the header has it
  std::uint64_t dataBytes = 0;  // what is really there, where the file ends early

  // What can be played. 0 if the header gives no rate.
  std::int64_t Milliseconds() const {
    return bytesPerSecond == 0 ? 0 : static_cast<std::int64_t>(dataBytes * 1000 / bytesPerSecond);
  }
  // What the system tells of it: by the header alone, rounded, in 32 bits with a sign; -1 if there
  // is no such number.
  std::int32_t ToldMilliseconds() const;
};

// Nothing if the bytes are no RIFF wave file with a whole format chunk and, behind it, a data chunk
// that begins inside of what the file calls its length. A format other than PCM must have the bytes
// that it says it has. Any bytes are taken.
std::optional<WaveHeader> ReadWaveHeader(std::string_view bytes);

}  // namespace corvel::desk
