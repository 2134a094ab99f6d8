// Hooks into windows of the client, and the source of a room's chat lines.
//
// A hook's handler runs before the hooked window's own procedure, while whoever sent the message
// waits. It may send to the same window (its own messages come back to it: guard), pump and post.
// If our process dies the hooked window goes on by itself; if the window dies the hook is
// forgotten.
#pragma once

#include "platform/window_types.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace corvel {

// A message on its way to a hooked window.
struct HookedMessage {
  Window window{};
  MessageId id = 0;
  WParam wParam = 0;
  LParam lParam = 0;
  std::string_view text{};  // the text of kSetText and the private text messages; a copy
  bool consume = false;     // set: the window does not get it, and the sender gets `result`
  MessageResult result = 0;
};

class HookHandler {
 public:
  virtual ~HookHandler() = default;
  virtual void OnHookedMessage(HookedMessage& message) = 0;
};

class ChatLineHandler {
 public:
  virtual ~ChatLineHandler() = default;
  // One line of the room: who said it (without the colon) and what.
  virtual void OnChatLine(std::string_view sender, std::string_view text) = 0;
};

using HookId = std::uint32_t;  // 0 is none

class Hooks {
 public:
  virtual ~Hooks() = default;

  // Hooks a window for the listed messages. The handler must live until Detach. 0 if the window is
  // dead or its process can't be hooked. Several hooks on one window run newest first.
  virtual HookId Attach(Window window, std::span<const MessageId> messages,
                        HookHandler& handler) = 0;
  // Never fails; a hook whose window has died may be detached too.
  virtual void Detach(HookId hook) noexcept = 0;
  // The window is still hooked by this hook (false once it has died).
  virtual bool IsAttached(HookId hook) = 0;

  // Raises one event for each line that is added to the view of a chat room (AOL 4.0 and 5.0) from
  // now on. Events come after the client has taken the line, in order, outside its procedures.
  virtual HookId AttachChat(Window room, ChatLineHandler& handler) = 0;
  virtual void DetachChat(HookId hook) noexcept = 0;
};

// What qrvproxy.dll does inside the client.
class ClientProxy {
 public:
  virtual ~ClientProxy() = default;
  virtual bool Attach(Window clientFrame) = 0;
  virtual void Detach() noexcept = 0;
  virtual void StopSound() = 0;  // the sound that the client itself plays
};

}  // namespace corvel
