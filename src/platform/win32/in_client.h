// Work that only a client's own thread can do: our library inside its process does it when asked.
// Which calls need this, and why, stands in docs/hooks.md.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvel::win32 {

enum class Deed : std::uint32_t {
  kEndDialog,     // window, number: the result
  kSetFocus,      // window
  kMenuOf,        // window -> menu
  kMenuCount,     // menu -> number or -1
  kSubMenu,       // menu, number: position -> menu
  kMenuIdAt,      // menu, number: position -> id
  kMenuTextAt,    // menu, number: position -> text
  kMenuStateAt,   // menu, number: position -> flags
  kMenuInsert,    // menu, number: before which, flags, id, sub, text -> 1
  kMenuModify,    // menu, number, flags, id, text -> 1
  kMenuDelete,    // menu, number, flags -> 1
  kMenuCreate,    // -> a new pop-up menu
  kMenuDestroy,   // menu
  kMenuDrawBar,   // window
  kMenuExists,    // menu -> 1
  kListText,      // window: a list box, number: row -> text
  kComboText,     // window: a combo box, number: row -> text
};

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
};

}  // namespace corvel::win32
