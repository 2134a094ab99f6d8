// The chunks of a RIFF file: four letters, the length low byte first, the bytes, and one more byte
// after an odd length.
#include "platform/desk/wave_header.h"

#include <algorithm>
#include <limits>

namespace corvel::desk {
namespace {

constexpr std::size_t kRiffHead = 12, kChunkHead = 8;
constexpr std::size_t kPcmBytes = 16, kOtherBytes = 18;  // of a format, the others' own not counted
constexpr std::uint16_t kPcm = 1;

// The caller has made sure that the bytes are there.
std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;)
    number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

bool ReadFormat(std::string_view chunk, WaveHeader& header) {
  if (chunk.size() < kPcmBytes) return false;
  header.format = static_cast<std::uint16_t>(Number(chunk, 0, 2));
  header.channels = static_cast<std::uint16_t>(Number(chunk, 2, 2));
  header.samplesPerSecond = Number(chunk, 4, 4);
  header.bytesPerSecond = Number(chunk, 8, 4);
  header.bitsPerSample = static_cast<std::uint16_t>(Number(chunk, 14, 2));
  return header.format == kPcm ||
         (chunk.size() >= kOtherBytes && chunk.size() >= kOtherBytes + Number(chunk, kPcmBytes, 2));
}

}  // namespace

std::int32_t WaveHeader::ToldMilliseconds() const {
  std::int64_t length = std::int64_t{static_cast<std::int32_t>(toldBytes)} * 1000;
  std::int64_t rate = static_cast<std::int32_t>(bytesPerSecond);
  if (rate == 0) return -1;
  const bool negative = (length < 0) != (rate < 0);
  length = length < 0 ? -length : length;
  rate = rate < 0 ? -rate : rate;
  const std::int64_t rounded = (length + rate / 2) / rate;
  if (rounded > std::numeric_limits<std::int32_t>::max()) return -1;
  return static_cast<std::int32_t>(negative ? -rounded : rounded);
}

std::optional<WaveHeader> ReadWaveHeader(std::string_view bytes) {
  if (bytes.size() < kRiffHead || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE")
    return std::nullopt;
  const std::size_t whole = bytes.size(), end = kChunkHead + std::size_t{Number(bytes, 4, 4)};
  WaveHeader header;
  bool hasFormat = false;
  bytes.remove_prefix(kRiffHead);
  while (bytes.size() >= kChunkHead && whole - bytes.size() < end) {
    const std::string_view kind = bytes.substr(0, 4);
    const std::uint32_t length = Number(bytes, 4, 4);
    bytes.remove_prefix(kChunkHead);
    const std::string_view chunk = bytes.substr(0, length);
    if (kind == "fmt " && !hasFormat) {
      if (chunk.size() < length || !ReadFormat(chunk, header)) return std::nullopt;
      hasFormat = true;
    } else if (kind == "data" && hasFormat) {
      header.toldBytes = length;
      header.dataBytes = chunk.size();
      return header;
    }
    bytes.remove_prefix(std::min(bytes.size(), chunk.size() + (length & 1)));
  }
  return std::nullopt;
}

}  // namespace corvel::desk
