// The Windows home: every interface of the seam by real calls, in one bundle.
#pragma once

#include "platform/platform.h"

#include <memory>

namespace corvel::win32 {

class Win32EventLoop;
class Win32Peers;

class Win32Platform {
 public:
  Win32Platform();
  ~Win32Platform();
  Win32Platform(const Win32Platform&) = delete;
  Win32Platform& operator=(const Win32Platform&) = delete;

  Platform& platform();
  Win32EventLoop& events();
  Win32Peers& peers();
  // As at the end of the process, for one that goes on behind a program's end.
  void LetGoOfClients();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::win32
