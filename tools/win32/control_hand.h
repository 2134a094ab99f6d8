// The user's hand at the program's controls by mouse and keys, and at its menus: where each kind is
// to be touched.
#pragma once

#include "tools/win32/hands.h"
#include "tools/win32/message_touch.h"

#include <functional>
#include <string>
#include <vector>

namespace corvel::tools {

class ControlHand : public Win32Touch {
 public:
  // `begun` tells when all that has been begun is over, with what comes of it.
  ControlHand(win32::Win32Platform& system, Hands& hands, std::function<Deed()> begun)
      : Win32Touch(system), hands_(hands), begun_(std::move(begun)) {}

  // The hands take what is to be done at once, and do it one after the other. What goes wrong then
  // they tell.
  Deed Begin(Window window, std::function<void()> act) override;
  void GoTo(const ControlView&) override {}  // each move finds its own way
  void Click(const ControlView& control) override;
  void DoubleClick(const ControlView& control) override;
  void RightClick(const ControlView& control) override;
  void Select(const ControlView& control, int row, bool keepMarked) override;
  void Type(const ControlView& control, const std::string& wholeText) override;
  void Press(const ControlView& control, Key key) override;
  void DragForm(const FormView& form, const ControlView& label, int dx, int dy) override;
  void Close(const FormView& form) override;
  void Move(const FormView& form, int left, int top) override;

  // In a pop-up menu that is up: the rows from the outermost menu inwards.
  void ChooseRow(MenuHandle popup, const std::vector<int>& rows);
  void PutMenuAway() { hands_.Press(VK_ESCAPE); }

 private:
  void ClickRow(HWND list, ControlKind kind, int row, bool control, int scrolls);
  void OpenAndClickRow(HWND combo, int row);
  void ClickMenuRow(HMENU menu, int row, int clicks);
  void GoByTab(Window control, int presses);

  Hands& hands_;
  std::function<Deed()> begun_;
};

}  // namespace corvel::tools
