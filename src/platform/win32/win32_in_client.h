// Work in a client's own thread, over the road to our library.
#pragma once

#include "platform/win32/hook_channel.h"
#include "platform/win32/in_client.h"

namespace corvel::win32 {

class Win32InClient : public InClient {
 public:
  explicit Win32InClient(HookChannel& channel) : channel_(channel) {}
  std::optional<DeedReply> Ask(HWND window, const DeedRequest& request) override;
  void Later(HWND window, Deed deed, std::int32_t number) override;

 private:
  HookChannel& channel_;
};

}  // namespace corvel::win32
