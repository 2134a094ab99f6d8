// ModalForm: a window that asks, and the one way to wait for its answer.
//
//   const int button = Ask<frmQuestion>(program, &owner, text);
//
// The window comes up over its owner, which takes no input while it stands, or above all others if
// it has none. The wait lets events happen: timers and hooks run, a further question may come over
// this one, windows may go, the program may end.
//
// The answer is a value. The window hands it over by Answer(), in the user's click; where none
// comes (the close box, Escape, the owner or the program goes) it is the harmless one, which the
// window was made with. Nobody reads the window's controls behind the wait.
#pragma once

#include "core/program.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace corvel {

// What they have in common, whatever they ask.
class ModalWindow : public ProgramForm {
 public:
  // Shows the window and comes back when it has been answered or has gone; it is unloaded then, and
  // the owner may be, too. Re-entrant: waits over one owner may end in any order.
  void Wait(forms::Form* owner);

 protected:
  using ProgramForm::ProgramForm;
  void End();  // the wait, with the answer that stands
  // The frame's close box. A window that has to be answered does nothing here.
  virtual void Cancel() { End(); }
  bool Form_QueryUnload(bool byUser) final;

 private:
  void TakeOwner(forms::Form* owner);
  void GiveOwnerBack();

  std::shared_ptr<forms::Form> owner_;
  bool waits_ = true;
};

template <class T>
class ModalForm : public ModalWindow {
 public:
  const T& GivenAnswer() const { return answer_; }

 protected:
  ModalForm(Program& p, std::string name, std::string_view caption, T harmless)
      : ModalWindow(p, std::move(name), caption), answer_(std::move(harmless)) {}
  void Answer(T answer) {
    answer_ = std::move(answer);
    End();
  }

 private:
  T answer_;
};

// Behind the way down no window comes up any more: what still unwinds gets the harmless answer.
template <class Question, class... Arguments>
auto Ask(Program& program, forms::Form* owner, Arguments&&... arguments) {
  if (program.g.Unloading)
    return Question(program, std::forward<Arguments>(arguments)...).GivenAnswer();
  const auto form = program.forms.LoadNew<Question>(program, std::forward<Arguments>(arguments)...);
  form->Wait(owner);
  return form->GivenAnswer();
}

}  // namespace corvel
