// The client as the core asks about it. The bridge answers: it alone knows the client's windows.
//
// What waits pumps events; a window that was told before a wait may be gone behind it.
#pragma once

#include "platform/window_types.h"

#include <string>
#include <string_view>

namespace corvel {

class Client {
 public:
  virtual ~Client() = default;

  // --- Start-up, once, in this order. They may tell the user and end the program.
  virtual void GetAOLVersion() = 0;
  virtual void LoadAOLStrings() = 0;
  virtual void GetScreenNames() = 0;
  virtual void MSNCheck() = 0;

  // Each tick of Timer1: looks for the room and leaves it, or 0, in hChatRoom.
  virtual void LookForRoom() = 0;
  // True while signed on; `showMessage` tells the user if not. Pumps events.
  virtual bool IsAOLOnline(bool showMessage) = 0;
  // The signed-on name. Waits for the Welcome window.
  virtual std::string GetUserSN() = 0;
  // The window itself if it is a write-mail window, else 0.
  virtual Window IsWriteMailWindow(Window window) = 0;
  virtual Window FindChildByClass(Window parent, std::string_view className, int n = 1) = 0;
  virtual Window FindChildByTitle(Window parent, std::string_view title, int n = 1) = 0;
  virtual std::string GetAPIText(Window window, bool wait = false) = 0;
  virtual void RunKeyword(const std::string& target) = 0;
};

}  // namespace corvel
