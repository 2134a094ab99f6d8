// The standard dialog: an icon, a text and a button, shown without waiting for the answer.
#pragma once

#include "platform/win32/win32_event_loop.h"

#include <string>
#include <vector>
#include <windows.h>

namespace corvel::win32 {

class StandardDialogs : public MessageFilter {
 public:
  explicit StandardDialogs(Win32EventLoop& events);
  ~StandardDialogs() override;
  StandardDialogs(const StandardDialogs&) = delete;
  StandardDialogs& operator=(const StandardDialogs&) = delete;

  // 0 if it can't be made, or has gone already.
  HWND Show(HWND owner, const std::string& caption, const std::string& text);
  bool Filter(MSG& message) override;  // the keys of a dialog

 private:
  Win32EventLoop& events_;
  std::vector<HWND> shown_;
};

}  // namespace corvel::win32
