#include "tools/hand/hand.h"

#include "base/text.h"
#include "platform/form_keyboard.h"

#include <utility>

namespace corvel::tools {

// --- Looking -------------------------------------------------------------------------------------

std::optional<FormView> Hand::FindForm(std::string_view name) const {
  std::optional<FormView> newest;
  for (const FormView& form : Forms())
    if (EqualNoCase(form.state->name, name)) newest = form;
  return newest;
}

std::optional<ControlView> Hand::FindControl(Window form, std::string_view name, int index) const {
  for (const ControlView& control : ControlsOf(form))
    if (control.state->index == index && EqualNoCase(control.state->name, name)) return control;
  return std::nullopt;
}

std::optional<Hand::Found> Hand::Find(Window window) const {
  if (!window) return std::nullopt;
  for (const FormView& form : Forms()) {
    if (form.window == window) return Found{form, std::nullopt};
    for (const ControlView& control : ControlsOf(form.window))
      if (control.window == window) return Found{form, control};
  }
  return std::nullopt;
}

// --- What a user can reach -----------------------------------------------------------------------

// What hangs in a window of another process is seen while that is, whatever its own form does.
std::string Hand::RefusalOf(const Found& found) const {
  const FormState& form = *found.form.state;
  const ControlState* control = found.control ? found.control->state : nullptr;
  if (std::string obstacle = touch_.ObstacleTo(found.form); !obstacle.empty()) return obstacle;
  const bool hangs = control && HungWith(*control);
  if (!hangs && !touch_.IsSeen(found.form.window)) return form.name + " is not visible";
  if (!form.enabled) return form.name + " is disabled";
  if (!control) return "";
  if (!control->visible || !touch_.IsSeen(found.control->window))
    return NameOf(*control) + " is not visible";
  return IsUsable(*control) ? "" : NameOf(*control) + " is disabled";
}

std::string Hand::RefusalOf(Window window) const {
  const auto found = Find(window);
  return found ? RefusalOf(*found) : "there is no such control";
}

// --- Acting --------------------------------------------------------------------------------------

namespace {

std::string CurrentRowRule(const ControlState& state) {
  const bool noRow = HasRows(state.kind) && !HasRow(state, state.selected);
  return noRow ? NameOf(state) + " has no current row" : "";
}

}  // namespace

Deed Hand::Do(Window window, const char* unknown, Rule rule, Act act) {
  const auto refusal = [this, window, unknown, rule = std::move(rule)]() -> std::string {
    const auto found = Find(window);
    if (!found) return unknown;
    std::string unreachable = RefusalOf(*found);
    return unreachable.empty() && rule ? rule(*found) : unreachable;
  };
  if (std::string why = refusal(); !why.empty()) return {.refusal = std::move(why)};
  return touch_.Begin(window, [this, window, refusal, act = std::move(act)] {
    if (!refusal().empty()) return;
    if (const auto found = Find(window); found->control) touch_.GoTo(*found->control);
    if (refusal().empty()) act(*Find(window));
  });
}

Deed Hand::DoToControl(Window control, Rule rule, Act act) {
  if (const auto found = Find(control); found && !found->control) control = {};
  return Do(control, "there is no such control", std::move(rule), std::move(act));
}

Deed Hand::DoToForm(Window form, Rule rule, Act act) {
  if (const auto found = Find(form); found && found->control) form = {};
  return Do(form, "there is no such form", std::move(rule), std::move(act));
}

Deed Hand::Click(Window control) {
  return DoToControl(control, {}, [this](const Found& at) { touch_.Click(*at.control); });
}

Deed Hand::DoubleClick(Window control) {
  return DoToControl(
      control, [](const Found& at) { return CurrentRowRule(*at.control->state); },
      [this](const Found& at) { touch_.DoubleClick(*at.control); });
}

Deed Hand::RightClick(Window control) {
  return DoToControl(control, {}, [this](const Found& at) { touch_.RightClick(*at.control); });
}

Deed Hand::Select(Window control, int row, bool keepMarked) {
  return DoToControl(
      control,
      [row](const Found& at) {
        const ControlState& state = *at.control->state;
        return HasRow(state, row) ? "" : NameOf(state) + " has no row " + std::to_string(row);
      },
      [this, row, keepMarked](const Found& at) {
        touch_.Select(*at.control, row, keepMarked && at.control->state->multiSelect);
      });
}

Deed Hand::Type(Window control, const std::string& wholeText) {
  return DoToControl(
      control,
      [](const Found& at) {
        const ControlState& state = *at.control->state;
        return state.kind == ControlKind::kTextBox ? "" : NameOf(state) + " is not a text box";
      },
      [this, wholeText](const Found& at) { touch_.Type(*at.control, wholeText); });
}

Deed Hand::Press(Window control, Key key) {
  return DoToControl(control, {}, [this, key](const Found& at) { touch_.Press(*at.control, key); });
}

Deed Hand::Drag(Window label, int dx, int dy) {
  return DoToControl(
      label,
      [](const Found& at) {
        const ControlState& state = *at.control->state;
        return state.dragsForm ? "" : NameOf(state) + " doesn't drag its window";
      },
      [this, dx, dy](const Found& at) { touch_.DragForm(at.form, *at.control, dx, dy); });
}

Deed Hand::Close(Window form) {
  return DoToForm(
      form,
      [](const Found& at) {
        return at.form.state->closable ? "" : at.form.state->name + " has no close box";
      },
      [this](const Found& at) { touch_.Close(at.form); });
}

Deed Hand::MoveForm(Window form, int left, int top) {
  return DoToForm(form, {},
                  [this, left, top](const Found& at) { touch_.Move(at.form, left, top); });
}

}  // namespace corvel::tools
