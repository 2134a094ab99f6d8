// What the program wants of the client's process as a whole.
#pragma once

#include "platform/hooks.h"
#include "platform/win32/in_client.h"

namespace corvel::win32 {

class Win32ClientProxy : public ClientProxy {
 public:
  explicit Win32ClientProxy(InClient& inClient) : inClient_(inClient) {}
  bool Attach(Window clientFrame) override;
  void Detach() noexcept override { frame_ = {}; }
  void StopSound() override;

 private:
  InClient& inClient_;
  Window frame_{};
};

}  // namespace corvel::win32
