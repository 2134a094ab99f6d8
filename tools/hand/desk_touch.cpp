#include "tools/hand/desk_touch.h"

#include "platform/desk/desk_windows.h"
#include "platform/desk/prompt.h"
#include "platform/form_keyboard.h"

#include <algorithm>

namespace corvel::tools {
namespace {

using View = desk::DeskPeers::ControlView;

void EditKey(const View& control, Key key) {
  std::string text = control.state->text;
  if (key == Key::kBackspace) {
    if (text.empty()) return;
    text.pop_back();
  } else if (key == Key::kSpace) {
    text += ' ';
  } else if (key == Key::kEnter && control.state->multiLine) {
    text += "\r\n";
  } else {
    return;
  }
  control.events->UserText(text);
}

void ListKey(const View& control, Key key) {
  const int last = static_cast<int>(control.state->items.size()) - 1;
  const int selected = control.state->selected;
  int row = selected;
  if (key == Key::kUp) row = std::max(selected - 1, 0);
  if (key == Key::kDown) row = std::min(selected + 1, last);
  if (key == Key::kHome) row = 0;
  if (key == Key::kEnd) row = last;
  if (row != selected && HasRow(*control.state, row)) control.events->UserSelect(row, false);
}

// What the system's control does with a key that nobody else has used up.
void SystemKey(const View& control, Key key) {
  if (IsButton(control.state->kind) && key == Key::kSpace) return control.events->UserClick();
  if (control.state->kind == ControlKind::kTextBox) return EditKey(control, key);
  if (HasRows(control.state->kind)) ListKey(control, key);
}

}  // namespace

// --- What is there -------------------------------------------------------------------------------

std::vector<FormView> DeskTouch::Forms() {
  std::vector<FormView> forms;
  for (const auto& form : desk_.peers().Forms()) forms.push_back({form.window, form.state});
  return forms;
}

std::vector<ControlView> DeskTouch::ControlsOf(Window form) {
  std::vector<ControlView> controls;
  for (const auto& control : desk_.peers().ControlsOf(form))
    controls.push_back({control.window, control.state});
  return controls;
}

bool DeskTouch::IsSeen(Window window) { return desk_.windows().IsVisible(window); }

std::string DeskTouch::ObstacleTo(const FormView& form) {
  const ProcessId process = desk_.windows().ProcessOf(form.window);
  if (process != 0 && !desk_.IsRunning(process)) return "its program has ended";
  for (const auto& prompt : desk_.Prompts())
    if (!prompt->answered)
      return prompt->kind == desk::Prompt::Kind::kPopup
                 ? "a pop-up menu is open"
                 : "a dialog of the system waits for its answer";
  return "";
}

// --- Doing it ------------------------------------------------------------------------------------

Deed DeskTouch::Begin(Window window, std::function<void()> act) {
  const desk::TaskId task = desk_.PostTask(desk_.windows().ProcessOf(window), std::move(act));
  return {.over = [this, task] { return !desk_.IsPending(task); }};
}

void DeskTouch::GoTo(const ControlView& control) {
  if (CanHaveFocus(control.state->kind)) desk_.windows().SetFocus(control.window);
}

void DeskTouch::Click(const ControlView& control) {
  if (const auto view = desk_.peers().Find(control.window)) view->events->UserClick();
}

void DeskTouch::DoubleClick(const ControlView& control) {
  if (const auto view = desk_.peers().Find(control.window)) view->events->UserDoubleClick();
}

void DeskTouch::RightClick(const ControlView& control) {
  if (const auto view = desk_.peers().Find(control.window)) view->events->UserRightClick();
}

void DeskTouch::Select(const ControlView& control, int row, bool keepMarked) {
  if (const auto view = desk_.peers().Find(control.window))
    view->events->UserSelect(row, keepMarked);
}

void DeskTouch::Type(const ControlView& control, const std::string& wholeText) {
  if (const auto view = desk_.peers().Find(control.window)) view->events->UserText(wholeText);
}

void DeskTouch::Press(const ControlView& control, Key key) {
  const auto view = desk_.peers().Find(control.window);
  if (!view || view->events->UserKey(key) || UseFormKey(control.window, key)) return;
  if (const auto still = desk_.peers().Find(control.window)) SystemKey(*still, key);
}

// The control may have gone in its own event.
bool DeskTouch::UseFormKey(Window control, Key key) {
  const auto focused = desk_.peers().Find(control);
  if (!focused) return true;
  ControlStates states;
  const auto controls = desk_.peers().ControlsOf(focused->form);
  for (const View& one : controls) states.push_back(one.state);
  const KeyDeed deed = DeedOfKey(states, focused->state, key, false);
  for (const View& one : controls) {
    if (one.state != deed.control) continue;
    GoTo({one.window, one.state});
    if (deed.kind == KeyDeed::Kind::kClick) one.events->UserClick();
    break;
  }
  return deed.kind != KeyDeed::Kind::kNone;
}

void DeskTouch::DragForm(const FormView& form, const ControlView&, int dx, int dy) {
  Move(form, form.state->place.left + dx, form.state->place.top + dy);
}

void DeskTouch::Close(const FormView& form) {
  if (const auto view = desk_.peers().FindFormAt(form.window)) view->events->UserClose();
}

void DeskTouch::Move(const FormView& form, int left, int top) {
  Rect place = desk_.windows().PlaceOf(form.window);
  place.left = left;
  place.top = top;
  desk_.windows().Place(form.window, place);
}

}  // namespace corvel::tools
