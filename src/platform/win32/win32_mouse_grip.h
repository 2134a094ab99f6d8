// Clicking what has no use of its own for the mouse: labels, pictures, bare containers; and
// dragging a form by one of its labels.
#pragma once

#include "platform/win32/win32_control_peer.h"

namespace corvel::win32 {

class GripControl : public Win32Control {
 public:
  using Win32Control::Win32Control;

 protected:
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override;

 private:
  void DragForm(LPARAM lParam) const;
  bool pressed_ = false;
};

}  // namespace corvel::win32
