// Any bytes as favwavs.dat: read, written anew and read again they are the same list.
#include "wavlib/fav_wavs.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto wavs = corvel::ParseFavWavs(bytes);
  std::string written;
  for (const auto& wav : wavs) written += corvel::FormatFavWav(wav) + "\r\n";
  const auto again = corvel::ParseFavWavs(written);
  if (again.size() != wavs.size()) std::abort();
  for (std::size_t i = 0; i < wavs.size(); ++i)
    if (again[i].path != wavs[i].path) std::abort();
  if (!wavs.empty()) corvel::FindFavWav(bytes, wavs.front().name + ".wav");
  return 0;
}
