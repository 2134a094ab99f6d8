// What happens with lines that come and go in a chat room.
#pragma once

#include "core/features/hook_events.h"

#include <string_view>

namespace corvel {

class ChatTools {
 public:
  virtual ~ChatTools() = default;
  // The room's windows, hooked while it stands.
  virtual HookEvents& Input() = 0;       // sbcCmdLine: characters
  virtual HookEvents& SendIcon() = 0;    // sbcSendIcon: button down and up
  virtual HookEvents& PeopleList() = 0;  // SubClass3: right button up
  virtual HookEvents& View() = 0;        // sbcChatWin, AOL 3.0: a line has come
  // Chat, AOL 4.0 and 5.0: a line has come, outside of the client's procedures.
  virtual void ChatLine(std::string_view sender, std::string_view text) = 0;
  // The room has gone, and its windows are unhooked.
  virtual void RoomHasGone() = 0;
};

}  // namespace corvel
