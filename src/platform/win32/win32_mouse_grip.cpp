#include "platform/win32/win32_mouse_grip.h"

#include <cstdlib>

namespace corvel::win32 {
namespace {

// The mouse's place in a message: signed, since it can be left of and above the window.
POINT PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

std::optional<LRESULT> GripControl::OnMessage(UINT id, WPARAM wParam, LPARAM lParam) {
  if (id == WM_LBUTTONDOWN || id == WM_LBUTTONDBLCLK) {
    POINT at = PointOf(lParam);
    ClientToScreen(Hwnd(), &at);
    last_ = at;
    dragged_ = false;
    SetCapture(Hwnd());
    return 0;
  }
  if (id == WM_CAPTURECHANGED) last_.reset();
  if (id == WM_MOUSEMOVE && last_) {
    POINT at = PointOf(lParam);
    ClientToScreen(Hwnd(), &at);
    return Follow(at);
  }
  if (id == WM_LBUTTONUP && last_) {
    const bool clicked = !dragged_;
    ReleaseCapture();
    if (clicked) Calls([](ControlEvents& events) { events.UserClick(); });
    return 0;
  }
  return Win32Control::OnMessage(id, wParam, lParam);
}

// The first few pixels are a hand that trembles.
std::optional<LRESULT> GripControl::Follow(POINT now) {
  const int dx = static_cast<int>(now.x - last_->x), dy = static_cast<int>(now.y - last_->y);
  if (dx == 0 && dy == 0) return 0;
  if (!dragged_ && std::abs(dx) < GetSystemMetrics(SM_CXDRAG) &&
      std::abs(dy) < GetSystemMetrics(SM_CYDRAG))
    return 0;
  dragged_ = true;
  last_ = now;
  Calls([&](ControlEvents& events) { events.UserDrag(dx, dy); });
  return 0;
}

}  // namespace corvel::win32
