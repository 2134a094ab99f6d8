// Forms and controls on the desk: each is a desk window whose state the toolkit keeps. Here the
// user's hand finds them by name and acts on them.
#pragma once

#include "platform/desk/desk.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

class DeskPeers : public Peers {
 public:
  explicit DeskPeers(Desk& desk);
  ~DeskPeers() override;
  std::unique_ptr<FormPeer> CreateForm(const FormState& state, FormEvents& events) override;

  struct FormView {
    ProcessId process;
    Window window;
    const FormState* state;
    FormEvents* events;
  };
  struct ControlView {
    Window window;
    const ControlState* state;
    ControlEvents* events;
  };
  // The forms that stand, oldest first; and the newest of that name, case ignored.
  std::vector<FormView> Forms() const;
  std::optional<FormView> FindForm(std::string_view name) const;
  std::vector<ControlView> ControlsOf(Window form) const;
  std::optional<ControlView> FindControl(Window form, std::string_view name, int index) const;
  Window FocusedControl() const;

  // What the user does, as an event of the form's process. Each fails with a reason (the answer's
  // second part, "" if all is well) where a user could not: hidden, disabled, no such row, or a
  // modal form in front.
  struct Done {
    TaskId task = 0;
    std::string refusal;
  };
  Done Click(Window control);
  Done DoubleClick(Window control);
  Done RightClick(Window control);
  Done Select(Window control, int row, bool keepMarked);
  Done Type(Window control, const std::string& wholeText);
  Done Press(Window control, Key key);
  Done Drag(Window control, int dx, int dy);
  Done Close(Window form);
  Done MoveForm(Window form, int left, int top);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::desk
