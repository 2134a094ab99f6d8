#include "practice/win32/plain_skins.h"

#include "base/text.h"
#include "platform/win32/win32_drawing.h"

#include <algorithm>
#include <cstdint>

namespace corvel::practice {
namespace {

void DrawWords(HDC dc, RECT area, const std::string& text, UINT format) {
  DrawTextA(dc, text.data(), static_cast<int>(text.size()), &area, format | DT_NOPREFIX);
}

// Greyed text is etched into its ground.
void DrawFace(HDC dc, RECT area, const std::string& text, bool enabled) {
  constexpr UINT kFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
  if (!enabled) {
    RECT light = area;
    OffsetRect(&light, 1, 1);
    SetTextColor(dc, GetSysColor(COLOR_BTNHIGHLIGHT));
    DrawWords(dc, light, text, kFormat);
  }
  SetTextColor(dc, GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_BTNSHADOW));
  DrawWords(dc, area, text, kFormat);
}

}  // namespace

// --- Buttons -------------------------------------------------------------------------------------

void ButtonSkin::OnMade() {
  char parent[32] = "";
  GetClassNameA(GetParent(hwnd()), parent, sizeof parent);
  inToolbar_ = HoldsNoCase(parent, "toolbar");
}

void ButtonSkin::SetPressed(bool pressed) {
  if (pressed_ == pressed) return;
  pressed_ = pressed;
  Repaint();
}

bool ButtonSkin::OnOwn(const Message& message, MessageResult&) {
  // A real press holds the mouse, so that it can be let go beside the button and mean nothing.
  const bool byMouse = GetKeyState(VK_LBUTTON) < 0;
  if (message.id == WM_LBUTTONDBLCLK) {
    Message again = message;
    again.id = WM_LBUTTONDOWN;
    if (byMouse) SetCapture(hwnd());
    SetPressed(IsEnabled());
    Pass(again);
    return true;
  }
  if (message.id == WM_LBUTTONDOWN) {
    if (byMouse) SetCapture(hwnd());
    SetPressed(IsEnabled());
  }
  if (message.id == WM_LBUTTONUP) {
    SetPressed(false);
    if (GetCapture() != hwnd()) return false;
    ReleaseCapture();
    const POINT point{static_cast<std::int16_t>(LOWORD(message.lParam)),
                      static_cast<std::int16_t>(HIWORD(message.lParam))};
    RECT area{};
    GetClientRect(hwnd(), &area);
    return !PtInRect(&area, point);
  }
  return false;
}

void ButtonSkin::OnSeen(const Message& message) {
  if (message.id == WM_CAPTURECHANGED) SetPressed(false);
  Skin::OnSeen(message);
}

void ButtonSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(COLOR_BTNFACE));
  RECT face = area;
  if (pressed_)
    DrawEdge(dc, &face, inToolbar_ ? BDR_SUNKENOUTER : EDGE_SUNKEN, BF_RECT);
  else
    DrawEdge(dc, &face, inToolbar_ ? BDR_RAISEDINNER : EDGE_RAISED, BF_RECT);
  if (pressed_) OffsetRect(&face, 1, 1);
  const win32::Selected font(dc, fonts().Of({}));
  DrawFace(dc, face, Text(), IsEnabled());
}

// --- The others ----------------------------------------------------------------------------------

void LabelSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(COLOR_BTNFACE));
  const win32::Selected font(dc, fonts().Of({}));
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  const std::string text = Text();
  const bool oneLine = win32::HeightOf(area) < 2 * fonts().Height();
  DrawWords(dc, area, text, oneLine ? DT_SINGLELINE | DT_VCENTER : DT_WORDBREAK);
}

bool CheckSkin::OnOwn(const Message& message, MessageResult&) {
  if (message.id != WM_LBUTTONDOWN) return false;
  checked_ = !checked_;
  Repaint();
  return false;
}

void CheckSkin::Paint(HDC dc, const RECT& area) {
  constexpr int kBox = 13;
  win32::Fill(dc, area, GetSysColor(COLOR_BTNFACE));
  const int top = (win32::HeightOf(area) - kBox) / 2;
  RECT box{0, top, kBox, top + kBox};
  DrawFrameControl(dc, &box, DFC_BUTTON, DFCS_BUTTONCHECK | (checked_ ? DFCS_CHECKED : 0));
  RECT words = area;
  words.left = kBox + 4;
  const win32::Selected font(dc, fonts().Of({}));
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  DrawWords(dc, words, Text(), DT_SINGLELINE | DT_VCENTER);
}

void GaugeSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(COLOR_WINDOW));
  RECT done = area;
  done.right = done.left + win32::WidthOf(area) / 2;
  win32::Fill(dc, done, GetSysColor(COLOR_HIGHLIGHT));
}

void GlyphSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(COLOR_BTNFACE));
  DrawIcon(dc, 0, 0, LoadIconA(nullptr, IDI_INFORMATION));
}

void GroundSkin::Paint(HDC dc, const RECT& area) {
  win32::Fill(dc, area, GetSysColor(systemColor_));
}

// --- Documents -----------------------------------------------------------------------------------

bool DocumentSkin::OnOwn(const Message& message, MessageResult&) {
  // A click anywhere on it turns the keyboard to it.
  if (message.id == WM_LBUTTONDOWN) SetFocus(hwnd());
  return false;
}

void DocumentSkin::OnSeen(const Message& message) {
  if (message.id == WM_MOUSEACTIVATE && !IsChild(hwnd(), GetFocus())) SetFocus(hwnd());
  Skin::OnSeen(message);
}

}  // namespace corvel::practice
