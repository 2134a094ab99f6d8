#include "practice/win32/list_skin.h"

#include "platform/win32/callback.h"
#include "platform/win32/win32_drawing.h"

#include <algorithm>

namespace corvel::practice {
namespace {

constexpr UINT kAddString = 0x0180, kDeleteString = 0x0182, kSetCurSel = 0x0186;
constexpr UINT kMouseWheel = 0x020A;
constexpr int kRow = RowList::kRowHeight;

// The rows themselves are the client's; the system is only told that they have changed.
bool IsRowNotice(const Message& message) {
  return message.id == kAddString || message.id == kDeleteString || message.id == kSetCurSel;
}

void DrawRow(HDC dc, RECT area, const std::string& text, bool selected) {
  if (selected) win32::Fill(dc, area, GetSysColor(COLOR_HIGHLIGHT));
  SetTextColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  area.left += 3;
  DrawTextA(dc, text.data(), static_cast<int>(text.size()), &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

}  // namespace

bool ListSkin::OnDefault(const Message& message, MessageResult& result) {
  if (!IsRowNotice(message)) return Skin::OnDefault(message, result);
  UpdateBar();
  ScrollTo(top_);
  Repaint();
  return true;
}

int ListSkin::VisibleRows() const {
  RECT area{};
  GetClientRect(hwnd(), &area);
  return std::max(win32::HeightOf(area) / kRow, 1);
}

void ListSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(COLOR_WINDOW));
  const win32::Selected font(dc, fonts().Of({}));
  for (int row = top_; row < static_cast<int>(list_.Count()); ++row) {
    const int y = (row - top_) * kRow;
    if (y >= area.bottom) break;
    DrawRow(dc, {0, y, area.right, y + kRow}, list_.NameAt(row), row == list_.selected());
  }
  if (focused_) {
    const int y = (list_.selected() - top_) * kRow;
    const RECT around{0, y, area.right, y + kRow};
    if (list_.selected() >= top_) DrawFocusRect(dc, &around);
  }
}

void ListSkin::OnSeen(const Message& message) {
  if (message.id == WM_SETFOCUS || message.id == WM_KILLFOCUS) {
    focused_ = message.id == WM_SETFOCUS;
    Repaint();
  }
  if (message.id == WM_SIZE) UpdateBar();
  Skin::OnSeen(message);
}

bool ListSkin::OnOwn(const Message& message, MessageResult& result) {
  switch (message.id) {
    case WM_VSCROLL:
      OnScroll(LOWORD(message.wParam));
      return true;
    case kMouseWheel:
      ScrollTo(top_ - static_cast<std::int16_t>(HIWORD(message.wParam)) / 40);
      return true;
    case WM_KEYDOWN:
      if (message.wParam != VK_UP && message.wParam != VK_DOWN) return false;
      MoveSelection(message.wParam == VK_UP ? -1 : 1);
      return true;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      SetFocus(hwnd());
      // The client counts from its first row, seen or not.
      Message moved = message;
      moved.lParam += static_cast<LParam>(top_ * kRow) << 16;
      result = Pass(moved);
      return true;
    }
    default:
      return false;
  }
}

void ListSkin::MoveSelection(int rows) {
  const int last = static_cast<int>(list_.Count()) - 1;
  const int row = std::clamp(list_.selected() + rows, 0, std::max(last, 0));
  SendMessageA(hwnd(), kSetCurSel, static_cast<WPARAM>(row), 0);
  if (row < top_) ScrollTo(row);
  if (row >= top_ + VisibleRows()) ScrollTo(row - VisibleRows() + 1);
}

void ListSkin::ScrollTo(int top) {
  const int last = std::max(static_cast<int>(list_.Count()) - VisibleRows(), 0);
  top = std::clamp(top, 0, last);
  if (top == top_) return;
  top_ = top;
  UpdateBar();
  Repaint();
}

void ListSkin::UpdateBar() {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(static_cast<int>(list_.Count()) - 1, 0);
  info.nPage = static_cast<UINT>(VisibleRows());
  info.nPos = top_;
  SetScrollInfo(hwnd(), SB_VERT, &info, TRUE);
}

void ListSkin::OnScroll(int request) {
  switch (request) {
    case SB_LINEUP:
      return ScrollTo(top_ - 1);
    case SB_LINEDOWN:
      return ScrollTo(top_ + 1);
    case SB_PAGEUP:
      return ScrollTo(top_ - VisibleRows());
    case SB_PAGEDOWN:
      return ScrollTo(top_ + VisibleRows());
    case SB_THUMBTRACK: {
      SCROLLINFO info{};
      info.cbSize = sizeof info;
      info.fMask = SIF_TRACKPOS;
      GetScrollInfo(hwnd(), SB_VERT, &info);
      return ScrollTo(info.nTrackPos);
    }
    default:
      return;
  }
}

// --- Combo ---------------------------------------------------------------------------------------

bool ComboSkin::OnDefault(const Message& message, MessageResult& result) {
  if (!IsRowNotice(message)) return Skin::OnDefault(message, result);
  Repaint();
  return true;
}

void ComboSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(COLOR_WINDOW));
  const win32::Selected font(dc, fonts().Of({}));
  const int button = GetSystemMetrics(SM_CXVSCROLL);
  RECT face = area, arrow = area;
  face.right = arrow.left = std::max<LONG>(area.right - button, area.left);
  DrawRow(dc, face, list_ == nullptr ? Text() : list_->NameAt(list_->selected()), false);
  DrawFrameControl(dc, &arrow, DFC_SCROLL, DFCS_SCROLLCOMBOBOX);
}

bool ComboSkin::OnOwn(const Message& message, MessageResult& result) {
  const bool pressed = message.id == WM_LBUTTONDOWN || message.id == WM_LBUTTONDBLCLK;
  const bool down = message.id == WM_KEYDOWN && message.wParam == VK_DOWN;
  if (!pressed && !down) return false;
  result = 0;
  if (list_ != nullptr) Choose();
  return true;
}

void ComboSkin::Choose() {
  const HMENU menu = CreatePopupMenu();
  for (std::size_t row = 0; row < list_->Count(); ++row) {
    const bool chosen = static_cast<int>(row) == list_->selected();
    AppendMenuA(menu, MF_STRING | (chosen ? MF_CHECKED : 0), row + 1,
                list_->NameAt(static_cast<int>(row)).c_str());
  }
  RECT place{};
  GetWindowRect(hwnd(), &place);
  const HWND window = hwnd();
  const auto chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, place.left, place.bottom,
                                     0, window, nullptr);
  DestroyMenu(menu);
  win32::Callback::Rethrow();
  if (chosen > 0 && IsWindow(window))
    SendMessageA(window, CB_SETCURSEL, static_cast<WPARAM>(chosen - 1), 0);
}

}  // namespace corvel::practice
