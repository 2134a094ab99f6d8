// Work that only a client's own thread can do: our library inside its process does it when asked.
// Which calls need this, and why, stands in docs/hooks.md.
#pragma once

#include "platform/hook/deed.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <windows.h>

namespace corvel::win32 {

using hook::Deed;  // which also tells what each takes and gives

struct DeedRequest {
  Deed deed{};
  std::uint32_t handle = 0;  // the window or menu that it is about
  std::int32_t number = 0;
  std::uint32_t flags = 0, id = 0;
  std::uint32_t sub = 0;
  std::string_view text{};
};

struct DeedReply {
  std::int64_t value = 0;
  std::string text{};
};

class InClient {
 public:
  virtual ~InClient() = default;
  // Has the process that owns `window` do it, in that window's thread; our library is brought in at
  // the first call. Nothing if the window is dead, its process hangs (given up after a bounded
  // time) or can't be entered.
  virtual std::optional<DeedReply> Ask(HWND window, const DeedRequest& request) = 0;
  // Leaves an order there, about the window, which is carried out once its process takes messages
  // again, even if ours has ended by then. If our library isn't in there nothing happens.
  virtual void Later(HWND window, Deed deed, std::int32_t number) = 0;
};

}  // namespace corvel::win32
