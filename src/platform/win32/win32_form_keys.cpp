// The keyboard on a form's real windows; the rules stand in platform/form_keyboard.h.
//
// A key goes to the focused control's events first, which know the default and the cancel button
// and move the current row of a list. What they have no use for the rules decide: moving the focus,
// access keys. The rest is the system's: typing, and what the control's window does by itself.
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_form_peer.h"

namespace corvel::win32 {
namespace {

bool IsRepeated(const MSG& message) { return (message.lParam & (1L << 30)) != 0; }

}  // namespace

// --- Focus ---------------------------------------------------------------------------------------

void Win32Form::LeaveFocus(const Win32Control& control) {
  if (!window_ || !control.Hwnd() || Focused() != &control) return;
  const Win32Control* next = ControlOf(FocusBehind(States(), control.State()));
  SetFocus(next ? next->Hwnd() : ParentOf(control.State()));
}

void Win32Form::FocusSomething() {
  if (lastFocus_ && IsWindowEnabled(lastFocus_) && IsWindowVisible(lastFocus_)) {
    SetFocus(lastFocus_);
  } else if (Win32Control* first = ControlOf(FirstFocus(States()))) {
    first->TakeFocus();
  }
}

void Win32Form::ShowDefaultButton() const {
  const Win32Control* focused = Focused();
  const bool onButton = focused && (focused->State().kind == ControlKind::kButton ||
                                    focused->State().kind == ControlKind::kFlatButton);
  for (const Win32Control* control : controls_) {
    if (control->State().kind != ControlKind::kButton || !control->Hwnd()) continue;
    const bool shows = onButton ? control == focused : control->State().isDefault;
    const auto style = GetWindowLongPtrA(control->Hwnd(), GWL_STYLE);
    const bool shown = (style & 0x0F) == BS_DEFPUSHBUTTON;
    if (shows != shown)
      SendMessageA(control->Hwnd(), BM_SETSTYLE, shows ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
  }
}

// --- Keys ----------------------------------------------------------------------------------------

bool Win32Form::OnKey(const MSG& message) {
  if (!state_.enabled) return false;
  switch (message.message) {
    case WM_KEYDOWN:
      return OnKeyDown(message);
    case WM_CHAR:
      return OnCharacter(message);
    case WM_SYSCHAR:
      return PressAccessKey(static_cast<char>(message.wParam));
    default:
      return false;
  }
}

bool Win32Form::OnKeyDown(const MSG& message) {
  const Key key = KeyOf(message.wParam);
  Win32Control* control = Focused();
  if (control) {
    if (control->KeepsKey(key)) return false;
    const bool presses = key == Key::kEnter || key == Key::kEscape;
    if (presses && IsRepeated(message) && !control->State().multiLine) return true;
    bool used = false;
    if (!control->Calls([&](ControlEvents& events) { used = events.UserKey(key); })) return true;
    if (used) return true;
  }
  if (key == Key::kTab && IsHeld(VK_CONTROL)) return false;
  return Do(DeedOfKey(States(), control ? &control->State() : nullptr, key, IsHeld(VK_SHIFT)));
}

bool Win32Form::Do(const KeyDeed& deed) {
  if (Win32Control* control = ControlOf(deed.control)) {
    if (deed.kind != KeyDeed::Kind::kClick || CanHaveFocus(control->State().kind))
      control->TakeFocus();
    if (deed.kind == KeyDeed::Kind::kClick)
      control->Calls([](ControlEvents& events) { events.UserClick(); });
  }
  return deed.kind != KeyDeed::Kind::kNone;
}

// On a button a letter is enough: there is nothing to type into.
bool Win32Form::OnCharacter(const MSG& message) {
  const Win32Control* control = Focused();
  return control && IsButton(control->State().kind) && message.wParam > VK_SPACE &&
         PressAccessKey(static_cast<char>(message.wParam));
}

bool Win32Form::PressAccessKey(char letter) {
  const Win32Control* control = Focused();
  return Do(DeedOfLetter(States(), control ? &control->State() : nullptr, letter));
}

}  // namespace corvel::win32
