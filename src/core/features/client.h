// The client as the core asks about it. The bridge answers: it alone knows the client's windows,
// and what its versions and countries differ in.
//
// What waits pumps events; a window that was told before a wait may be gone behind it. Of a client
// that nobody knows (AOLVer is "") the answers are 0, "" and false.
#pragma once

#include "platform/window_types.h"

#include <string>
#include <string_view>

namespace corvel {

// The parts of a chat room. One that isn't there yet, or isn't known, is 0.
struct RoomParts {
  Window view, input, list, sendIcon;
  // A new line comes to the view as messages that can be hooked; else the chat control tells it.
  bool viewTellsLines = false;
  bool AllThere() const { return view && input && list && sendIcon; }
};

struct Country {
  std::string_view name, code;
};

class Client {
 public:
  virtual ~Client() = default;

  // --- Its frame, and in hAOL the window that holds its documents.
  virtual Window FindFrame() = 0;
  virtual Window FindMdi() = 0;

  // --- Start-up, once, in this order. They may tell the user and end the program.
  virtual void GetAOLVersion() = 0;
  virtual void LoadAOLStrings() = 0;
  virtual void GetScreenNames() = 0;
  virtual void MSNCheck() = 0;

  // --- What it can, and what it is called.
  virtual bool CanFade() const = 0;  // rooms and mail show mark-up
  virtual bool CanManageIMs() const = 0;
  virtual bool HasMainWindow() const = 0;  // which is hidden where others hide the Welcome window
  virtual Country CountryOf() const = 0;   // the US for one that nobody knows

  // --- The session.
  // True while signed on; `showMessage` tells the user if not. Pumps events.
  virtual bool IsAOLOnline(bool showMessage) = 0;
  // The signed-on name. Waits for the Welcome window.
  virtual std::string GetUserSN() = 0;

  // --- Its windows, now.
  // Each tick of Timer1: looks for the room and leaves it, or 0, in hChatRoom.
  virtual void LookForRoom() = 0;
  virtual RoomParts PartsOfRoom(Window room) = 0;
  virtual Window WriteMailOnTop() = 0;
  virtual Window ReadMailOnTop() = 0;
  virtual Window RefusalBox() = 0;       // by which a room refuses a faded line
  virtual Window BuddyInvitation() = 0;  // to a chat
  virtual Window UnreadIM() = 0;
  virtual std::string GetIMSender(Window im) = 0;
  // The menu at whose end the open windows are listed; 0 where that isn't the program's business.
  virtual MenuHandle WindowMenu() = 0;

  virtual void RunKeyword(const std::string& target) = 0;
};

}  // namespace corvel
