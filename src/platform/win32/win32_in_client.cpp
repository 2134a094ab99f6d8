// Work in a client's own thread; see win32_in_client.h.
#include "platform/win32/win32_in_client.h"

#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

namespace corvel::win32 {

std::optional<DeedReply> Win32InClient::Ask(HWND window, const DeedRequest& request) {
  std::optional<DeedReply> reply;
  if (const auto link = channel_.Enter(window)) reply = link->Do(request);
  Callback::Rethrow();  // our hooks may have run meanwhile
  return reply;
}

void Win32InClient::Later(HWND window, Deed deed, std::int32_t number) {
  if (const auto link = channel_.Entered(window)) link->Later(deed, number, FromHwnd(window).value);
}

}  // namespace corvel::win32
