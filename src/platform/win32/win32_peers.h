// Forms and controls on real windows; and the user's hand, for a scenario that runs in the same
// process.
#pragma once

#include "platform/peers.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::win32 {

class Win32EventLoop;

int VirtualKeyOf(Key key);

class Win32Peers : public Peers {
 public:
  explicit Win32Peers(Win32EventLoop& events);
  ~Win32Peers() override;  // behind all of its forms
  Win32Peers(const Win32Peers&) = delete;
  Win32Peers& operator=(const Win32Peers&) = delete;
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

  // What the user does, by messages to the control's window in a later pump, in the order of the
  // calls. Each fails with a reason ("" if all is well) where a user could not; what has come out
  // of reach by then is not done.
  struct Done {
    std::uint64_t task = 0;
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
  bool IsOver(std::uint64_t task) const;  // it has been done, with all that came of it
  // Why a user could not reach this control or form just now; "" if he could.
  std::string RefusalOf(Window window) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::win32
