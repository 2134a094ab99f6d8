// The client's process as a whole; see win32_proxy.h.
#include "platform/win32/win32_proxy.h"

#include "platform/win32/handles.h"

namespace corvel::win32 {

bool Win32ClientProxy::Attach(Window clientFrame) {
  if (!inClient_.Ask(ToHwnd(clientFrame), {.deed = Deed::kPresent})) return false;
  frame_ = clientFrame;
  return true;
}

void Win32ClientProxy::StopSound() {
  if (frame_) inClient_.Ask(ToHwnd(frame_), {.deed = Deed::kStopSound});
}

}  // namespace corvel::win32
