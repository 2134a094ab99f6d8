// Drawing: colours, surfaces that are put on the screen in one step, and the parts of the looks
// that are the program's own.
#pragma once

#include "platform/peers.h"

#include <string>
#include <windows.h>

namespace corvel::win32 {

inline RECT ToRect(const Rect& place) {
  return {place.left, place.top, place.left + place.width, place.top + place.height};
}
inline int WidthOf(const RECT& area) { return static_cast<int>(area.right - area.left); }
inline int HeightOf(const RECT& area) { return static_cast<int>(area.bottom - area.top); }

class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
  ~WindowDc() { ReleaseDC(window_, dc_); }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  HDC Get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

// A pen, brush, font or bitmap in use, until the end of the scope.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

class Brush {
 public:
  explicit Brush(COLORREF color) : brush_(CreateSolidBrush(color)) {}
  ~Brush() { DeleteObject(brush_); }
  Brush(const Brush&) = delete;
  Brush& operator=(const Brush&) = delete;
  HBRUSH Get() const { return brush_; }

 private:
  HBRUSH brush_;
};

// WM_PAINT on a bitmap in memory, which goes to the window as a whole: nothing flickers.
class BufferedPaint {
 public:
  explicit BufferedPaint(HWND window);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;
  HDC Dc() const { return memory_; }
  const RECT& Area() const { return area_; }  // the whole client area

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  RECT area_{};
  HDC memory_;
  HBITMAP bitmap_;
  HGDIOBJ before_;
};

COLORREF ToColorRef(Color color);
// The nearest colour that the screen shows exactly, without a pattern of dots: text on patterns
// can't be read, and two patterns beside each other show their seam.
COLORREF PureColor(COLORREF color);
COLORREF Mixed(COLORREF a, COLORREF b, int percentOfB);

void Fill(HDC dc, const RECT& area, COLORREF color);
// One pixel wide, along the inside of the area.
void Outline(HDC dc, const RECT& area, COLORREF leftAndTop, COLORREF rightAndBottom);
void FillGradient(HDC dc, const RECT& area, COLORREF from, COLORREF to, bool downward);
// The etched frame of a window without a border.
void DrawEtchedEdge(HDC dc, const RECT& client);

// How a flat button stands at the moment.
struct ButtonStand {
  bool enabled = true, hot = false, pressed = false, focused = false;
};
void DrawFlatButton(HDC dc, const RECT& area, const ControlState& state, const ButtonStand& stand,
                    HFONT font);

}  // namespace corvel::win32
