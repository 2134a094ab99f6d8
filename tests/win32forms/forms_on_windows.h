// A form in real windows, whose controls and event procedures a test makes, and a user's hand.
#pragma once

#include "forms/form.h"
#include "forms/timer.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_platform.h"
#include "tools/win32/message_touch.h"

#include <commctrl.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>

namespace corvel::forms {

class AnyForm : public Form {
 public:
  explicit AnyForm(Forms& forms) : Form(forms, "frmAny", "Any form") {}
  using Form::Arrange;
  using Form::SetBorder;
  using Form::SetDraggedBy;
  using Form::SetEtchedEdge;
  using Form::SetResizable;
  std::function<bool(bool)> onQueryUnload;
  int moves = 0;

 protected:
  bool Form_QueryUnload(bool byUser) override { return !onQueryUnload || onQueryUnload(byUser); }
  void Form_Move() override { ++moves; }
};

class FormsOnWindows : public testing::Test {
 protected:
  void TearDown() override {
    forms_.UnloadAll();
    EXPECT_TRUE(user_.Forms().empty());
  }

  Platform& platform() { return home_.platform(); }
  tools::Hand& user() { return user_; }

  // Lets everything happen that is waiting to, and what comes of it.
  void Settle(DWORD milliseconds = 60) {
    const DWORD begin = GetTickCount();
    while (GetTickCount() - begin < milliseconds)
      platform().events.Pump({"a test's wait", WaitFor::kTime, begin + milliseconds});
  }

  // The user has done it, and all that came of it is over. Why he couldn't, or "".
  std::string Did(const tools::Deed& deed) {
    const DWORD begin = GetTickCount();
    while (deed.over && !deed.over() && GetTickCount() - begin < 5000) Settle(10);
    Settle(20);
    return deed.refusal;
  }

  static HWND HwndOf(const Control& control) { return win32::ToHwnd(control.Handle()); }
  static LRESULT Ask(const Control& control, UINT id, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageA(HwndOf(control), id, wParam, lParam);
  }
  static std::string ShownText(const Control& control) {
    char text[256]{};
    GetWindowTextA(HwndOf(control), text, sizeof text);
    return text;
  }
  // A key as the keyboard brings it: through the queue, to the window that has the focus.
  void Key(WPARAM virtualKey) {
    PostMessageA(GetFocus(), WM_KEYDOWN, virtualKey, 1);
    PostMessageA(GetFocus(), WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
    Settle(20);
  }
  void AltLetter(char letter) {
    PostMessageA(GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(letter), 1L << 29);
    Settle(20);
  }

  win32::Win32Platform home_;
  tools::MessageTouch touch_{home_};
  tools::Hand user_{touch_};
  Forms forms_{home_.platform()};
};

}  // namespace corvel::forms
