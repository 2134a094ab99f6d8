// Wave files of any bytes.
#include "platform/desk/wave_header.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto header = corvel::desk::ReadWaveHeader(bytes);
  if (!header) return 0;
  if (header->dataBytes > size || header->dataBytes > header->toldBytes) std::abort();
  if (header->Milliseconds() < 0) std::abort();
  header->ToldMilliseconds();
  return 0;
}
