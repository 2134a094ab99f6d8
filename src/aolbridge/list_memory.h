// The rows of the client's lists: each row's data value is a pointer into the client's memory. At
// that pointer + 24 lies a second pointer, and at the second + 6 the screen name, NUL-terminated,
// at most 16 bytes. The list can change between two reads: whatever can't be read is "".
#pragma once

#include "base/text.h"
#include "platform/processes.h"

#include <string>

namespace corvel {

inline std::string ReadRowName(ProcessMemory& memory, std::uint32_t data) {
  constexpr std::uint32_t kPointerAt = 24, kNameAt = 6;
  constexpr std::size_t kNameBytes = 16;
  const auto pointer = memory.Read(data + kPointerAt, 4);
  if (!pointer) return {};
  std::uint32_t record = 0;
  for (std::size_t i = 4; i-- > 0;)
    record = record << 8 | static_cast<unsigned char>((*pointer)[i]);
  const auto name = memory.Read(record + kNameAt, kNameBytes);
  return name ? Trim(CutAtNul(*name)) : std::string();
}

}  // namespace corvel
