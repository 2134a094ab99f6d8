// Clicking and dragging what has no use of its own for the mouse: labels and pictures.
#pragma once

#include "platform/win32/win32_control_peer.h"

namespace corvel::win32 {

// A control that can be clicked and dragged. The mouse is followed on the screen, since the form
// may move along with it.
class GripControl : public Win32Control {
 public:
  using Win32Control::Win32Control;

 protected:
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override;

 private:
  std::optional<LRESULT> Follow(POINT now);

  std::optional<POINT> last_{};  // on the screen, while the button is down
  bool dragged_ = false;
};

}  // namespace corvel::win32
