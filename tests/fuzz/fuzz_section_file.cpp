// Any bytes as a section file: what is taken can be written, and comes back as it was.
#include "core/section_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

std::string Written(const std::vector<corvel::SectionLine>& lines) {
  std::string bytes;
  for (const auto& line : lines)
    if (line.fault == corvel::LineFault::kNone)
      bytes += corvel::FormatSectionLine(line.name, line.value);
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::string written = Written(corvel::ParseSectionFile(bytes));
  const auto again = corvel::ParseSectionFile(written);
  for (const auto& line : again)
    if (line.fault != corvel::LineFault::kNone) std::abort();
  if (Written(again) != written) std::abort();
  return 0;
}
