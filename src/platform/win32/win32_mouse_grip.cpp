#include "platform/win32/win32_mouse_grip.h"

#include "platform/win32/win32_form_peer.h"

#include <utility>
#include <windowsx.h>

namespace corvel::win32 {

std::optional<LRESULT> GripControl::OnMessage(UINT id, WPARAM wParam, LPARAM lParam) {
  if (id == WM_LBUTTONDOWN || id == WM_LBUTTONDBLCLK) {
    if (State().dragsForm) return DragForm(lParam), 0;
    pressed_ = true;
    SetCapture(Hwnd());
    return 0;
  }
  if (id == WM_CAPTURECHANGED) pressed_ = false;
  if (id == WM_LBUTTONUP && std::exchange(pressed_, false)) {
    ReleaseCapture();
    RECT area{};
    GetClientRect(Hwnd(), &area);
    if (PtInRect(&area, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}))
      Calls([](ControlEvents& events) { events.UserClick(); });
    return 0;
  }
  return Win32Control::OnMessage(id, wParam, lParam);
}

// The form's window is told that its title bar has been pressed, and the system does the rest; the
// form hears when it has ended.
void GripControl::DragForm(LPARAM lParam) const {
  if (!Form()) return;
  POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  ClientToScreen(Hwnd(), &at);
  ReleaseCapture();
  SendMessageA(Form()->Hwnd(), WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(at.x, at.y));
}

}  // namespace corvel::win32
