// The seam's handles and the system's. A handle fits in 32 bits on the 64-bit editions too, where
// it is kept sign-extended.
#pragma once

#include "platform/window_types.h"

#include <windows.h>

namespace corvel::win32 {

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
