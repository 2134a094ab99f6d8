// Hooks on the desk: a hook is a call into its process before the window's procedure.
#pragma once

#include "platform/desk/process_table.h"
#include "platform/desk/window_tree.h"
#include "platform/hooks.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvel::desk {

class Scheduler;

class DeskHooks : public Hooks {
 public:
  explicit DeskHooks(Desk& desk);

  HookId Attach(Window window, std::span<const MessageId> messages, HookHandler& handler) override;
  void Detach(HookId hook) noexcept override;
  bool IsAttached(HookId hook) override;
  HookId AttachChat(Window room, ChatLineHandler& handler) override;
  void DetachChat(HookId hook) noexcept override;

  // Runs the hooks of a window; the result if one of them consumed the message.
  std::optional<MessageResult> Run(const WindowNode& node, const Message& message);
  void ForgetWindow(WindowNode& node);
  void ForgetProcess(const Process& process);  // unhooks, but keeps what has not been detached
  // The classes of the windows whose hooks a process has not detached; Drop forgets these.
  std::vector<std::string> NotDetached(const Process& process) const;
  void Drop(const Process& process);

 private:
  class ChatListener;
  struct Hook {
    Process* process = nullptr;
    Window window{};  // 0 once unhooked from outside
    std::string className;
    std::vector<MessageId> messages;
    HookHandler* handler = nullptr;
    std::shared_ptr<ChatListener> chat;
  };
  bool Takes(WindowNode* node) const;
  HookId Add(WindowNode& node, Hook hook);
  void Unhook(HookId id, Hook& hook);
  void RunOne(HookId id, HookedMessage& message);

  Desk& desk_;
  HookId next_ = 1;
  std::map<HookId, Hook> hooks_;
};

class DeskProxy : public ClientProxy {
 public:
  explicit DeskProxy(Desk& desk) : desk_(desk) {}
  bool Attach(Window clientFrame) override;
  void Detach() noexcept override { frame_ = {}; }
  void StopSound() override;
  void ForgetProcess(const Process& process) {
    if (owner_ == process.id) frame_ = {};
  }

 private:
  Desk& desk_;
  Window frame_{};
  ProcessId owner_ = 0;
};

}  // namespace corvel::desk
