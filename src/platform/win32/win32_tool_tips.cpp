// Tool tips: one window a form, which is told where the mouse is by every message on its way.
//
// A control that is disabled gets no mouse messages, its form gets them: so its tip belongs to the
// place that it takes on the form.
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"

namespace corvel::win32 {
namespace {

constexpr int kWidth = 320;  // pixels, from which on a tip's lines are broken

// Of the size that the common controls of Windows 98 know. Of the mouse on a disabled control it is
// the window that it stands in, `parent`, that hears.
TOOLINFOA ToolOf(HWND parent, const Win32Control& control) {
  TOOLINFOA tool{};
  tool.cbSize = TTTOOLINFOA_V2_SIZE;
  tool.hwnd = parent;
  tool.uId = reinterpret_cast<UINT_PTR>(control.Hwnd());
  return tool;
}

LRESULT SendTool(HWND tips, UINT id, const TOOLINFOA& tool) {
  return SendMessageA(tips, id, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

void Win32Form::ShowToolTip(const Win32Control& control) {
  if (!window_ || !control.Hwnd()) return;
  DropToolTip(control);
  const ControlState& state = control.State();
  if (state.toolTip.empty() || !state.visible) return;
  if (!toolTips_) {
    toolTips_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, window_,
                                nullptr, GetModuleHandleA(nullptr), nullptr);
    SendMessageA(toolTips_, TTM_SETMAXTIPWIDTH, 0, kWidth);
  }
  TOOLINFOA tool = ToolOf(ParentOf(state), control);
  tool.uFlags = state.enabled ? TTF_IDISHWND : 0;
  tool.rect = ToRect(state.place);
  tool.lpszText = const_cast<char*>(state.toolTip.c_str());
  SendTool(toolTips_, TTM_ADDTOOLA, tool);
}

void Win32Form::DropToolTip(const Win32Control& control) {
  if (toolTips_ && control.Hwnd())
    SendTool(toolTips_, TTM_DELTOOLA, ToolOf(ParentOf(control.State()), control));
}

void Win32Form::RelayToToolTips(const MSG& message) const {
  if (!toolTips_ || message.message < WM_MOUSEFIRST || message.message > WM_MBUTTONDBLCLK) return;
  SendMessageA(toolTips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

}  // namespace corvel::win32
