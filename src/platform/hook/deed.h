// What our library can do for us in a client's thread, and what a deed takes and gives. Plain data:
// the library itself has no C++ runtime.
#pragma once

#include <cstdint>

namespace corvel::hook {

enum class Deed : std::uint32_t {
  kEndDialog,    // window, number: the result
  kSetFocus,     // window
  kHold,         // window, number: 1: it is about to be disabled, 0: it isn't any more. Enabled
                 // again if the program dies
  kMenuOf,       // window -> menu
  kMenuCount,    // menu -> number or -1
  kSubMenu,      // menu, number: position -> menu
  kMenuIdAt,     // menu, number: position -> id
  kMenuTextAt,   // menu, number: position -> text
  kMenuStateAt,  // menu, number: position -> flags
  kMenuInsert,   // menu, number: before which, flags, id, sub, text -> 1
  kMenuModify,   // menu, number, flags, id, text -> 1
  kMenuDelete,   // menu, number, flags -> 1
  kMenuCreate,   // -> a new pop-up menu
  kMenuDestroy,  // menu
  kMenuDrawBar,  // window
  kListText,     // window: a list box, number: row -> text
  kComboText,    // window: a combo box, number: row -> text
  kEnable,       // window: it takes input again, and is not held any more
  kShow,         // window, number: how
  kStopSound,    // the wave sound that the process plays
  kPresent,      // -> 1: the library is in
  kHook,         // window, id: of the hook, flags: a Listening, text: message numbers -> 1
  kUnhook,       // id: of the hook
  kRelease,      // all hooks of ours, and the agent itself
  kCount
};

// A deed in progress: the request, and where its reply goes.
struct Task {
  Deed deed{};
  std::uint32_t handle = 0;  // the window or menu that it is about
  std::int32_t number = 0;
  std::uint32_t flags = 0, id = 0, sub = 0;
  const char* text = "";         // NUL-terminated
  std::uint32_t textLength = 0;  // without the NUL
  // The reply. The text is NUL-terminated, at most `room` bytes with its NUL.
  std::int64_t value = 0;
  char* answer = nullptr;
  std::uint32_t room = 0;
};

}  // namespace corvel::hook
