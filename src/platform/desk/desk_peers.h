// Forms and controls on the desk: each is a desk window whose state the toolkit keeps. Whoever
// looks on finds them here, by name or by window.
#pragma once

#include "platform/desk/desk.h"

#include <optional>
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
    Window window, form;
    const ControlState* state;
    ControlEvents* events;
  };
  // The forms that stand, oldest first; and the newest of that name, case ignored.
  std::vector<FormView> Forms() const;
  std::optional<FormView> FindForm(std::string_view name) const;
  std::optional<FormView> FindFormAt(Window window) const;
  // The controls of a form that have a window.
  std::vector<ControlView> ControlsOf(Window form) const;
  std::optional<ControlView> FindControl(Window form, std::string_view name, int index) const;
  std::optional<ControlView> Find(Window control) const;
  Window FocusedControl() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::desk
