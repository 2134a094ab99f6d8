// Controls that we draw: flat buttons, pictures, frames.
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"
#include "platform/win32/win32_mouse_grip.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace corvel::win32 {
namespace {

// The text that a screen reader finds in the window.
const std::string& SpokenText(const ControlState& state) {
  return state.accessibleName.empty() ? state.text : state.accessibleName;
}

// --- Flat button ---------------------------------------------------------------------------------

class FlatButton : public Win32Control {
 public:
  using Win32Control::Win32Control;

  bool KeepsKey(Key key) const override { return key == Key::kSpace; }

 protected:
  WindowKind Kind() const override { return {kControlClass}; }
  void Show(Aspect aspect, int row) override {
    if (aspect == Aspect::kAll || aspect == Aspect::kText) SetWindowTextIfOther(State().text);
    if (!IsUsable()) hot_ = pressed_ = false;
    Win32Control::Show(aspect, row);
    InvalidateRect(Hwnd(), nullptr, FALSE);
  }

  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override {
    struct Row {
      UINT message;
      std::optional<LRESULT> (FlatButton::*handler)(WPARAM, LPARAM);
    };
    static constexpr Row kRows[] = {
        {WM_ERASEBKGND, &FlatButton::OnErase},    {WM_PAINT, &FlatButton::OnPaint},
        {WM_TIMER, &FlatButton::OnTimer},         {WM_MOUSEMOVE, &FlatButton::OnMouseMove},
        {WM_LBUTTONDOWN, &FlatButton::OnDown},    {WM_LBUTTONUP, &FlatButton::OnUp},
        {WM_KEYDOWN, &FlatButton::OnKeyDown},     {WM_KEYUP, &FlatButton::OnKeyUp},
        {WM_CAPTURECHANGED, &FlatButton::OnLoss}, {WM_SETFOCUS, &FlatButton::OnLoss},
        {WM_KILLFOCUS, &FlatButton::OnLoss},
    };
    for (const Row& row : kRows)
      if (row.message == id)
        if (const auto answer = (this->*row.handler)(wParam, lParam)) return answer;
    return Win32Control::OnMessage(id, wParam, lParam);
  }

 private:
  static constexpr UINT_PTR kHoverTimer = 1;
  static constexpr UINT kHoverMs = 50;

  std::optional<LRESULT> OnErase(WPARAM, LPARAM) { return 1; }
  std::optional<LRESULT> OnPaint(WPARAM, LPARAM) {
    const BufferedPaint paint(Hwnd());
    Fill(paint.Dc(), paint.Area(), Form() ? Form()->Ground() : GetSysColor(COLOR_3DFACE));
    if (!Form()) return 0;
    const ButtonStand stand{State().enabled, hot_, pressed_, GetFocus() == Hwnd()};
    DrawFlatButton(paint.Dc(), paint.Area(), State(), stand, Form()->Fonts().Of(State().font));
    return 0;
  }
  std::optional<LRESULT> OnTimer(WPARAM, LPARAM) { return SetHot(IsUnderMouse()), 0; }
  std::optional<LRESULT> OnMouseMove(WPARAM, LPARAM lParam) {
    SetHot(IsUnderMouse());
    if (GetCapture() == Hwnd()) SetPressed(Holds(lParam));
    return 0;
  }
  std::optional<LRESULT> OnDown(WPARAM, LPARAM) {
    SetFocus(Hwnd());
    SetCapture(Hwnd());
    return SetPressed(true), 0;
  }
  std::optional<LRESULT> OnUp(WPARAM, LPARAM lParam) {
    if (GetCapture() == Hwnd()) Release(Holds(lParam));
    return 0;
  }
  std::optional<LRESULT> OnKeyDown(WPARAM virtualKey, LPARAM) {
    if (virtualKey != VK_SPACE) return std::nullopt;
    return SetPressed(true), 0;
  }
  std::optional<LRESULT> OnKeyUp(WPARAM virtualKey, LPARAM) {
    if (virtualKey != VK_SPACE) return std::nullopt;
    return Release(pressed_), 0;
  }
  // Of the mouse or the focus; gaining the focus draws it too.
  std::optional<LRESULT> OnLoss(WPARAM, LPARAM) {
    pressed_ = false;
    InvalidateRect(Hwnd(), nullptr, FALSE);
    return std::nullopt;
  }

  bool Holds(LPARAM lParam) const {
    RECT area{};
    GetClientRect(Hwnd(), &area);
    return PtInRect(&area,
                    {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))}) != 0;
  }
  bool IsUnderMouse() const {
    POINT at{};
    GetCursorPos(&at);
    return WindowFromPoint(at) == Hwnd();
  }
  // The system doesn't say when the mouse leaves a window; so we look for it while it is there.
  void SetHot(bool hot) {
    if (hot == hot_) return;
    hot_ = hot;
    if (hot)
      SetTimer(Hwnd(), kHoverTimer, kHoverMs, nullptr);
    else
      KillTimer(Hwnd(), kHoverTimer);
    InvalidateRect(Hwnd(), nullptr, FALSE);
  }
  void SetPressed(bool pressed) {
    if (pressed == pressed_) return;
    pressed_ = pressed;
    InvalidateRect(Hwnd(), nullptr, FALSE);
    UpdateWindow(Hwnd());
  }
  void Release(bool clicked) {
    SetPressed(false);
    if (GetCapture() == Hwnd()) ReleaseCapture();
    if (clicked) Calls([](ControlEvents& events) { events.UserClick(); });
  }

  bool hot_ = false, pressed_ = false;
};

// --- Picture -------------------------------------------------------------------------------------

class PictureControl : public GripControl {
 public:
  using GripControl::GripControl;

 protected:
  WindowKind Kind() const override { return {kControlClass}; }
  void Show(Aspect aspect, int row) override {
    if (aspect != Aspect::kPlace) SetWindowTextIfOther(SpokenText(State()));
    GripControl::Show(aspect, row);
    InvalidateRect(Hwnd(), nullptr, FALSE);
  }
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override {
    if (id == WM_ERASEBKGND) return 1;
    if (id != WM_PAINT) return GripControl::OnMessage(id, wParam, lParam);
    Paint();
    return 0;
  }

 private:
  void Paint() const {
    const BufferedPaint paint(Hwnd());
    if (!Form()) return Fill(paint.Dc(), paint.Area(), GetSysColor(COLOR_3DFACE));
    Fill(paint.Dc(), paint.Area(), Form()->Ground());
    if (State().picture == Picture::kTextRuns)
      DrawRuns(paint.Dc());
    else if (State().picture == Picture::kGradient)
      DrawGradient(paint.Dc(), paint.Area());
    else if (const HICON icon = IconOf(State().picture))
      DrawIcon(paint.Dc(), 0, 0, icon);
  }

  void DrawRuns(HDC dc) const {
    for (const TextRun& run : State().runs) {
      const Selected font(dc, Form()->Fonts().Of(run.style));
      SetTextColor(dc, PureColor(ToColorRef(run.style.color)));
      TextOutA(dc, run.x, run.y, run.text.data(), static_cast<int>(run.text.size()));
    }
  }

  // Dark to light blue, as the title bars of the day have it, with the picture's name on it.
  void DrawGradient(HDC dc, const RECT& area) const {
    FillGradient(dc, area, RGB(0, 0, 96), RGB(16, 132, 208), false);
    LOGFONTA letters{};
    GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof letters, &letters);
    letters.lfHeight = -std::max(HeightOf(area) * 2 / 3, 8);
    letters.lfWeight = FW_BOLD;
    letters.lfItalic = TRUE;
    constexpr std::string_view kFace = "Times New Roman";
    letters.lfFaceName[kFace.copy(letters.lfFaceName, LF_FACESIZE - 1)] = '\0';
    const HFONT font = CreateFontIndirectA(&letters);
    DrawName(dc, area, font);
    DeleteObject(font);
  }
  void DrawName(HDC dc, const RECT& area, HFONT font) const {
    const Selected chosen(dc, font);
    const std::string& name = SpokenText(State());
    for (const auto& [shift, color] : {std::pair{2, RGB(0, 0, 48)}, {0, RGB(255, 255, 255)}}) {
      RECT line{area.left + 8 + shift, area.top + shift, area.right, area.bottom};
      SetTextColor(dc, color);
      DrawTextA(dc, name.data(), static_cast<int>(name.size()), &line,
                DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
  }

  static HICON IconOf(Picture picture) {
    switch (picture) {
      case Picture::kInformation:
        return LoadIconA(nullptr, IDI_ASTERISK);
      case Picture::kExclamation:
        return LoadIconA(nullptr, IDI_EXCLAMATION);
      case Picture::kQuestion:
        return LoadIconA(nullptr, IDI_QUESTION);
      case Picture::kStop:
        return LoadIconA(nullptr, IDI_HAND);
      case Picture::kProgramIcon:
        return LoadProgramIcon();
      default:
        return nullptr;
    }
  }
};

// --- Frame ---------------------------------------------------------------------------------------

// Stands behind the controls that it frames, which are cut out of what it draws.
class Frame : public Win32Control {
 public:
  using Win32Control::Win32Control;

 protected:
  WindowKind Kind() const override { return {kControlClass}; }
  void Show(Aspect aspect, int row) override {
    if (aspect == Aspect::kAll || aspect == Aspect::kText) SetWindowTextIfOther(State().text);
    Win32Control::Show(aspect, row);
    InvalidateRect(Hwnd(), nullptr, FALSE);
  }
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override {
    if (id == WM_ERASEBKGND) return 1;
    if (id == WM_NCHITTEST) return HTTRANSPARENT;  // the mouse means the form
    if (id != WM_PAINT) return Win32Control::OnMessage(id, wParam, lParam);
    Paint();
    return 0;
  }

 private:
  void Paint() const {
    constexpr int kTextLeft = 9;
    const BufferedPaint paint(Hwnd());
    const HDC dc = paint.Dc();
    RECT area = paint.Area();
    if (!Form()) return Fill(dc, area, GetSysColor(COLOR_3DFACE));
    const COLORREF ground = Form()->Ground();
    Fill(dc, area, ground);
    const Selected font(dc, Form()->Fonts().Of(State().font));
    const int line = Form()->Fonts().Height();
    if (!State().text.empty()) area.top += line / 2;
    DrawEdge(dc, &area, EDGE_ETCHED, BF_RECT);
    if (State().text.empty()) return;
    const Size extent = Form()->Fonts().Extent(State().text, State().font);
    RECT caption{kTextLeft, 0, kTextLeft + extent.width, line};
    Fill(dc, {caption.left - 2, 0, caption.right + 2, line}, ground);
    SetTextColor(dc, GetSysColor(State().enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    DrawTextA(dc, State().text.data(), static_cast<int>(State().text.size()), &caption,
              DT_SINGLELINE);
  }
};

}  // namespace

std::unique_ptr<Win32Control> MakeFlatButton(Win32Form& form, const ControlState& state,
                                             ControlEvents& events) {
  return std::make_unique<FlatButton>(form, state, events);
}

std::unique_ptr<Win32Control> MakePicture(Win32Form& form, const ControlState& state,
                                          ControlEvents& events) {
  return std::make_unique<PictureControl>(form, state, events);
}

std::unique_ptr<Win32Control> MakeFrame(Win32Form& form, const ControlState& state,
                                        ControlEvents& events) {
  return std::make_unique<Frame>(form, state, events);
}

}  // namespace corvel::win32
