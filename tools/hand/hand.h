// The user's hand at the program's forms and controls: what a user can do there and what he can't,
// and why. The rules stand here once, for every home and every way of touching; a Touch is one such
// way, and does only what they have let through.
#pragma once

#include "platform/peers.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tools {

// Something begun that may last: why it can't be done, or when it is over (empty: it is).
struct Deed {
  std::string refusal{};
  std::function<bool()> over{};
};

struct FormView {
  Window window;
  const FormState* state;
};
struct ControlView {
  Window window;
  const ControlState* state;
};

class Touch {
 public:
  virtual ~Touch() = default;

  // --- What is there ---------------------------------------------------------------------------
  virtual std::vector<FormView> Forms() = 0;  // that stand, oldest first
  virtual std::vector<ControlView> ControlsOf(Window form) = 0;
  // It, and all that it stands in, is visible.
  virtual bool IsSeen(Window window) = 0;
  // What of the system, or of the form's program, keeps the user from all of the form; "": nothing.
  virtual std::string ObstacleTo(const FormView& form) = 0;

  // --- Doing it --------------------------------------------------------------------------------
  // Runs the act as an event of that window's program, behind what has been begun before.
  virtual Deed Begin(Window window, std::function<void()> act) = 0;
  // Its window comes to the front, and the keyboard to it if it can have that.
  virtual void GoTo(const ControlView& control) = 0;
  virtual void Click(const ControlView& control) = 0;
  virtual void DoubleClick(const ControlView& control) = 0;  // on the current row, if it has rows
  virtual void RightClick(const ControlView& control) = 0;
  virtual void Select(const ControlView& control, int row, bool keepMarked) = 0;
  virtual void Type(const ControlView& control, const std::string& wholeText) = 0;
  virtual void Press(const ControlView& control, Key key) = 0;
  virtual void DragForm(const FormView& form, const ControlView& label, int dx, int dy) = 0;
  virtual void Close(const FormView& form) = 0;
  virtual void Move(const FormView& form, int left, int top) = 0;
};

class Hand {
 public:
  explicit Hand(Touch& touch) : touch_(touch) {}
  Hand(const Hand&) = delete;  // what has been begun comes back to it
  Hand& operator=(const Hand&) = delete;

  std::vector<FormView> Forms() const { return touch_.Forms(); }
  std::vector<ControlView> ControlsOf(Window form) const { return touch_.ControlsOf(form); }
  // The newest of that name, case ignored; -1 is the index of a control that stands alone.
  std::optional<FormView> FindForm(std::string_view name) const;
  std::optional<ControlView> FindControl(Window form, std::string_view name, int index) const;

  // Why a user could not reach this control or form just now; "" if he could.
  std::string RefusalOf(Window window) const;

  // Each is refused where a user could not; what has come out of reach until it is its turn is not
  // done.
  Deed Click(Window control);
  Deed DoubleClick(Window control);
  Deed RightClick(Window control);
  Deed Select(Window control, int row, bool keepMarked);
  Deed Type(Window control, const std::string& wholeText);
  Deed Press(Window control, Key key);
  Deed Drag(Window label, int dx, int dy);  // pixels; its form goes along
  Deed Close(Window form);                  // by its close box
  Deed MoveForm(Window form, int left, int top);

 private:
  struct Found {
    FormView form;
    std::optional<ControlView> control;  // nothing: it is the form
  };
  using Rule = std::function<std::string(const Found&)>;  // why it can't be done there
  using Act = std::function<void(const Found&)>;

  std::optional<Found> Find(Window window) const;
  std::string RefusalOf(const Found& found) const;
  Deed Do(Window window, const char* unknown, Rule rule, Act act);
  Deed DoToControl(Window control, Rule rule, Act act);
  Deed DoToForm(Window form, Rule rule, Act act);

  Touch& touch_;
};

}  // namespace corvel::tools
