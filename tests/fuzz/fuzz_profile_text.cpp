// Profile files of any bytes: a value that was written is read back, and a deleted one is gone.
#include "platform/desk/profile_text.h"

#include <cstdint>
#include <cstdlib>

namespace {

using corvel::desk::ProfileValue;
using corvel::desk::WithProfileValue;

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  // Names of any bytes must do no harm; the input's first bytes serve.
  const std::string_view name = text.substr(0, 5);
  ProfileValue(WithProfileValue(text, name, name, name), name, name);

  const std::string written = WithProfileValue(text, "Data", "key", "value");
  Require(written.size() <= text.size() + 64);
  Require(ProfileValue(written, "Data", "key") == "value");
  Require(WithProfileValue(written, "Data", "key", "value") == written);
  if (!ProfileValue(text, "Data", "key")) {
    const std::string again = WithProfileValue(written, "Data", "key", std::nullopt);
    Require(!ProfileValue(again, "Data", "key"));
  }
  return 0;
}
