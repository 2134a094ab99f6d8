// The user's hand by mouse and keys; see control_hand.h.
#include "tools/win32/control_hand.h"

#include "platform/win32/handles.h"

#include <algorithm>
#include <commctrl.h>

namespace corvel::tools {
namespace {

using Spot = Hands::Spot;
using win32::ToHmenu;
using win32::ToHwnd;

constexpr int kMostScrolls = 200, kMostTabs = 80, kMostClicks = 3;

POINT MiddleOf(const RECT& area) {
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

Spot SpotIn(HWND window, POINT at) {
  if (!IsWindowVisible(window)) return {{}, nullptr, "it is not visible"};
  return {at, window, ""};
}

Spot FrameSpot(HWND window, POINT at) {
  Spot spot = SpotIn(window, at);
  spot.inFrame = true;
  return spot;
}

Spot MiddleSpot(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return SpotIn(window, MiddleOf(area));
}

// --- Rows ----------------------------------------------------------------------------------------

RECT RowArea(HWND list, ControlKind kind, int row) {
  RECT area{};
  area.left = LVIR_BOUNDS;  // for the list view; the others overwrite it
  const UINT ask = kind == ControlKind::kListView   ? UINT{LVM_GETITEMRECT}
                   : kind == ControlKind::kTabStrip ? UINT{TCM_GETITEMRECT}
                                                    : UINT{LB_GETITEMRECT};
  SendMessageA(list, ask, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  return area;
}

RECT RowsArea(HWND list, ControlKind kind) {
  RECT area{}, header{};
  GetClientRect(list, &area);
  if (kind != ControlKind::kListView) return area;
  GetWindowRect(reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0)), &header);
  area.top += header.bottom - header.top;
  return area;
}

Spot RowSpot(HWND list, ControlKind kind, int row) {
  constexpr LONG kIndent = 40;  // of long rows the beginning is what one points at
  const RECT area = RowArea(list, kind, row);
  POINT at = MiddleOf(area);
  if (kind != ControlKind::kTabStrip) at.x = std::min(at.x, area.left + kIndent);
  ClientToScreen(list, &at);
  return SpotIn(list, at);
}

// At the end of the scroll bar that brings the row nearer.
Spot ArrowSpot(HWND list, bool down) {
  RECT area{};
  GetWindowRect(list, &area);
  InflateRect(&area, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
  const int half = GetSystemMetrics(SM_CYVSCROLL) / 2;
  return FrameSpot(list, {area.right - GetSystemMetrics(SM_CXVSCROLL) / 2,
                          down ? area.bottom - half : area.top + half});
}

HWND OpenComboList() {
  for (HWND list = nullptr; (list = FindWindowExA(nullptr, list, "ComboLBox", nullptr)) != nullptr;)
    if (IsWindowVisible(list)) return list;
  return nullptr;
}

// --- Frames and menus ----------------------------------------------------------------------------

Spot CloseBoxSpot(HWND form) {
  RECT area{};
  GetWindowRect(form, &area);
  const int y = area.top + GetSystemMetrics(SM_CYFIXEDFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2;
  int right = 0, left = 0;
  for (int x = area.right; x > area.left; --x) {
    if (SendMessageA(form, WM_NCHITTEST, 0, MAKELPARAM(x, y)) != HTCLOSE) continue;
    if (right == 0) right = x;
    left = x;
  }
  if (right == 0) return {{}, nullptr, "it has no close box"};
  return FrameSpot(form, {(left + right) / 2, y});
}

Spot TitleSpot(HWND form) {
  RECT area{};
  GetWindowRect(form, &area);
  const int y = area.top + GetSystemMetrics(SM_CYFIXEDFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2;
  return SpotIn(form, {(area.left + area.right) / 2, y});
}

Spot MenuRowSpot(HMENU menu, int row) {
  RECT area{};
  const bool is = GetMenuItemRect(nullptr, menu, static_cast<UINT>(row), &area) != FALSE;
  char shown[16] = "";
  if (is) GetClassNameA(WindowFromPoint(MiddleOf(area)), shown, sizeof shown);
  if (std::string(shown) != "#32768") return {{}, nullptr, "the menu is not seen"};
  return {MiddleOf(area), nullptr, ""};
}

// Straight over from the row that has opened this menu: on a slant the pointer would open another.
Spot BesideSpot(HMENU menu) {
  Spot first = MenuRowSpot(menu, 0), last = MenuRowSpot(menu, GetMenuItemCount(menu) - 1);
  POINT pointer{};
  GetCursorPos(&pointer);
  first.at.y = std::clamp(pointer.y, first.at.y, std::max(first.at.y, last.at.y));
  return first;
}

}  // namespace

Deed ControlHand::Begin(Window, std::function<void()> act) {
  act();
  return begun_();
}

void ControlHand::Click(const ControlView& control) {
  hands_.Click([window = ToHwnd(control.window)] { return MiddleSpot(window); });
}

void ControlHand::DoubleClick(const ControlView& control) {
  const HWND window = ToHwnd(control.window);
  const ControlKind kind = control.state->kind;
  hands_.Click(
      [window, kind, row = HasRows(kind) ? control.state->selected : -1] {
        return row < 0 ? MiddleSpot(window) : RowSpot(window, kind, row);
      },
      Hands::Button::kLeft, 2);
}

// On a list it is about the current row, where there is one.
void ControlHand::RightClick(const ControlView& control) {
  const ControlState& state = *control.state;
  const bool onRow =
      HasRows(state.kind) && state.kind != ControlKind::kComboBox && HasRow(state, state.selected);
  hands_.Click(
      [window = ToHwnd(control.window), kind = state.kind, row = onRow ? state.selected : -1] {
        return row < 0 ? MiddleSpot(window) : RowSpot(window, kind, row);
      },
      Hands::Button::kRight);
}

void ControlHand::Select(const ControlView& control, int row, bool keepMarked) {
  if (control.state->kind == ControlKind::kComboBox)
    OpenAndClickRow(ToHwnd(control.window), row);
  else
    ClickRow(ToHwnd(control.window), control.state->kind, row, keepMarked, kMostScrolls);
}

// Scrolls until the row is in sight.
void ControlHand::ClickRow(HWND list, ControlKind kind, int row, bool control, int scrolls) {
  hands_.Then([this, list, kind, row, control, scrolls]() -> std::string {
    const RECT at = RowArea(list, kind, row), room = RowsArea(list, kind);
    const bool above = at.top < room.top;
    const bool below = !above && at.top > room.top && at.bottom > room.bottom;
    if (kind == ControlKind::kTabStrip || (!above && !below)) {
      hands_.Click([list, kind, row] { return RowSpot(list, kind, row); }, Hands::Button::kLeft, 1,
                   control);
      return {};
    }
    if (scrolls == 0) return "the row does not come into sight";
    hands_.ClickAgain([list, below] { return ArrowSpot(list, below); });
    ClickRow(list, kind, row, control, scrolls - 1);
    return {};
  });
}

void ControlHand::OpenAndClickRow(HWND combo, int row) {
  hands_.Click([combo] { return MiddleSpot(combo); });
  hands_.Await([] { return OpenComboList() != nullptr; }, "its list does not open");
  hands_.Then([this, row]() -> std::string {
    ClickRow(OpenComboList(), ControlKind::kListBox, row, false, kMostScrolls);
    return {};
  });
}

// What stands there is kept if the text only goes on behind it, else it is marked and typed over.
void ControlHand::Type(const ControlView& control, const std::string& wholeText) {
  const ControlState& state = *control.state;
  const HWND window = ToHwnd(control.window);
  const bool goesOn = wholeText.starts_with(state.text);
  const std::string typed = goesOn ? wholeText.substr(state.text.size()) : wholeText;
  if (GetFocus() != window) hands_.Click([window] { return MiddleSpot(window); });
  if (!goesOn) hands_.Press(VK_HOME, {.control = true});
  hands_.Press(VK_END, {.control = true, .shift = !goesOn});
  if (typed.empty() && !goesOn) hands_.Press(VK_DELETE);
  hands_.Type(typed);
}

void ControlHand::Press(const ControlView& control, Key key) {
  hands_.BringToFront(RootOf(ToHwnd(control.window)));
  GoByTab(control.window, kMostTabs);
  hands_.Press(VirtualKeyOf(key), {.control = key == Key::kControlEnter});
}

void ControlHand::GoByTab(Window control, int presses) {
  hands_.Then([this, control, presses]() -> std::string {
    if (FocusedControl() == control) return {};
    if (presses == 0) return "the keyboard can't be brought to it";
    hands_.Press(VK_TAB);
    GoByTab(control, presses - 1);
    return {};
  });
}

// Pressed at the label, along, and let go; the system moves the form meanwhile.
void ControlHand::DragForm(const FormView&, const ControlView& label, int dx, int dy) {
  hands_.Drag([window = ToHwnd(label.window)] { return MiddleSpot(window); }, dx, dy);
}

void ControlHand::Close(const FormView& form) {
  hands_.Click([window = ToHwnd(form.window)] { return CloseBoxSpot(window); });
}

void ControlHand::Move(const FormView& form, int left, int top) {
  const Rect& place = form.state->place;
  hands_.Drag([window = ToHwnd(form.window)] { return TitleSpot(window); }, left - place.left,
              top - place.top);
}

void ControlHand::ChooseRow(MenuHandle popup, const std::vector<int>& rows) {
  HMENU menu = ToHmenu(popup);
  for (std::size_t depth = 0; depth + 1 < rows.size(); ++depth) {
    hands_.PointAt([menu, row = rows[depth]] { return MenuRowSpot(menu, row); });
    menu = GetSubMenu(menu, rows[depth]);
    hands_.PointAt([menu] { return BesideSpot(menu); });
  }
  ClickMenuRow(menu, rows.back(), kMostClicks);
}

// A menu that is slow to open may not hear of the first click.
void ControlHand::ClickMenuRow(HMENU menu, int row, int clicks) {
  const auto isGone = [menu, row] { return !MenuRowSpot(menu, row).refusal.empty(); };
  hands_.Click([menu, row] { return MenuRowSpot(menu, row); });
  hands_.Await(isGone, "");
  hands_.Then([this, isGone, menu, row, clicks]() -> std::string {
    if (isGone()) return {};
    if (clicks == 1) return "the menu stays open";
    ClickMenuRow(menu, row, clicks - 1);
    return {};
  });
}

}  // namespace corvel::tools
