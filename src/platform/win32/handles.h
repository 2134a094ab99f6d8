// The seam's handles and the system's. A handle fits in 32 bits on the 64-bit editions too, where
// it is kept sign-extended.
#pragma once

#include "platform/window_types.h"

#include <windows.h>

namespace corvel::win32 {

// So long another process may take for what we ask of it: a hang of five seconds loses nothing. One
// that hasn't looked at its messages for five seconds when it is asked counts as hung, and is given
// up at once: so it holds us up for this long, and no longer however much we ask of it.
inline constexpr UINT kLongestAnswerMs = 7000;

inline HWND ToHwnd(Window window) {
  return reinterpret_cast<HWND>(static_cast<std::intptr_t>(static_cast<std::int32_t>(window.value)));
}
inline Window FromHwnd(HWND window) {
  return {static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(window))};
}
inline HMENU ToHmenu(MenuHandle menu) {
  return reinterpret_cast<HMENU>(static_cast<std::intptr_t>(static_cast<std::int32_t>(menu.value)));
}
inline MenuHandle FromHmenu(HMENU menu) {
  return {static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(menu))};
}

}  // namespace corvel::win32
