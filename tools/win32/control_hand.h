// The user's hands at the program's controls and menus: where each kind is to be touched, and when
// it can't be.
#pragma once

#include "platform/win32/win32_peers.h"
#include "tools/win32/hands.h"

#include <optional>
#include <string>
#include <vector>

namespace corvel::tools {

class ControlHand {
 public:
  ControlHand(win32::Win32Peers& peers, Hands& hands) : peers_(peers), hands_(hands) {}

  // Each is begun, or says why it can't be. What goes wrong later the hands tell.
  std::string Click(Window control);
  std::string DoubleClick(Window control);
  std::string RightClick(Window control);
  std::string Select(Window control, int row, bool keepMarked);
  std::string Type(Window control, const std::string& wholeText);
  std::string Press(Window control, Key key);
  std::string Close(Window form);

  // In a pop-up menu that is up: the rows from the outermost menu inwards.
  void ChooseRow(MenuHandle popup, const std::vector<int>& rows);
  void PutMenuAway() { hands_.Press(VK_ESCAPE); }

 private:
  using Control = win32::Win32Peers::ControlView;
  std::optional<Control> Find(Window control) const;
  void ClickRow(HWND list, ControlKind kind, int row, bool control, int scrolls);
  void OpenAndClickRow(HWND combo, int row);
  void ClickMenuRow(HMENU menu, int row, int clicks);
  void GoByTab(Window control, int presses);

  win32::Win32Peers& peers_;
  Hands& hands_;
};

}  // namespace corvel::tools
