// Any bytes as a list file: rows come out, and written again they are the same rows.
#include "core/list_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> texts;
  for (const corvel::ListRow& row : corvel::ParseListFile(bytes)) texts.push_back(row.text);
  std::size_t at = 0;
  for (const corvel::ListRow& row : corvel::ParseListFile(corvel::FormatListFile(texts)))
    if (at >= texts.size() || row.text != texts[at++] || row.number != 0) std::abort();
  if (at != texts.size()) std::abort();
  return 0;
}
