// What every control on a real window has in common. The families of controls derive from it, a
// file each: texts, buttons, lists, views, and what is drawn by us.
//
// A control is a window of the system's classes whose procedure comes to us first. The toolkit
// holds the state; what the user does goes to its events, and the window is then brought in step.
//
// Controls stand in the form's window or in that of a container, which passes on to the form's
// window what they tell it. A container hangs in a window of another process by the system's own
// SetParent. Wine 8 draws nothing of a window in one of another process, Windows does; what makes
// up for that (a pop-up of the form that lies over the host and follows it) would belong into the
// container's peer, behind the same state.
//
// Any call to the events may destroy this object, so nothing is touched behind one unless `Calls`
// says that it still lives. What a control of the system tells in the midst of its own work (a
// changed text, a chosen row) is posted first, since by the event a message box may come up or the
// window may go.
#pragma once

#include "platform/peers.h"
#include "platform/win32/handles.h"

#include <commctrl.h>
#include <memory>
#include <optional>
#include <string>
#include <windows.h>

namespace corvel::win32 {

class Win32Form;

inline constexpr UINT kNotice = WM_APP + 0x0C1;  // posted by a control to itself; wParam: which

inline bool IsHeld(int virtualKey) { return GetKeyState(virtualKey) < 0; }
// The key of a virtual key code, with the modifiers as they are held now.
Key KeyOf(WPARAM virtualKey);

class Win32Control : public ControlPeer {
 public:
  Win32Control(Win32Form& form, const ControlState& state, ControlEvents& events);
  ~Win32Control() override;
  Win32Control(const Win32Control&) = delete;
  Win32Control& operator=(const Win32Control&) = delete;
  void Create();  // makes the window, once

  void Changed(Aspect aspect, int row) override;
  void TakeFocus() override;
  Window Handle() override { return FromHwnd(window_); }

  HWND Hwnd() const { return window_; }
  const ControlState& State() const { return state_; }
  ControlEvents& Events() const { return events_; }
  bool IsUsable() const { return state_.visible && state_.enabled; }
  Win32Form* Form() const { return form_; }
  void LoseForm() { form_ = nullptr; }

  // Runs a call to the events; false if this object has gone meanwhile.
  template <class F>
  bool Calls(F&& call) {
    const std::weak_ptr<char> life = life_;
    call(events_);
    return !life.expired();
  }

  // What the form's window hears of this control.
  virtual void OnCommand(int code) { (void)code; }
  virtual LRESULT OnNotify(NMHDR& notice) { return (void)notice, 0; }
  // The text's colour where the control stands on the form's ground; nothing where it has its own.
  virtual std::optional<COLORREF> TextOnGround() const { return std::nullopt; }
  // The control itself has a use for this key right now, before the toolkit is asked.
  virtual bool KeepsKey(Key key) const { return (void)key, false; }

 protected:
  struct WindowKind {
    const char* className;
    DWORD style = 0, extendedStyle = 0;
  };
  virtual WindowKind Kind() const = 0;
  // Brings the window in step with the state; with kAll right after its creation.
  virtual void Show(Aspect aspect, int row);
  virtual Rect WindowPlace() const;  // in the client area of what it stands in
  // A message to the window, before its own procedure; an answer uses it up.
  virtual std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam);
  virtual void OnNotice(int notice) { (void)notice; }  // what PostNotice has put off
  virtual void OnLoss() {}  // its window goes, not by us; it is forgotten already

  LRESULT Send(UINT id, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageA(window_, id, wParam, lParam);
  }
  void PostNotice(int notice) const;
  bool IsUpdating() const { return updating_ > 0; }  // what comes now is an echo of ours
  void SetWindowTextIfOther(const std::string& text) const;
  std::string WindowText() const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
  void ShowToolTip();
  bool TakesInput() const;

  Win32Form* form_;
  const ControlState& state_;
  ControlEvents& events_;
  HWND window_ = nullptr;
  WNDPROC own_ = nullptr;  // the window's own procedure
  int updating_ = 0;
  std::shared_ptr<char> life_ = std::make_shared<char>();
};

// Makes the control of the kind that the state asks for, with its window.
std::unique_ptr<Win32Control> MakeControl(Win32Form& form, const ControlState& state,
                                          ControlEvents& events);

// One for each family; see the files of these names.
std::unique_ptr<Win32Control> MakeLabel(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeTextBox(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeButton(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeListBox(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeComboBox(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeListView(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeTabStrip(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeProgressBar(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeFlatButton(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakePicture(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeFrame(Win32Form&, const ControlState&, ControlEvents&);
std::unique_ptr<Win32Control> MakeContainer(Win32Form&, const ControlState&, ControlEvents&);

}  // namespace corvel::win32
