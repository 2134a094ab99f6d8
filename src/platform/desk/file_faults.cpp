// Faults of drives; see file_faults.h.
#include "platform/desk/file_faults.h"

#include "base/error.h"
#include "base/text.h"

#include <optional>
#include <utility>

namespace corvel::desk {

void FileFaults::FailCall(int n, int errorNumber, std::string part) {
  faults_.push_back({n, errorNumber, std::move(part)});
}

void FileFaults::Begin(std::string_view path, std::string_view second) {
  std::optional<int> error;
  std::erase_if(faults_, [&](Fault& fault) {
    if (!HoldsNoCase(path, fault.part) && !HoldsNoCase(second, fault.part)) return false;
    if (--fault.callsLeft > 0 || error) return false;
    error = fault.errorNumber;
    return true;
  });
  if (error) throw RunTimeError(*error);
}

}  // namespace corvel::desk
