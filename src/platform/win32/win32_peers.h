// Forms and controls on real windows.
#pragma once

#include "platform/peers.h"

#include <memory>

namespace corvel::win32 {

struct FormSet;
class Win32EventLoop;

class Win32Peers : public Peers {
 public:
  explicit Win32Peers(Win32EventLoop& events);
  ~Win32Peers() override;  // behind all of its forms
  Win32Peers(const Win32Peers&) = delete;
  Win32Peers& operator=(const Win32Peers&) = delete;
  std::unique_ptr<FormPeer> CreateForm(const FormState& state, FormEvents& events) override;

  const FormSet& Set() const;  // those that stand

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::win32
