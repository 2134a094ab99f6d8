// A form on a real window.
#pragma once

#include "platform/form_keyboard.h"
#include "platform/peers.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_display.h"

#include <memory>
#include <string>
#include <vector>
#include <windows.h>

namespace corvel::win32 {

class Win32Control;

inline constexpr const char* kFormClass = "CorvelForm";
inline constexpr const char* kControlClass = "CorvelControl";  // of controls that we draw
inline constexpr WORD kProgramIcon = 1;                        // its resource

HICON LoadProgramIcon();

// What the forms of a process share.
struct FormSet {
  std::vector<class Win32Form*> forms{};  // oldest first
  DialogFonts fonts{};
  HWND hiddenOwner = nullptr;  // of the forms that don't show in the task bar

  // The control that this window is, or is inside; the form that it is or that such a control is
  // of. Windows of other processes that stand in a container are nobody's.
  Win32Control* ControlAt(HWND window) const;
  class Win32Form* FormAt(HWND window) const;
};

class Win32Form : public FormPeer {
 public:
  Win32Form(FormSet& set, const FormState& state, FormEvents& events);
  ~Win32Form() override;
  Win32Form(const Win32Form&) = delete;
  Win32Form& operator=(const Win32Form&) = delete;

  void Changed(Aspect aspect) override;
  void ApplyVisible(bool activate) override;
  Window Handle() override { return FromHwnd(window_); }
  Size FrameSize() override;
  std::unique_ptr<ControlPeer> Add(const ControlState& state, ControlEvents& events) override;

  HWND Hwnd() const { return window_; }
  const FormState& State() const { return state_; }
  FormEvents& Events() const { return events_; }
  const std::vector<Win32Control*>& Controls() const { return controls_; }
  Win32Control* ControlAt(HWND window) const;                // of this form, as FormSet::ControlAt
  Win32Control* ControlOf(const ControlState* state) const;  // nullptr for none
  ControlStates States() const;
  // The window that a control is to stand in: nullptr if its container's has gone.
  HWND ParentOf(const ControlState& control) const;
  void PutIn(const Win32Control& control) const;  // into that one
  Win32Control* Focused() const;
  DialogFonts& Fonts() const { return set_.fonts; }
  COLORREF Ground() const;  // the back colour as the screen shows it
  void Forget(const Win32Control& control);

  // --- Keyboard: see win32_form_keys.cpp -------------------------------------------------------
  bool OnKey(const MSG& message);  // true: used up
  // The control is about to be out of reach: whoever has the focus there passes it on.
  void LeaveFocus(const Win32Control& control);
  // The button that Enter would press shows it.
  void ShowDefaultButton() const;

  // --- Tool tips: see win32_tool_tips.cpp ------------------------------------------------------
  void ShowToolTip(const Win32Control& control);
  void DropToolTip(const Win32Control& control);
  void RelayToToolTips(const MSG& message) const;

 private:
  using Handler = LRESULT (Win32Form::*)(WPARAM, LPARAM);
  struct Row {
    UINT message;
    Handler handler;
  };
  static const Row kRows[];
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
  LRESULT OnMessage(UINT id, WPARAM wParam, LPARAM lParam);
  LRESULT Default(UINT id, WPARAM wParam, LPARAM lParam) const;
  LRESULT OnActivate(WPARAM, LPARAM);
  LRESULT OnSetFocus(WPARAM, LPARAM);
  LRESULT OnClose(WPARAM, LPARAM);
  LRESULT OnMove(WPARAM, LPARAM);
  LRESULT OnSize(WPARAM, LPARAM);
  LRESULT OnEnterSizeMove(WPARAM, LPARAM);
  LRESULT OnExitSizeMove(WPARAM, LPARAM);
  LRESULT OnMinMax(WPARAM, LPARAM);
  LRESULT OnNcCalcSize(WPARAM, LPARAM);
  LRESULT OnNcPaint(WPARAM, LPARAM);
  LRESULT OnNcActivate(WPARAM, LPARAM);
  LRESULT OnNcHitTest(WPARAM, LPARAM);
  LRESULT OnErase(WPARAM, LPARAM);
  LRESULT OnPaint(WPARAM, LPARAM);
  LRESULT OnColor(WPARAM, LPARAM);
  LRESULT OnButtonColor(WPARAM, LPARAM);
  LRESULT OnCommand(WPARAM, LPARAM);
  LRESULT OnNotify(WPARAM, LPARAM);
  LRESULT OnSysColorChange(WPARAM, LPARAM);

  void CreateFormWindow();
  void ShowGround();
  void ShowPlace();
  void ShowTopMost() const;
  void PutFramesBehind() const;
  void FocusSomething();

  bool HasOwnSizingEdge() const { return !state_.border && state_.resizable; }
  bool Do(const KeyDeed& deed);  // true: the key is used up
  bool PressAccessKey(char letter);
  bool OnKeyDown(const MSG& message);
  bool OnCharacter(const MSG& message);

  FormSet& set_;
  const FormState& state_;
  FormEvents& events_;
  HWND window_ = nullptr, toolTips_ = nullptr, lastFocus_ = nullptr;
  HBRUSH ground_ = nullptr;
  COLORREF groundColor_ = 0;
  int placing_ = 0;
  bool inMoveLoop_ = false;
  std::vector<Win32Control*> controls_;  // in the order of their making
};

}  // namespace corvel::win32
