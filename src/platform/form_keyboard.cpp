#include "platform/form_keyboard.h"

#include "base/cp1252.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace corvel {
namespace {

// The letter behind a single "&", in lower case, or 0.
char AccessKeyOf(const ControlState& control) {
  const std::string_view caption = control.text;
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[++i] != '&') return LowerChar(caption[i]);
  }
  return 0;
}

bool HasCaption(const ControlState& control) {
  if (control.kind == ControlKind::kLabel) return control.mnemonic;
  return IsButton(control.kind) || control.kind == ControlKind::kFrame;
}

bool IsOption(const ControlState* control) { return control->kind == ControlKind::kOptionButton; }

ControlStates InTabOrder(const ControlStates& controls, const ControlState* hung) {
  ControlStates order;
  std::copy_if(controls.begin(), controls.end(), std::back_inserter(order),
               [hung](const auto* one) { return HungWith(*one) == hung; });
  std::stable_sort(order.begin(), order.end(),
                   [](const auto* a, const auto* b) { return a->tabOrder < b->tabOrder; });
  return order;
}

bool TakesFocus(const ControlState* control) {
  return CanHaveFocus(control->kind) && IsUsable(*control);
}

ControlStates Focusable(const ControlStates& controls, const ControlState* hung) {
  ControlStates order = InTabOrder(controls, hung);
  std::erase_if(order, [](const auto* one) { return !TakesFocus(one); });
  return order;
}

// The buttons that stand beside this one in the tab order, options by themselves: the arrow keys
// move among them.
ControlStates GroupOf(const ControlStates& order, const ControlState* button) {
  const auto belongs = [button](const ControlState* one) {
    return IsButton(one->kind) && IsOption(one) == IsOption(button);
  };
  const auto at = std::find(order.begin(), order.end(), button);
  auto first = at, last = at;
  while (first != order.begin() && belongs(*(first - 1))) --first;
  while (last != order.end() && belongs(*last)) ++last;
  return {first, last};
}

const ControlState* FirstOf(const ControlStates& controls, bool ControlState::*mark) {
  const auto hit = std::find_if(controls.begin(), controls.end(),
                                [mark](const auto* one) { return one->*mark && IsUsable(*one); });
  return hit == controls.end() ? nullptr : *hit;
}

KeyDeed FocusDeed(const ControlState* control) {
  if (!control) return {KeyDeed::Kind::kUsedUp, nullptr};
  return {KeyDeed::Kind::kFocus, control};
}

KeyDeed MoveFocus(const ControlStates& controls, const ControlState* focused, bool backward) {
  ControlStates stops = TabStops(controls, focused ? HungWith(*focused) : nullptr);
  if (stops.empty()) return FocusDeed(nullptr);
  if (backward) std::reverse(stops.begin(), stops.end());
  const auto now = std::find(stops.begin(), stops.end(), focused);
  return FocusDeed(now == stops.end() || now + 1 == stops.end() ? stops.front() : *(now + 1));
}

KeyDeed MoveInGroup(const ControlStates& controls, const ControlState* button, bool backward) {
  const ControlStates group = GroupOf(Focusable(controls, HungWith(*button)), button);
  if (group.empty()) return FocusDeed(nullptr);
  const auto at =
      static_cast<std::size_t>(std::find(group.begin(), group.end(), button) - group.begin());
  const ControlState* next = group[(at + (backward ? group.size() - 1 : 1)) % group.size()];
  return {IsOption(next) ? KeyDeed::Kind::kClick : KeyDeed::Kind::kFocus, next};
}

KeyDeed PressMarked(const ControlStates& controls, bool ControlState::*mark) {
  const ControlState* button = FirstOf(InTabOrder(controls, nullptr), mark);
  return button ? KeyDeed{KeyDeed::Kind::kClick, button} : KeyDeed{};
}

}  // namespace

bool CanHaveFocus(ControlKind kind) {
  return kind != ControlKind::kLabel && kind != ControlKind::kPicture &&
         kind != ControlKind::kFrame && kind != ControlKind::kProgressBar &&
         kind != ControlKind::kContainer;
}

bool IsButton(ControlKind kind) {
  return kind == ControlKind::kButton || kind == ControlKind::kFlatButton ||
         kind == ControlKind::kCheckBox || kind == ControlKind::kOptionButton;
}

bool IsUsable(const ControlState& control) {
  if (!control.visible) return false;
  for (const ControlState* at = &control; at; at = at->container)
    if (!at->enabled) return false;
  return true;
}

const ControlState* HungWith(const ControlState& control) {
  const ControlState* at = &control;
  while (at && !at->host) at = at->container;
  return at;
}

ControlStates TabStops(const ControlStates& controls, const ControlState* hung) {
  const ControlStates order = Focusable(controls, hung);
  ControlStates stops;
  for (const ControlState* control : order) {
    if (IsOption(control)) {
      const ControlStates group = GroupOf(order, control);
      const auto chosen =
          std::find_if(group.begin(), group.end(), [](const auto* one) { return one->value != 0; });
      if (control != (chosen == group.end() ? group.front() : *chosen)) continue;
    }
    stops.push_back(control);
  }
  return stops;
}

const ControlState* FirstFocus(const ControlStates& controls) {
  const ControlStates stops = TabStops(controls, nullptr);
  if (stops.empty()) return nullptr;
  if (stops.front()->kind != ControlKind::kButton) return stops.front();
  const ControlState* chosen = FirstOf(stops, &ControlState::isDefault);
  return chosen ? chosen : stops.front();
}

const ControlState* FocusBehind(const ControlStates& controls, const ControlState& leaving) {
  ControlStates stops = TabStops(controls, HungWith(leaving));
  std::erase(stops, &leaving);
  const auto behind = std::find_if(stops.begin(), stops.end(), [&](const auto* one) {
    return one->tabOrder > leaving.tabOrder;
  });
  if (behind != stops.end()) return *behind;
  return stops.empty() ? nullptr : stops.front();
}

KeyDeed DeedOfKey(const ControlStates& controls, const ControlState* focused, Key key,
                  bool backward) {
  if (key == Key::kTab) return MoveFocus(controls, focused, backward);
  if (!focused) {
    if (key == Key::kEnter) return PressMarked(controls, &ControlState::isDefault);
    if (key == Key::kEscape) return PressMarked(controls, &ControlState::isCancel);
    return {};
  }
  if (IsButton(focused->kind)) {
    if (key == Key::kUp || key == Key::kLeft) return MoveInGroup(controls, focused, true);
    if (key == Key::kDown || key == Key::kRight) return MoveInGroup(controls, focused, false);
  }
  // A box of one line would only beep at these.
  const bool beeps = (key == Key::kEnter || key == Key::kEscape) && !focused->multiLine;
  return {beeps ? KeyDeed::Kind::kUsedUp : KeyDeed::Kind::kNone, nullptr};
}

KeyDeed DeedOfLetter(const ControlStates& controls, const ControlState* focused, char letter) {
  ControlStates order = InTabOrder(controls, focused ? HungWith(*focused) : nullptr);
  const auto now = std::find(order.begin(), order.end(), focused);
  if (now != order.end()) std::rotate(order.begin(), now + 1, order.end());
  const auto meant = std::find_if(order.begin(), order.end(), [&](const ControlState* one) {
    return IsUsable(*one) && HasCaption(*one) && AccessKeyOf(*one) == LowerChar(letter);
  });
  if (meant == order.end()) return {};
  std::rotate(order.begin(), meant, order.end());
  const auto taker = std::find_if(order.begin(), order.end(), TakesFocus);
  if (taker == order.end()) return FocusDeed(nullptr);
  const bool presses = taker == order.begin() && IsButton((*taker)->kind);
  return {presses ? KeyDeed::Kind::kClick : KeyDeed::Kind::kFocus, *taker};
}

}  // namespace corvel
