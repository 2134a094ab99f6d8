// What a form's window does with its messages; see win32_form_peer.h.
#include "platform/win32/callback.h"
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"

#include <algorithm>
#include <windowsx.h>

namespace corvel::win32 {
namespace {

constexpr int kSizingEdge = 4;  // pixels by which a form without a border is sized
constexpr int kSizingCorner = 12;

}  // namespace

// --- Messages ------------------------------------------------------------------------------------

const Win32Form::Row Win32Form::kRows[] = {
    {WM_ACTIVATE, &Win32Form::OnActivate},
    {WM_SETFOCUS, &Win32Form::OnSetFocus},
    {WM_CLOSE, &Win32Form::OnClose},
    {WM_MOVE, &Win32Form::OnMove},
    {WM_SIZE, &Win32Form::OnSize},
    {WM_ENTERSIZEMOVE, &Win32Form::OnEnterSizeMove},
    {WM_EXITSIZEMOVE, &Win32Form::OnExitSizeMove},
    {WM_GETMINMAXINFO, &Win32Form::OnMinMax},
    {WM_NCCALCSIZE, &Win32Form::OnNcCalcSize},
    {WM_NCPAINT, &Win32Form::OnNcPaint},
    {WM_NCACTIVATE, &Win32Form::OnNcActivate},
    {WM_NCHITTEST, &Win32Form::OnNcHitTest},
    {WM_ERASEBKGND, &Win32Form::OnErase},
    {WM_PAINT, &Win32Form::OnPaint},
    {WM_CTLCOLORSTATIC, &Win32Form::OnColor},
    {WM_CTLCOLORBTN, &Win32Form::OnButtonColor},
    {WM_COMMAND, &Win32Form::OnCommand},
    {WM_NOTIFY, &Win32Form::OnNotify},
    {WM_SYSCOLORCHANGE, &Win32Form::OnSysColorChange},
};

LRESULT CALLBACK Win32Form::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<Win32Form*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (id == WM_NCCREATE) {
    self = static_cast<Win32Form*>(reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  if (!self) return DefWindowProcA(window, id, wParam, lParam);
  if (id == WM_NCDESTROY) {  // it may go with its owner, of another process
    self->window_ = nullptr;
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    return DefWindowProcA(window, id, wParam, lParam);
  }
  return Callback::Run([&] { return self->OnMessage(id, wParam, lParam); });
}

LRESULT Win32Form::OnMessage(UINT id, WPARAM wParam, LPARAM lParam) {
  if (id == WM_TIMER || id >= WM_USER) {
    events_.OnMessage(id, wParam, lParam);
    return 0;
  }
  const auto row = std::find_if(std::begin(kRows), std::end(kRows),
                                [id](const Row& one) { return one.message == id; });
  if (row == std::end(kRows)) return Default(id, wParam, lParam);
  return (this->*row->handler)(wParam, lParam);
}

LRESULT Win32Form::Default(UINT id, WPARAM wParam, LPARAM lParam) const {
  return DefWindowProcA(window_, id, wParam, lParam);
}

LRESULT Win32Form::OnActivate(WPARAM wParam, LPARAM lParam) {
  if (LOWORD(wParam) == WA_INACTIVE) {
    if (const Win32Control* control = Focused()) lastFocus_ = control->Hwnd();
    return 0;
  }
  return Default(WM_ACTIVATE, wParam, lParam);
}

LRESULT Win32Form::OnSetFocus(WPARAM, LPARAM) {
  FocusSomething();
  return 0;
}

LRESULT Win32Form::OnClose(WPARAM, LPARAM) {
  events_.UserClose();
  return 0;
}

// --- Place and size ------------------------------------------------------------------------------

// What the user did, or another program.
LRESULT Win32Form::OnMove(WPARAM, LPARAM) {
  // While the user drags the window, it is told once, where he lets it go.
  if (placing_ > 0 || inMoveLoop_ || IsIconic(window_)) return 0;
  RECT place{};
  GetWindowRect(window_, &place);
  events_.UserMoved(static_cast<int>(place.left), static_cast<int>(place.top));
  return 0;
}

LRESULT Win32Form::OnSize(WPARAM, LPARAM) {
  InvalidateRect(window_, nullptr, TRUE);
  if (placing_ > 0 || IsIconic(window_)) return 0;
  RECT place{};
  GetWindowRect(window_, &place);
  events_.UserResized(WidthOf(place), HeightOf(place));
  return 0;
}

LRESULT Win32Form::OnEnterSizeMove(WPARAM, LPARAM) {
  inMoveLoop_ = true;
  return 0;
}

LRESULT Win32Form::OnExitSizeMove(WPARAM, LPARAM) {
  inMoveLoop_ = false;
  return OnMove(0, 0);
}

LRESULT Win32Form::OnMinMax(WPARAM wParam, LPARAM lParam) {
  const LRESULT answer = Default(WM_GETMINMAXINFO, wParam, lParam);
  // The system's least size is that of a window with a caption; the toolkit knows its own.
  if (!state_.border || placing_ > 0)
    reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {1, 1};
  return answer;
}

LRESULT Win32Form::OnNcCalcSize(WPARAM wParam, LPARAM lParam) {
  return state_.border ? Default(WM_NCCALCSIZE, wParam, lParam) : 0;
}

LRESULT Win32Form::OnNcPaint(WPARAM wParam, LPARAM lParam) {
  return state_.border ? Default(WM_NCPAINT, wParam, lParam) : 0;
}

LRESULT Win32Form::OnNcActivate(WPARAM wParam, LPARAM lParam) {
  return state_.border ? Default(WM_NCACTIVATE, wParam, lParam) : TRUE;
}

LRESULT Win32Form::OnNcHitTest(WPARAM wParam, LPARAM lParam) {
  if (!HasOwnSizingEdge()) return Default(WM_NCHITTEST, wParam, lParam);
  RECT place{};
  GetWindowRect(window_, &place);
  const int x = GET_X_LPARAM(lParam), y = GET_Y_LPARAM(lParam);
  const auto side = [](int at, LONG low, LONG high, int edge) {
    return at < low + edge ? 0 : at >= high - edge ? 2 : 1;
  };
  constexpr LRESULT kHits[3][3] = {{HTTOPLEFT, HTTOP, HTTOPRIGHT},
                                   {HTLEFT, HTCLIENT, HTRIGHT},
                                   {HTBOTTOMLEFT, HTBOTTOM, HTBOTTOMRIGHT}};
  const int column = side(x, place.left, place.right, kSizingEdge),
            row = side(y, place.top, place.bottom, kSizingEdge);
  if (column == 1 && row == 1) return HTCLIENT;
  return kHits[row == 1 ? side(y, place.top, place.bottom, kSizingCorner) : row]
              [column == 1 ? side(x, place.left, place.right, kSizingCorner) : column];
}

// --- Drawing -------------------------------------------------------------------------------------

LRESULT Win32Form::OnErase(WPARAM wParam, LPARAM) {
  RECT area{};
  GetClientRect(window_, &area);
  FillRect(reinterpret_cast<HDC>(wParam), &area, ground_);
  return 1;
}

LRESULT Win32Form::OnPaint(WPARAM, LPARAM) {
  PAINTSTRUCT paint{};
  const HDC dc = BeginPaint(window_, &paint);
  if (state_.etchedEdge) {
    RECT area{};
    GetClientRect(window_, &area);
    DrawEtchedEdge(dc, area);
  }
  EndPaint(window_, &paint);
  return 0;
}

LRESULT Win32Form::OnColor(WPARAM wParam, LPARAM lParam) {
  const Win32Control* control = ControlAt(reinterpret_cast<HWND>(lParam));
  const auto color = control ? control->TextOnGround() : std::nullopt;
  if (!color) return Default(WM_CTLCOLORSTATIC, wParam, lParam);
  const HDC dc = reinterpret_cast<HDC>(wParam);
  SetTextColor(dc, *color);
  SetBkColor(dc, groundColor_);
  return reinterpret_cast<LRESULT>(ground_);
}

LRESULT Win32Form::OnButtonColor(WPARAM wParam, LPARAM) {
  SetBkColor(reinterpret_cast<HDC>(wParam), groundColor_);
  return reinterpret_cast<LRESULT>(ground_);
}

LRESULT Win32Form::OnSysColorChange(WPARAM wParam, LPARAM lParam) {
  ShowGround();
  for (const Win32Control* control : controls_)
    if (control->Hwnd()) SendMessageA(control->Hwnd(), WM_SYSCOLORCHANGE, wParam, lParam);
  return 0;
}

// --- What the controls say -----------------------------------------------------------------------

LRESULT Win32Form::OnCommand(WPARAM wParam, LPARAM lParam) {
  if (Win32Control* control = ControlAt(reinterpret_cast<HWND>(lParam)))
    control->OnCommand(HIWORD(wParam));
  return 0;
}

LRESULT Win32Form::OnNotify(WPARAM wParam, LPARAM lParam) {
  auto& notice = *reinterpret_cast<NMHDR*>(lParam);
  for (Win32Control* control : controls_)
    if (control->Hwnd() == notice.hwndFrom) return control->OnNotify(notice);
  return Default(WM_NOTIFY, wParam, lParam);
}

}  // namespace corvel::win32
