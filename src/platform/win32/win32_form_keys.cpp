// The keyboard on a form: focus, tab order, access keys, the default and the cancel button.
//
// A key goes to the focused control's events first, which know the default and the cancel button
// and move the current row of a list. What they have no use for is the system's: moving the focus,
// typing, and what the control's window does by itself.
#include "base/cp1252.h"
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_form_peer.h"

#include <algorithm>
#include <string_view>

namespace corvel::win32 {
namespace {

// The letter behind a single "&", in lower case, or 0.
char AccessKeyOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[++i] != '&') return LowerChar(caption[i]);
  }
  return 0;
}

// Whose caption can hold an access key.
bool HasCaption(const ControlState& state) {
  if (!state.mnemonic) return false;
  return state.kind == ControlKind::kLabel || state.kind == ControlKind::kButton ||
         state.kind == ControlKind::kFlatButton || state.kind == ControlKind::kCheckBox ||
         state.kind == ControlKind::kOptionButton || state.kind == ControlKind::kFrame;
}

bool IsOption(const Win32Control* control) {
  return control->State().kind == ControlKind::kOptionButton;
}

bool IsArrow(WPARAM virtualKey) { return virtualKey >= VK_LEFT && virtualKey <= VK_DOWN; }

bool IsRepeated(const MSG& message) { return (message.lParam & (1L << 30)) != 0; }

std::vector<Win32Control*> InTabOrder(std::vector<Win32Control*> controls) {
  std::stable_sort(controls.begin(), controls.end(), [](const auto* a, const auto* b) {
    return a->State().tabOrder < b->State().tabOrder;
  });
  return controls;
}

// The buttons that stand beside this one in the tab order, options by themselves: the arrow keys
// move among them.
std::vector<Win32Control*> GroupOf(const std::vector<Win32Control*>& order, Win32Control* button) {
  const auto belongs = [button](const Win32Control* one) {
    return one->IsButton() && IsOption(one) == IsOption(button);
  };
  const auto at = std::find(order.begin(), order.end(), button);
  auto first = at, last = at;
  while (first != order.begin() && belongs(*(first - 1))) --first;
  while (last != order.end() && belongs(*last)) ++last;
  return {first, last};
}

}  // namespace

// --- Focus ---------------------------------------------------------------------------------------

// Of a group of options only one is a stop: the chosen one, else the first.
std::vector<Win32Control*> Win32Form::TabStops() const {
  std::vector<Win32Control*> order, stops;
  for (Win32Control* control : InTabOrder(controls_))
    if (control->CanHaveFocus() && control->IsUsable()) order.push_back(control);
  for (Win32Control* control : order) {
    if (IsOption(control)) {
      const auto group = GroupOf(order, control);
      const auto chosen = std::find_if(group.begin(), group.end(),
                                       [](const auto* one) { return one->State().value != 0; });
      if (control != (chosen == group.end() ? group.front() : *chosen)) continue;
    }
    stops.push_back(control);
  }
  return stops;
}

void Win32Form::MoveFocus(bool backward) {
  std::vector<Win32Control*> stops = TabStops();
  if (stops.empty()) return;
  if (backward) std::reverse(stops.begin(), stops.end());
  const auto now = std::find(stops.begin(), stops.end(), Focused());
  const auto next = now == stops.end() || now + 1 == stops.end() ? stops.begin() : now + 1;
  (*next)->TakeFocus();
}

void Win32Form::LeaveFocus(const Win32Control& control) {
  if (!window_ || !control.Hwnd() || Focused() != &control) return;
  const std::vector<Win32Control*> stops = TabStops();
  const auto behind = std::find_if(stops.begin(), stops.end(), [&](const Win32Control* one) {
    return one != &control && one->State().tabOrder > control.State().tabOrder;
  });
  const auto any = std::find_if(stops.begin(), stops.end(),
                                [&](const Win32Control* one) { return one != &control; });
  const auto next = behind != stops.end() ? behind : any;
  SetFocus(next == stops.end() ? window_ : (*next)->Hwnd());
}

// The first stop; but where that is a mere button, the default one: Enter presses the button that
// has the focus.
Win32Control* Win32Form::FirstFocus() const {
  const std::vector<Win32Control*> stops = TabStops();
  if (stops.empty()) return nullptr;
  if (stops.front()->State().kind != ControlKind::kButton) return stops.front();
  const auto chosen = std::find_if(stops.begin(), stops.end(),
                                   [](const auto* one) { return one->State().isDefault; });
  return chosen == stops.end() ? stops.front() : *chosen;
}

void Win32Form::FocusSomething() {
  if (lastFocus_ && IsWindowEnabled(lastFocus_) && IsWindowVisible(lastFocus_)) {
    SetFocus(lastFocus_);
  } else if (Win32Control* first = FirstFocus()) {
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
  if (!control) {
    if (key == Key::kTab) return MoveFocus(GetKeyState(VK_SHIFT) < 0), true;
    return (key == Key::kEnter && PressMarked(&ControlState::isDefault)) ||
           (key == Key::kEscape && PressMarked(&ControlState::isCancel));
  }
  if (control->KeepsKey(key)) return false;
  const bool presses = key == Key::kEnter || key == Key::kEscape;
  if (presses && IsRepeated(message) && !control->State().multiLine) return true;
  bool used = false;
  if (!control->Calls([&](ControlEvents& events) { used = events.UserKey(key); })) return true;
  return used || UseSystemKey(*control, message.wParam);
}

bool Win32Form::UseSystemKey(Win32Control& control, WPARAM virtualKey) {
  if (virtualKey == VK_TAB && GetKeyState(VK_CONTROL) >= 0) {
    MoveFocus(GetKeyState(VK_SHIFT) < 0);
    return true;
  }
  if (control.IsButton() && IsArrow(virtualKey)) {
    std::vector<Win32Control*> order;
    for (Win32Control* one : InTabOrder(controls_))
      if (one->CanHaveFocus() && one->IsUsable()) order.push_back(one);
    const auto group = GroupOf(order, &control);
    const std::size_t step = virtualKey == VK_LEFT || virtualKey == VK_UP ? group.size() - 1 : 1;
    const auto at = std::find(group.begin(), group.end(), &control) - group.begin();
    Win32Control* next = group[(static_cast<std::size_t>(at) + step) % group.size()];
    SetFocus(next->Hwnd());
    if (IsOption(next)) next->Calls([](ControlEvents& events) { events.UserClick(); });
    return true;
  }
  // A box of one line would only beep at these.
  return (virtualKey == VK_RETURN || virtualKey == VK_ESCAPE) && !control.State().multiLine;
}

bool Win32Form::PressMarked(bool ControlState::*mark) {
  for (Win32Control* control : controls_) {
    if (!(control->State().*mark) || !control->IsUsable()) continue;
    control->Calls([](ControlEvents& events) { events.UserClick(); });
    return true;
  }
  return false;
}

// On a button a letter is enough: there is nothing to type into.
bool Win32Form::OnCharacter(const MSG& message) {
  const Win32Control* control = Focused();
  return control && control->IsButton() && message.wParam > VK_SPACE &&
         PressAccessKey(static_cast<char>(message.wParam));
}

// Of several controls with this key it means the next one behind the focus. A label passes it on
// to the control behind it.
bool Win32Form::PressAccessKey(char letter) {
  std::vector<Win32Control*> order = InTabOrder(controls_);
  const auto focused = std::find(order.begin(), order.end(), Focused());
  if (focused != order.end()) std::rotate(order.begin(), focused + 1, order.end());
  const auto meant = std::find_if(order.begin(), order.end(), [&](const Win32Control* one) {
    return one->IsUsable() && HasCaption(one->State()) &&
           AccessKeyOf(one->State().text) == LowerChar(letter);
  });
  if (meant == order.end()) return false;
  std::rotate(order.begin(), meant, order.end());
  const auto taker = std::find_if(order.begin(), order.end(), [](const Win32Control* one) {
    return one->CanHaveFocus() && one->IsUsable();
  });
  if (taker == order.end()) return true;
  (*taker)->TakeFocus();
  if (taker == order.begin() && (*taker)->IsButton())
    (*taker)->Calls([](ControlEvents& events) { events.UserClick(); });
  return true;
}

}  // namespace corvel::win32
