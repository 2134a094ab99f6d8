// Labels and text boxes.
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"
#include "platform/win32/win32_mouse_grip.h"

namespace corvel::win32 {
namespace {

class Label : public GripControl {
 public:
  using GripControl::GripControl;

  std::optional<COLORREF> TextOnGround() const override {
    return PureColor(ToColorRef(State().font.color));
  }

 protected:
  WindowKind Kind() const override {
    const DWORD wrapped = State().wordWrap ? SS_LEFT : SS_LEFTNOWORDWRAP;
    return {"STATIC", SS_NOTIFY | (State().alignCenter ? SS_CENTER : wrapped)};
  }
  void Show(Aspect aspect, int row) override {
    if (aspect == Aspect::kAll || aspect == Aspect::kText) SetWindowTextIfOther(State().text);
    if (aspect == Aspect::kAll || aspect == Aspect::kLook) ShowMnemonic();
    GripControl::Show(aspect, row);
  }

 private:
  void ShowMnemonic() const {
    constexpr LONG_PTR kAsItIs = SS_NOPREFIX;
    const LONG_PTR style = GetWindowLongPtrA(Hwnd(), GWL_STYLE) & ~kAsItIs;
    SetWindowLongPtrA(Hwnd(), GWL_STYLE, State().mnemonic ? style : style | kAsItIs);
    InvalidateRect(Hwnd(), nullptr, TRUE);
  }
};

class TextBox : public Win32Control {
 public:
  using Win32Control::Win32Control;

  void OnCommand(int code) override {
    if (code == EN_CHANGE && !IsUpdating()) PostNotice(EN_CHANGE);
  }
  // Coming to a box of one line marks its text, so that typing replaces it.
  void TakeFocus() override {
    if (!State().multiLine) Send(EM_SETSEL, 0, -1);
    Win32Control::TakeFocus();
  }

 protected:
  WindowKind Kind() const override {
    constexpr DWORD kSeveralLines = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
    return {"EDIT", State().multiLine ? kSeveralLines : DWORD{ES_AUTOHSCROLL}, WS_EX_CLIENTEDGE};
  }
  void Show(Aspect aspect, int row) override {
    // 0 is as much as the system takes.
    if (aspect == Aspect::kAll || aspect == Aspect::kLook)
      Send(EM_SETLIMITTEXT, static_cast<WPARAM>(State().maxLength));
    if (aspect == Aspect::kAll || aspect == Aspect::kText) SetWindowTextIfOther(State().text);
    Win32Control::Show(aspect, row);
  }
  void OnNotice(int) override {
    const std::string text = WindowText();
    if (text != State().text) Calls([&](ControlEvents& events) { events.UserText(text); });
  }
};

}  // namespace

std::unique_ptr<Win32Control> MakeLabel(Win32Form& form, const ControlState& state,
                                        ControlEvents& events) {
  return std::make_unique<Label>(form, state, events);
}

std::unique_ptr<Win32Control> MakeTextBox(Win32Form& form, const ControlState& state,
                                          ControlEvents& events) {
  return std::make_unique<TextBox>(form, state, events);
}

}  // namespace corvel::win32
