// The clipboard of this session.
#pragma once

#include "platform/clipboard.h"
#include "platform/win32/owned.h"

namespace corvel::win32 {

class Win32Clipboard : public Clipboard {
 public:
  ~Win32Clipboard() override;
  bool Open(Window owner) override;
  void Close() override;
  void Empty() override;
  bool Set(std::uint32_t format, std::string_view text) override;
  std::optional<std::string> Get(std::uint32_t format) override;
  std::uint32_t RegisterFormat(std::string_view name) override;

 private:
  // The system takes nothing from a clipboard without an owner, so one of ours stands in.
  HWND StandIn();

  bool open_ = false;
  Owned<HWND, DestroyWindow> standIn_;
};

}  // namespace corvel::win32
