// Any bytes as the client's account index.
#include "aolbridge/aolclient.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto names = corvel::NamesInAccountIndex({reinterpret_cast<const char*>(data), size});
  if (names.size() > 7) std::abort();
  return 0;
}
