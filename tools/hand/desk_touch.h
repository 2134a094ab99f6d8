// The user's hand on the desk: each deed is an event of the form's process, and what the system's
// controls would do by themselves is done for them.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/desk_peers.h"
#include "tools/hand/hand.h"

namespace corvel::tools {

class DeskTouch : public Touch {
 public:
  explicit DeskTouch(desk::Desk& desk) : desk_(desk) {}

  std::vector<FormView> Forms() override;
  std::vector<ControlView> ControlsOf(Window form) override;
  bool IsSeen(Window window) override;
  std::string ObstacleTo(const FormView& form) override;

  Deed Begin(Window window, std::function<void()> act) override;
  void GoTo(const ControlView& control) override;
  void Click(const ControlView& control) override;
  void DoubleClick(const ControlView& control) override;
  void RightClick(const ControlView& control) override;
  void Select(const ControlView& control, int row, bool keepMarked) override;
  void Type(const ControlView& control, const std::string& wholeText) override;
  void Press(const ControlView& control, Key key) override;
  void DragForm(const FormView& form, const ControlView& label, int dx, int dy) override;
  void Close(const FormView& form) override;
  void Move(const FormView& form, int left, int top) override;

 private:
  bool UseFormKey(Window control, Key key);

  desk::Desk& desk_;
};

}  // namespace corvel::tools
