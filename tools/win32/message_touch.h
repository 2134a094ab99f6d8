// The user's hand at real windows by messages: those that a mouse or a key would cause, sent to the
// controls' windows in a later pump, in the order of the calls.
#pragma once

#include "platform/win32/win32_platform.h"
#include "tools/hand/hand.h"

#include <cstdint>
#include <deque>
#include <set>
#include <windows.h>

namespace corvel::win32 {
class Win32EventLoop;
struct FormSet;
}  // namespace corvel::win32

namespace corvel::tools {

int VirtualKeyOf(Key key);

// What can be seen of the program's real windows, for whatever hand.
class Win32Touch : public Touch {
 public:
  explicit Win32Touch(win32::Win32Platform& system);
  std::vector<FormView> Forms() override;
  std::vector<ControlView> ControlsOf(Window form) override;
  bool IsSeen(Window window) override;
  std::string ObstacleTo(const FormView& form) override;

 protected:
  Window FocusedControl() const;  // 0: none
  win32::Win32EventLoop& Events() const { return events_; }

 private:
  const win32::FormSet& set_;
  win32::Win32EventLoop& events_;
};

class MessageTouch : public Win32Touch {
 public:
  explicit MessageTouch(win32::Win32Platform& system);
  ~MessageTouch() override;
  MessageTouch(const MessageTouch&) = delete;
  MessageTouch& operator=(const MessageTouch&) = delete;

  Deed Begin(Window window, std::function<void()> act) override;
  void GoTo(const ControlView& control) override;
  void Click(const ControlView& control) override;
  void DoubleClick(const ControlView& control) override;
  void RightClick(const ControlView& control) override;
  void Select(const ControlView& control, int row, bool keepMarked) override;
  void Type(const ControlView& control, const std::string& wholeText) override;
  void Press(const ControlView& control, Key key) override;
  void DragForm(const FormView& form, const ControlView& label, int dx, int dy) override;
  void Close(const FormView& form) override;
  void Move(const FormView& form, int left, int top) override;

 private:
  struct Waiting {
    std::uint64_t task;
    std::function<void()> act;
  };
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
  bool IsLastDeedOver() const;
  void DoOldest();

  HWND window_;  // takes the deeds
  std::deque<Waiting> waiting_;
  std::set<std::uint64_t> open_;
  std::uint64_t lastTask_ = 0;
};

}  // namespace corvel::tools
