// The peers themselves: a form and a control as desk windows.
#pragma once

#include "platform/desk/desk_core.h"
#include "platform/form_keyboard.h"
#include "platform/peers.h"

#include <memory>
#include <vector>

namespace corvel::desk {

class DeskForm;

class DeskControl : public ControlPeer, public WindowProcedure {
 public:
  DeskControl(DeskForm& form, const ControlState& state, ControlEvents& events);
  ~DeskControl() override;
  DeskControl(const DeskControl&) = delete;
  DeskControl& operator=(const DeskControl&) = delete;

  void Changed(Aspect aspect, int row) override;
  void TakeFocus() override;
  Window Handle() override { return window_; }
  MessageResult OnMessage(Window window, const Message& message) override;

  DeskForm* Form() const { return form_; }
  const ControlState& State() const { return state_; }
  ControlEvents& Events() const { return events_; }
  void LoseForm() { form_ = nullptr; }  // the form's peer has gone first

 private:
  void Show(Aspect aspect);
  void LeaveFocus();

  Desk& desk_;
  DeskForm* form_;
  const ControlState& state_;
  ControlEvents& events_;
  Window window_{};
};

class DeskForm : public FormPeer, public WindowProcedure {
 public:
  DeskForm(Desk& desk, std::vector<DeskForm*>& all, const FormState& state, FormEvents& events);
  ~DeskForm() override;
  DeskForm(const DeskForm&) = delete;
  DeskForm& operator=(const DeskForm&) = delete;

  void Changed(Aspect aspect) override;
  void ApplyVisible(bool activate) override;
  Window Handle() override { return window_; }
  Size FrameSize() override;
  std::unique_ptr<ControlPeer> Add(const ControlState& state, ControlEvents& events) override;
  MessageResult OnMessage(Window window, const Message& message) override;

  Desk& desk() const { return desk_; }
  ProcessId Process() const { return process_; }
  const FormState& State() const { return state_; }
  FormEvents& Events() const { return events_; }
  const std::vector<DeskControl*>& Controls() const { return controls_; }
  void Forget(DeskControl& control) { std::erase(controls_, &control); }
  DeskControl* ControlOf(const ControlState* state) const;  // nullptr for none
  ControlStates States() const;
  Window ParentOf(const ControlState& control) const;  // the window that it is to stand in

 private:
  void NoteShown(bool shown);

  Desk& desk_;
  std::vector<DeskForm*>& all_;  // of the desk's forms, oldest first
  const FormState& state_;
  FormEvents& events_;
  ProcessId process_;
  Window window_{};
  bool shown_ = false;
  std::vector<DeskControl*> controls_;
};

}  // namespace corvel::desk
