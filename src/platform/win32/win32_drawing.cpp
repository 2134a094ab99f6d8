#include "platform/win32/win32_drawing.h"

#include <algorithm>
#include <cstdint>

namespace corvel::win32 {
namespace {

constexpr int kFewColors = 8;  // bits a pixel, up to which the screen has a palette
constexpr int kSteps = 64;     // of a gradient
constexpr int kArrowRoom = 10, kArrowWidth = 7;
constexpr COLORREF kBlack = 0x000000;

bool HasFewColors() {
  const WindowDc screen(nullptr);
  return GetDeviceCaps(screen.Get(), BITSPIXEL) * GetDeviceCaps(screen.Get(), PLANES) <= kFewColors;
}

int Channel(int a, int b, int percentOfB) { return a + (b - a) * percentOfB / 100; }

}  // namespace

BufferedPaint::BufferedPaint(HWND window) : window_(window) {
  BeginPaint(window_, &paint_);
  GetClientRect(window_, &area_);
  memory_ = CreateCompatibleDC(paint_.hdc);
  bitmap_ =
      CreateCompatibleBitmap(paint_.hdc, std::max(WidthOf(area_), 1), std::max(HeightOf(area_), 1));
  before_ = SelectObject(memory_, bitmap_);
  SetBkMode(memory_, TRANSPARENT);
}

BufferedPaint::~BufferedPaint() {
  BitBlt(paint_.hdc, 0, 0, WidthOf(area_), HeightOf(area_), memory_, 0, 0, SRCCOPY);
  SelectObject(memory_, before_);
  DeleteObject(bitmap_);
  DeleteDC(memory_);
  EndPaint(window_, &paint_);
}

COLORREF ToColorRef(Color color) {
  const auto bits = static_cast<std::uint32_t>(color);
  return bits & 0x80000000U ? GetSysColor(static_cast<int>(bits & 0xFF)) : bits & 0xFFFFFFU;
}

COLORREF PureColor(COLORREF color) {
  const WindowDc screen(nullptr);
  return GetNearestColor(screen.Get(), color) & 0xFFFFFFU;
}

COLORREF Mixed(COLORREF a, COLORREF b, int percentOfB) {
  return RGB(Channel(GetRValue(a), GetRValue(b), percentOfB),
             Channel(GetGValue(a), GetGValue(b), percentOfB),
             Channel(GetBValue(a), GetBValue(b), percentOfB));
}

void Fill(HDC dc, const RECT& area, COLORREF color) { FillRect(dc, &area, Brush(color).Get()); }

void Outline(HDC dc, const RECT& area, COLORREF leftAndTop, COLORREF rightAndBottom) {
  Fill(dc, {area.left, area.top, area.right - 1, area.top + 1}, leftAndTop);
  Fill(dc, {area.left, area.top, area.left + 1, area.bottom - 1}, leftAndTop);
  Fill(dc, {area.right - 1, area.top, area.right, area.bottom}, rightAndBottom);
  Fill(dc, {area.left, area.bottom - 1, area.right, area.bottom}, rightAndBottom);
}

// In bands, each of a plain brush: with few colours the system mixes each of them from dots.
void FillGradient(HDC dc, const RECT& area, COLORREF from, COLORREF to, bool downward) {
  const int length = downward ? HeightOf(area) : WidthOf(area);
  const int steps = std::clamp(length, 1, kSteps);
  for (int step = 0; step < steps; ++step) {
    const int begin = length * step / steps, end = length * (step + 1) / steps;
    RECT band = area;
    (downward ? band.top : band.left) = (downward ? area.top : area.left) + begin;
    (downward ? band.bottom : band.right) = (downward ? area.top : area.left) + end;
    Fill(dc, band, Mixed(from, to, steps > 1 ? step * 100 / (steps - 1) : 0));
  }
}

// One pixel larger than the window, so that of the two lines the inner one is seen.
void DrawEtchedEdge(HDC dc, const RECT& client) {
  RECT area = client;
  InflateRect(&area, 1, 1);
  DrawEdge(dc, &area, EDGE_ETCHED, BF_TOPLEFT);
  DrawEdge(dc, &area, EDGE_ETCHED, BF_BOTTOMRIGHT);
}

// --- Flat buttons --------------------------------------------------------------------------------

namespace {

// The colours of a flat button as it stands, ready for the screen.
struct Shades {
  COLORREF top, bottom, light, dark, shadow, caption;
};

Shades ShadesOf(const ButtonLook& look, const ButtonStand& stand) {
  const COLORREF face = ToColorRef(look.face), second = ToColorRef(look.secondFace);
  Shades shades{};
  shades.top = Mixed(face, second, stand.hot ? 80 : 55);
  shades.bottom = stand.hot ? Mixed(face, second, 20) : face;
  if (stand.pressed) std::swap(shades.top, shades.bottom);
  shades.dark = Mixed(face, kBlack, 45);
  shades.light = stand.hot ? ToColorRef(look.highlight) : Mixed(face, second, 90);
  shades.shadow = Mixed(ToColorRef(static_cast<Color>(0x8000000F)), kBlack, 50);
  shades.caption = stand.enabled ? ToColorRef(look.caption) : Mixed(face, kBlack, 38);
  return shades;
}

void DrawFace(HDC dc, RECT area, const Shades& shades, const ButtonStand& stand) {
  if (HasFewColors())
    Fill(dc, area, PureColor(shades.bottom));
  else
    FillGradient(dc, area, shades.top, shades.bottom, true);
  Outline(dc, area, shades.dark, shades.dark);
  InflateRect(&area, -1, -1);
  if (stand.pressed)
    Outline(dc, area, Mixed(shades.top, shades.dark, 60), shades.top);
  else if (stand.enabled)
    Outline(dc, area, shades.light, Mixed(shades.bottom, shades.dark, 45));
}

void DrawArrow(HDC dc, const RECT& area, COLORREF color) {
  const LONG middle = (area.top + area.bottom) / 2 - 1;
  for (LONG row = 0; row < (kArrowWidth + 1) / 2; ++row)
    Fill(dc, {area.left + row, middle + row, area.left + kArrowWidth - row, middle + row + 1},
         color);
}

void DrawCaption(HDC dc, RECT area, const ControlState& state, const Shades& shades,
                 const ButtonStand& stand) {
  constexpr UINT kFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
  if (state.popupArrow) {
    DrawArrow(dc, {area.right - kArrowWidth - 1, area.top, area.right, area.bottom},
              shades.caption);
    area.right -= kArrowRoom;
  }
  if (!stand.enabled) {  // pressed into the face
    RECT lit = area;
    OffsetRect(&lit, 1, 1);
    SetTextColor(dc, Mixed(shades.bottom, 0xFFFFFF, 70));
    DrawTextA(dc, state.text.data(), static_cast<int>(state.text.size()), &lit, kFormat);
  }
  SetTextColor(dc, shades.caption);
  DrawTextA(dc, state.text.data(), static_cast<int>(state.text.size()), &area, kFormat);
}

}  // namespace

void DrawFlatButton(HDC dc, const RECT& area, const ControlState& state, const ButtonStand& stand,
                    HFONT font) {
  const Shades shades = ShadesOf(state.look, stand);
  RECT face = area;
  if (state.look.shadow) {  // falls to the lower right; a pressed button covers it
    --face.right;
    --face.bottom;
    Fill(dc, {area.left + 2, face.bottom, area.right, area.bottom}, shades.shadow);
    Fill(dc, {face.right, area.top + 2, area.right, area.bottom}, shades.shadow);
    if (stand.pressed) OffsetRect(&face, 1, 1);
  }
  DrawFace(dc, face, shades, stand);
  InflateRect(&face, -3, -3);
  if (stand.focused) {
    SetTextColor(dc, kBlack);
    DrawFocusRect(dc, &face);
  }
  if (stand.pressed && !state.look.shadow) OffsetRect(&face, 1, 1);
  const Selected chosen(dc, font);
  DrawCaption(dc, face, state, shades, stand);
}

}  // namespace corvel::win32
