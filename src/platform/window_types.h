// Handles, messages and geometry: the words in which windows are spoken of, on every home.
//
// The numbers are the window system's own. The names are ours, since its header defines the usual
// ones as macros.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace corvel {

// A window of any process. 0 is no window. 32 bits are enough: the system keeps handles in them on
// its 64-bit editions too. A handle that has died is never given out again within a run of the
// desk; on Windows it may be, much later.
struct Window {
  std::uint32_t value = 0;
  constexpr explicit operator bool() const { return value != 0; }
  friend constexpr auto operator<=>(const Window&, const Window&) = default;
};

// A menu or sub-menu of any process. 0 is none.
struct MenuHandle {
  std::uint32_t value = 0;
  constexpr explicit operator bool() const { return value != 0; }
  friend constexpr auto operator<=>(const MenuHandle&, const MenuHandle&) = default;
};

using ProcessId = std::uint32_t;  // 0 is none
using MessageId = std::uint32_t;
using WParam = std::uintptr_t;
using LParam = std::intptr_t;
using MessageResult = std::intptr_t;

// Screen pixels.
struct Rect {
  int left = 0, top = 0, width = 0, height = 0;
  friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

struct Size {
  int width = 0, height = 0;
  friend constexpr bool operator==(const Size&, const Size&) = default;
};

namespace wm {  // messages
inline constexpr MessageId kCreate = 0x0001;
inline constexpr MessageId kDestroy = 0x0002;
inline constexpr MessageId kMove = 0x0003;
inline constexpr MessageId kSize = 0x0005;
inline constexpr MessageId kSetFocus = 0x0007;
inline constexpr MessageId kKillFocus = 0x0008;
inline constexpr MessageId kEnable = 0x000A;
inline constexpr MessageId kSetText = 0x000C;
inline constexpr MessageId kGetText = 0x000D;
inline constexpr MessageId kGetTextLength = 0x000E;
inline constexpr MessageId kPaint = 0x000F;
inline constexpr MessageId kClose = 0x0010;
inline constexpr MessageId kEraseBackground = 0x0014;
inline constexpr MessageId kShowWindow = 0x0018;
inline constexpr MessageId kChildActivate = 0x0022;
inline constexpr MessageId kNcDestroy = 0x0082;
inline constexpr MessageId kEditSetSelection = 0x00B1;  // from wParam to lParam
inline constexpr MessageId kKeyDown = 0x0100;
inline constexpr MessageId kKeyUp = 0x0101;
inline constexpr MessageId kChar = 0x0102;
inline constexpr MessageId kCommand = 0x0111;
inline constexpr MessageId kTimer = 0x0113;
inline constexpr MessageId kInitMenuPopup = 0x0117;
inline constexpr MessageId kLButtonDown = 0x0201;
inline constexpr MessageId kLButtonUp = 0x0202;
inline constexpr MessageId kLButtonDblClk = 0x0203;
inline constexpr MessageId kRButtonDown = 0x0204;
inline constexpr MessageId kRButtonUp = 0x0205;
inline constexpr MessageId kParentNotify = 0x0210;
inline constexpr MessageId kMdiCreate = 0x0220;
inline constexpr MessageId kMdiDestroy = 0x0221;
inline constexpr MessageId kMdiActivate = 0x0222;
inline constexpr MessageId kUser = 0x0400;
// Combo and list boxes.
inline constexpr MessageId kCbGetCount = 0x0146;
inline constexpr MessageId kCbGetCurSel = 0x0147;
inline constexpr MessageId kCbSetCurSel = 0x014E;
inline constexpr MessageId kCbGetItemData = 0x0150;
inline constexpr MessageId kLbGetCurSel = 0x0188;
inline constexpr MessageId kLbSetCurSel = 0x0186;
inline constexpr MessageId kLbGetCount = 0x018B;
inline constexpr MessageId kLbGetItemData = 0x0199;
}  // namespace wm

namespace menu_flag {  // as the menu calls take them
inline constexpr std::uint32_t kByCommand = 0x0000;
inline constexpr std::uint32_t kByPosition = 0x0400;
inline constexpr std::uint32_t kGrayed = 0x0001;
inline constexpr std::uint32_t kChecked = 0x0008;
inline constexpr std::uint32_t kPopup = 0x0010;
inline constexpr std::uint32_t kSeparator = 0x0800;
}  // namespace menu_flag

namespace show {  // show commands
inline constexpr int kHide = 0;
inline constexpr int kNormal = 1;
inline constexpr int kMaximized = 3;
inline constexpr int kNoActivate = 4;
inline constexpr int kShow = 5;
inline constexpr int kMinimize = 6;
inline constexpr int kRestore = 9;
}  // namespace show

// One message as a window procedure sees it. Where the message carries a text (kSetText and its
// like) `text` holds it and lParam means nothing; where it asks for one (kGetText) the procedure
// fills `answer`, of which the sender takes at most wParam - 1 characters.
struct Message {
  MessageId id = 0;
  WParam wParam = 0;
  LParam lParam = 0;
  std::string_view text{};
  std::string* answer = nullptr;
};

}  // namespace corvel
