#include "practice/win32/text_skin.h"

#include "platform/win32/win32_drawing.h"
#include "practice/controls/text_box.h"

#include <algorithm>
#include <cstdint>

namespace corvel::practice {
namespace {

constexpr int kMargin = 3, kLeading = 3, kRise = 3;
constexpr UINT kMouseWheel = 0x020A;  // later than the oldest system that we run on
constexpr int kWheelLines = 3;
constexpr UINT kSetSelection = 0x00B1, kReplaceSelection = 0x00C2;

bool IsShiftDown() { return GetKeyState(VK_SHIFT) < 0; }

}  // namespace

FontStyle StyleOf(const TextLook& look) {
  return {.bold = look.bold, .italic = look.italic, .underline = look.underline};
}

int FontWidths::Of(char character, const TextLook& look) const {
  auto& table = tables_[(look.bold ? 1U : 0U) + (look.italic ? 2U : 0U)];
  if (!table) {
    table = std::make_unique<Table>();
    const win32::WindowDc dc(nullptr);
    const win32::Selected font(dc.Get(), fonts_.Of({.bold = look.bold, .italic = look.italic}));
    for (int code = 0; code < 256; ++code) {
      // Made bold or slanted by the system, a text is measured with the part that leans out at its
      // end; the second letter adds its width alone.
      const char twice[] = {static_cast<char>(code), static_cast<char>(code)};
      SIZE one{}, two{};
      GetTextExtentPoint32A(dc.Get(), twice, 1, &one);
      GetTextExtentPoint32A(dc.Get(), twice, 2, &two);
      (*table)[static_cast<std::size_t>(code)] = static_cast<int>(two.cx - one.cx);
    }
  }
  return (*table)[static_cast<unsigned char>(character)];
}

TextSkin::TextSkin(TextBox& box, WindowProcedure& inner, win32::DialogFonts& fonts)
    : Skin(inner, fonts), box_(box), widths_(fonts) {}

void TextSkin::OnMade() {
  AddStyles(box_.BreaksLines() ? WS_VSCROLL : 0, WS_EX_CLIENTEDGE);
  UpdateBar();
}

// --- Measures ------------------------------------------------------------------------------------

int TextSkin::LineHeight() { return fonts().Height() + kLeading; }

int TextSkin::Width() const {
  RECT area{};
  GetClientRect(hwnd(), &area);
  return std::max(win32::WidthOf(area) - 2 * kMargin, 1);
}

int TextSkin::VisibleLines() const {
  RECT area{};
  GetClientRect(hwnd(), &area);
  auto* self = const_cast<TextSkin*>(this);
  return std::max((win32::HeightOf(area) - 2) / self->LineHeight(), 1);
}

const TextLayout& TextSkin::Layout() {
  if (stale_) {
    layout_ = TextLayout(box_.text(), box_.Runs(), box_.BreaksLines() ? Width() : 0, &widths_);
    stale_ = false;
  }
  return layout_;
}

// An empty line at the end is worth showing only where the caret can stand in it.
int TextSkin::LineCount() {
  const auto& lines = Layout().Lines();
  const bool hidden = !box_.CanType() && lines.back().pieces.empty() && lines.size() > 1;
  return static_cast<int>(lines.size()) - (hidden ? 1 : 0);
}

int TextSkin::LastTop() { return std::max(LineCount() - VisibleLines(), 0); }

// --- Painting ------------------------------------------------------------------------------------

void TextSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(IsEnabled() ? COLOR_WINDOW : COLOR_BTNFACE));
  const auto& lines = Layout().Lines();
  int y = box_.BreaksLines() ? 1 : std::max((win32::HeightOf(area) - LineHeight()) / 2, 0);
  for (auto number = static_cast<std::size_t>(top_); number < lines.size() && y < area.bottom;
       ++number, y += LineHeight()) {
    PaintSelection(dc, number, lines[number], y);
    PaintLine(dc, lines[number], y);
  }
}

void TextSkin::PaintSelection(HDC dc, std::size_t number, const TextLine& line, int y) {
  const auto [start, end] = box_.selection();
  const std::size_t from = std::max(start, line.start), to = std::min(end, line.end);
  if (!focused_ || from >= to) return;
  const int left = Layout().XOf(from);
  // A place behind the line's end belongs to the next line.
  const bool whole = Layout().LineOf(to) != number;
  const int right = whole ? Width() : Layout().XOf(to);
  const int x = kMargin - left_;
  win32::Fill(dc, {x + left, y, x + right, y + LineHeight()}, GetSysColor(COLOR_HIGHLIGHT));
}

void TextSkin::PaintLine(HDC dc, const TextLine& line, int y) {
  const auto [start, end] = box_.selection();
  for (const LinePiece& piece : line.pieces) {
    const std::size_t last = piece.start + piece.length;
    const std::size_t cuts[] = {piece.start,
                                std::clamp(focused_ ? start : piece.start, piece.start, last),
                                std::clamp(focused_ ? end : piece.start, piece.start, last), last};
    for (std::size_t i = 0; i < 3; ++i) {
      if (cuts[i] >= cuts[i + 1]) continue;
      LinePiece part = piece;
      part.start = cuts[i];
      part.length = cuts[i + 1] - cuts[i];
      part.x = Layout().XOf(part.start);
      PaintPiece(dc, part, y, i == 1);
    }
  }
}

void TextSkin::PaintPiece(HDC dc, const LinePiece& piece, int y, bool selected) {
  const COLORREF own = piece.look.color < 0
                           ? GetSysColor(IsEnabled() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT)
                           : win32::PureColor(static_cast<COLORREF>(piece.look.color));
  SetTextColor(dc, selected ? GetSysColor(COLOR_HIGHLIGHTTEXT) : own);
  const win32::Selected font(dc, fonts().Of(StyleOf(piece.look)));
  // Each letter stands where the layout has put it, so that the caret and the next look meet it.
  std::vector<int> widths;
  const char* const text = box_.text().data() + piece.start;
  for (std::size_t i = 0; i < piece.length; ++i) widths.push_back(widths_.Of(text[i], piece.look));
  ExtTextOutA(dc, kMargin + piece.x - left_, y + 1 - piece.look.rise * kRise, 0, nullptr, text,
              static_cast<UINT>(piece.length), widths.data());
}

// --- Changes -------------------------------------------------------------------------------------

bool TextSkin::OnDefault(const Message& message, MessageResult& result) {
  if (message.id == WM_SETTEXT) {
    // The box keeps its text itself; here is only what has to be drawn.
    TextChanged();
    result = 1;
    return true;
  }
  return Skin::OnDefault(message, result);
}

void TextSkin::TextChanged() {
  const bool atEnd = top_ >= LastTop();
  stale_ = true;
  caret_ = anchor_ = box_.selection().second;
  if (!hwnd()) return;
  UpdateBar();
  if (!box_.CanType()) ScrollTo(atEnd ? LastTop() : top_);
  PlaceCaret(true);
  Repaint();
}

void TextSkin::OnSeen(const Message& message) {
  switch (message.id) {
    case WM_SIZE:
      stale_ = true;
      UpdateBar();
      ScrollTo(box_.CanType() ? top_ : LastTop());
      Repaint();
      return;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      focused_ = message.id == WM_SETFOCUS;
      if (focused_ && box_.CanType()) {
        CreateCaret(hwnd(), nullptr, 1, fonts().Height());
        ShowCaret(hwnd());
        PlaceCaret(false);
      } else {
        DestroyCaret();
      }
      return Repaint();
    case WM_CHAR:
    case WM_KEYDOWN:
    case WM_COMMAND:
    case kSetSelection:
    case kReplaceSelection:
      caret_ = anchor_ = box_.selection().second;
      PlaceCaret(true);
      return Repaint();
    default:
      return Skin::OnSeen(message);
  }
}

void TextSkin::PlaceCaret(bool show) {
  if (!box_.CanType()) return;
  const auto line = static_cast<int>(Layout().LineOf(caret_));
  const int x = Layout().XOf(caret_);
  if (show && line < top_) ScrollTo(line);
  if (show && line >= top_ + VisibleLines()) ScrollTo(line - VisibleLines() + 1);
  if (show && !box_.BreaksLines()) left_ = std::clamp(left_, std::max(x - Width(), 0), x);
  if (!focused_) return;
  RECT area{};
  GetClientRect(hwnd(), &area);
  const int first = box_.BreaksLines() ? 1 : (win32::HeightOf(area) - LineHeight()) / 2;
  SetCaretPos(kMargin + x - left_, first + (line - top_) * LineHeight() + 1);
}

// --- Scrolling -----------------------------------------------------------------------------------

void TextSkin::ScrollTo(int top) {
  if (!box_.BreaksLines()) return;
  top = std::clamp(top, 0, LastTop());
  if (top == top_) return;
  top_ = top;
  UpdateBar();
  PlaceCaret(false);
  Repaint();
}

void TextSkin::UpdateBar() {
  if (!box_.BreaksLines() || !hwnd()) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMax = LineCount() - 1;
  info.nPage = static_cast<UINT>(VisibleLines());
  info.nPos = top_;
  SetScrollInfo(hwnd(), SB_VERT, &info, TRUE);
}

void TextSkin::OnScroll(int request) {
  switch (request) {
    case SB_LINEUP:
      return ScrollTo(top_ - 1);
    case SB_LINEDOWN:
      return ScrollTo(top_ + 1);
    case SB_PAGEUP:
      return ScrollTo(top_ - VisibleLines());
    case SB_PAGEDOWN:
      return ScrollTo(top_ + VisibleLines());
    case SB_TOP:
      return ScrollTo(0);
    case SB_BOTTOM:
      return ScrollTo(LastTop());
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

// --- The user's hand -----------------------------------------------------------------------------

bool TextSkin::OnOwn(const Message& message, MessageResult& result) {
  switch (message.id) {
    case WM_VSCROLL:
      OnScroll(LOWORD(message.wParam));
      return true;
    case kMouseWheel: {
      const auto turn = static_cast<std::int16_t>(HIWORD(message.wParam));
      ScrollTo(top_ - turn / 120 * kWheelLines);
      return true;
    }
    case WM_SETCURSOR:
      if (LOWORD(message.lParam) != HTCLIENT) return false;
      SetCursor(LoadCursorA(nullptr, IDC_IBEAM));
      result = TRUE;
      return true;
    case WM_KEYDOWN:
      return OnKey(message);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      return OnMouse(message);
    default:
      return false;
  }
}

std::size_t TextSkin::PositionAt(LPARAM point) {
  const int x = static_cast<std::int16_t>(LOWORD(point)) - kMargin + left_;
  const int y = static_cast<std::int16_t>(HIWORD(point)) - 1;
  const int line = box_.BreaksLines() ? top_ + y / LineHeight() - (y < 0 ? 1 : 0) : 0;
  const int last = static_cast<int>(Layout().Lines().size()) - 1;
  return Layout().At(static_cast<std::size_t>(std::clamp(line, 0, last)), x);
}

void TextSkin::SelectTo(std::size_t position, bool extend) {
  caret_ = position;
  if (!extend) anchor_ = position;
  box_.Select(anchor_, caret_);
  PlaceCaret(true);
  Repaint();
}

// The first message of a click goes to the client too, the movement is the text's own.
bool TextSkin::OnMouse(const Message& message) {
  if (message.id == WM_CAPTURECHANGED) {
    dragging_ = false;
    return false;
  }
  if (message.id == WM_MOUSEMOVE) {
    if (dragging_) SelectTo(PositionAt(message.lParam), true);
    return dragging_;
  }
  if (message.id == WM_LBUTTONUP) {
    if (dragging_) ReleaseCapture();
    return false;
  }
  SetFocus(hwnd());
  SelectTo(PositionAt(message.lParam), IsShiftDown());
  dragging_ = true;
  SetCapture(hwnd());
  return false;
}

bool TextSkin::OnKey(const Message& message) {
  const TextLayout& layout = Layout();
  const std::size_t line = layout.LineOf(caret_), last = layout.Lines().size() - 1;
  const int x = layout.XOf(caret_);
  const auto lines = static_cast<std::size_t>(VisibleLines());
  switch (message.wParam) {
    case VK_LEFT:
      SelectTo(layout.Before(caret_), IsShiftDown());
      return true;
    case VK_RIGHT:
      SelectTo(layout.After(caret_), IsShiftDown());
      return true;
    case VK_HOME:
      SelectTo(layout.Lines()[line].start, IsShiftDown());
      return true;
    case VK_END:
      SelectTo(layout.At(line, INT16_MAX), IsShiftDown());
      return true;
    case VK_UP:
    case VK_PRIOR: {
      if (!box_.CanType()) return OnScroll(message.wParam == VK_UP ? SB_LINEUP : SB_PAGEUP), true;
      const std::size_t step = message.wParam == VK_UP ? 1 : lines;
      if (!box_.BreaksLines()) return false;
      SelectTo(layout.At(line < step ? 0 : line - step, x), IsShiftDown());
      return true;
    }
    case VK_DOWN:
    case VK_NEXT: {
      if (!box_.CanType())
        return OnScroll(message.wParam == VK_DOWN ? SB_LINEDOWN : SB_PAGEDOWN), true;
      const std::size_t step = message.wParam == VK_DOWN ? 1 : lines;
      if (!box_.BreaksLines()) return false;
      SelectTo(layout.At(std::min(line + step, last), x), IsShiftDown());
      return true;
    }
    default:
      return false;
  }
}

}  // namespace corvel::practice
