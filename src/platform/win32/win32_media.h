// The system's own media control.
#pragma once

#include "platform/media_control.h"

namespace corvel::win32 {

class Win32MediaControl : public MediaControl {
 public:
  Win32MediaControl() = default;
  ~Win32MediaControl() override;  // closes what is open: Windows 95 and 98 hang at the end else
  Win32MediaControl(const Win32MediaControl&) = delete;
  Win32MediaControl& operator=(const Win32MediaControl&) = delete;

  MediaReply Send(std::string_view command) override;
  std::string ErrorText(std::uint32_t error) override;

 private:
  bool used_ = false;
};

}  // namespace corvel::win32
