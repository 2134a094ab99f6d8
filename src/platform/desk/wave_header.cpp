// The chunks of a RIFF file: four letters, the length low byte first, the bytes, and one more byte
// after an odd length.
#include "platform/desk/wave_header.h"

#include <algorithm>

namespace corvel::desk {
namespace {

constexpr std::size_t kRiffHead = 12, kChunkHead = 8, kFormatBytes = 16;

// The caller has made sure that the bytes are there.
std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;)
    number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

void ReadFormat(std::string_view chunk, WaveHeader& header) {
  header.format = static_cast<std::uint16_t>(Number(chunk, 0, 2));
  header.channels = static_cast<std::uint16_t>(Number(chunk, 2, 2));
  header.samplesPerSecond = Number(chunk, 4, 4);
  header.bytesPerSecond = Number(chunk, 8, 4);
  header.bitsPerSample = static_cast<std::uint16_t>(Number(chunk, 14, 2));
}

}  // namespace

std::optional<WaveHeader> ReadWaveHeader(std::string_view bytes) {
  if (bytes.size() < kRiffHead || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE")
    return std::nullopt;
  WaveHeader header;
  bool hasFormat = false;
  bytes.remove_prefix(kRiffHead);
  while (bytes.size() >= kChunkHead) {
    const std::string_view kind = bytes.substr(0, 4);
    const std::size_t length = Number(bytes, 4, 4);
    bytes.remove_prefix(kChunkHead);
    const std::string_view chunk = bytes.substr(0, length);
    if (kind == "fmt " && chunk.size() >= kFormatBytes) {
      ReadFormat(chunk, header);
      hasFormat = true;
    } else if (kind == "data" && hasFormat) {
      header.dataBytes = chunk.size();
      return header;
    }
    bytes.remove_prefix(std::min(bytes.size(), chunk.size() + (length & 1)));
  }
  return std::nullopt;
}

}  // namespace corvel::desk
