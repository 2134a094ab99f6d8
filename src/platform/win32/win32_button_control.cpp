// The system's buttons: push buttons, check boxes, options. They never turn themselves over: the
// toolkit does, and the window shows it.
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"

namespace corvel::win32 {
namespace {

class SystemButton : public Win32Control {
 public:
  using Win32Control::Win32Control;

  void OnCommand(int code) override {
    // An option that gets the focus says that it is clicked; only keys and mouse do that here.

    if (code == BN_CLICKED && !IsUpdating() && !inSetFocus_)
      Calls([](ControlEvents& events) { events.UserClick(); });
  }
  std::optional<COLORREF> TextOnGround() const override {
    if (State().kind == ControlKind::kButton) return std::nullopt;
    return PureColor(ToColorRef(State().font.color));
  }
  // The button shows itself pressed as long as the key is down, and is clicked when it comes up.
  bool KeepsKey(Key key) const override { return key == Key::kSpace; }

 protected:
  WindowKind Kind() const override {
    switch (State().kind) {
      case ControlKind::kCheckBox:
        return {"BUTTON", BS_CHECKBOX};
      case ControlKind::kOptionButton:
        return {"BUTTON", BS_RADIOBUTTON};
      default:
        return {"BUTTON", BS_PUSHBUTTON};
    }
  }
  void Show(Aspect aspect, int row) override {
    const bool all = aspect == Aspect::kAll;
    if (all || aspect == Aspect::kText) SetWindowTextIfOther(State().text);
    if ((all || aspect == Aspect::kValue) && State().kind != ControlKind::kButton)
      Send(BM_SETCHECK, State().value ? BST_CHECKED : BST_UNCHECKED);
    Win32Control::Show(aspect, row);
    if ((all || aspect == Aspect::kLook) && Form()) Form()->ShowDefaultButton();
  }
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override {
    inSetFocus_ = id == WM_SETFOCUS;
    return Win32Control::OnMessage(id, wParam, lParam);
  }

 private:
  bool inSetFocus_ = false;
};

}  // namespace

std::unique_ptr<Win32Control> MakeButton(Win32Form& form, const ControlState& state,
                                         ControlEvents& events) {
  return std::make_unique<SystemButton>(form, state, events);
}

}  // namespace corvel::win32
