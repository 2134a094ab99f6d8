// Hooks into windows, of clients and our own, through the library in their threads.
#pragma once

#include "platform/hooks.h"
#include "platform/win32/hook_channel.h"

#include <deque>
#include <map>
#include <memory>
#include <string>

namespace corvel::win32 {

class Win32Hooks : public Hooks, private HookSink {
 public:
  explicit Win32Hooks(HookChannel& channel);
  ~Win32Hooks() override;
  Win32Hooks(const Win32Hooks&) = delete;
  Win32Hooks& operator=(const Win32Hooks&) = delete;

  HookId Attach(Window window, std::span<const MessageId> messages, HookHandler& handler) override;
  void Detach(HookId hook) noexcept override;
  bool IsAttached(HookId hook) override;
  HookId AttachChat(Window room, ChatLineHandler& handler) override;
  void DetachChat(HookId hook) noexcept override;

 private:
  struct Hook {
    HWND window = nullptr;
    std::shared_ptr<HookLink> link;
    HookHandler* handler = nullptr;
    ChatLineHandler* chat = nullptr;
  };
  struct Line {
    HookId hook;
    std::string sender, text;
  };
  void OnAsked(HookId hook, HookedMessage& message) override;
  void OnTold(HookId hook, const std::string& text) override;
  void DeliverTold() override;
  void OnGone(HookId hook) override;

  HookId Add(Hook hook, std::span<const MessageId> messages);
  bool HooksLiveWindow(const Hook& hook) const;

  HookChannel& channel_;
  HookId next_ = 1;
  std::map<HookId, Hook> hooks_;
  std::deque<Line> lines_;  // heard and not yet delivered
};

}  // namespace corvel::win32
