// Hooks on the desk; see desk_hooks.h.
#include "platform/desk/desk_hooks.h"

#include "platform/desk/desk_core.h"

#include <algorithm>

namespace corvel::desk {
namespace {

// The client sends it to a view, with the text, when it has added that text.
constexpr MessageId kTextAdded = 0x2803;
constexpr MessageId kChatMessages[] = {kTextAdded};

}  // namespace

// Hears what is added to a room's view. The lines are told later, as events of its process, since
// the view takes them after the hook.
class DeskHooks::ChatListener : public HookHandler,
                                public std::enable_shared_from_this<ChatListener> {
 public:
  ChatListener(DeskHooks& hooks, Process& process, ChatLineHandler& handler)
      : hooks_(hooks), process_(process), handler_(handler) {}
  void SetId(HookId id) { id_ = id; }

  void OnHookedMessage(HookedMessage& message) override {
    std::string_view rest = message.text;
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find('\r'), rest.size());
      TellLater(rest.substr(0, end));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }

 private:
  void TellLater(std::string_view line) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return;
    std::string_view sender = line.substr(0, tab);
    while (!sender.empty() && sender.front() == '\n') sender.remove_prefix(1);
    if (!sender.empty() && sender.back() == ':') sender.remove_suffix(1);
    hooks_.desk_.PostTask(process_.id, [self = shared_from_this(), sender = std::string(sender),
                                        text = std::string(line.substr(tab + 1))] {
      if (self->hooks_.hooks_.count(self->id_)) self->handler_.OnChatLine(sender, text);
    });
  }

  DeskHooks& hooks_;
  Process& process_;
  ChatLineHandler& handler_;
  HookId id_ = 0;
};

DeskHooks::DeskHooks(Desk& desk) : desk_(desk) {}

HookId DeskHooks::Add(WindowNode& node, Hook hook) {
  const HookId id = next_++;
  hook.window = node.handle;
  hook.className = desk_.windows().ClassOf(node.handle);
  node.hooks.insert(node.hooks.begin(), id);
  desk_.Note("hook", {hook.className});
  hooks_.emplace(id, std::move(hook));
  return id;
}

// The window stands, and its process can be entered.
bool DeskHooks::Takes(WindowNode* node) const {
  if (!node) return false;
  const Window window = node->handle;
  auto& windows = desk_.windows().impl();
  if (!windows.Answers(*node->process)) return false;
  const WindowNode* const still = windows.tree.Find(window);
  return still && !still->destroying;
}

HookId DeskHooks::Attach(Window window, std::span<const MessageId> messages, HookHandler& handler) {
  Process& process = desk_.impl().processes.Current();
  WindowNode* node = desk_.windows().impl().tree.Find(window);
  if (!Takes(node) || !process.TakesCalls()) return 0;
  return Add(*node, {.process = &process,
                     .className = {},
                     .messages = {messages.begin(), messages.end()},
                     .handler = &handler,
                     .chat = nullptr});
}

HookId DeskHooks::AttachChat(Window room, ChatLineHandler& handler) {
  Process& process = desk_.impl().processes.Current();
  WindowTree& tree = desk_.windows().impl().tree;
  WindowNode* const node = tree.Find(room);
  WindowNode* const view = node ? tree.Match(node->firstChild, "RICHCNTL", std::nullopt) : nullptr;
  if (!Takes(view) || !process.TakesCalls()) return 0;
  const auto listener = std::make_shared<ChatListener>(*this, process, handler);
  const HookId id = Add(*view, {.process = &process,
                                .className = {},
                                .messages = {std::begin(kChatMessages), std::end(kChatMessages)},
                                .handler = listener.get(),
                                .chat = listener});
  listener->SetId(id);
  return id;
}

void DeskHooks::Unhook(HookId id, Hook& hook) {
  if (!hook.window) return;
  if (WindowNode* node = desk_.windows().impl().tree.Find(hook.window)) std::erase(node->hooks, id);
  hook.window = {};
  desk_.Note("unhook", {hook.className});
}

void DeskHooks::Detach(HookId hook) noexcept {
  const auto it = hooks_.find(hook);
  if (it == hooks_.end()) return;
  Unhook(hook, it->second);
  hooks_.erase(it);
}

void DeskHooks::DetachChat(HookId hook) noexcept { Detach(hook); }

bool DeskHooks::IsAttached(HookId hook) {
  const auto it = hooks_.find(hook);
  return it != hooks_.end() && it->second.window;
}

void DeskHooks::RunOne(HookId id, HookedMessage& message) {
  const auto it = hooks_.find(id);
  if (it == hooks_.end() || it->second.window != message.window) return;
  const Hook& hook = it->second;
  Process& process = *hook.process;
  if (!process.TakesCalls() || process.hung) return;
  if (std::find(hook.messages.begin(), hook.messages.end(), message.id) == hook.messages.end())
    return;
  HookHandler& handler = *hook.handler;
  const auto keepsListener = hook.chat;  // the handler may detach itself
  desk_.impl().processes.Call(process, [&] { handler.OnHookedMessage(message); });
}

std::optional<MessageResult> DeskHooks::Run(const WindowNode& node, const Message& message) {
  const std::vector<std::uint32_t> ids = node.hooks;  // they may change under our feet
  const std::string text(message.text);
  HookedMessage hooked{.window = node.handle,
                       .id = message.id,
                       .wParam = message.wParam,
                       .lParam = message.lParam,
                       .text = text};
  for (const HookId id : ids) {
    RunOne(id, hooked);
    if (hooked.consume) return hooked.result;
  }
  return std::nullopt;
}

void DeskHooks::ForgetWindow(WindowNode& node) {
  const std::vector<std::uint32_t> ids = node.hooks;
  for (const HookId id : ids) Unhook(id, hooks_.at(id));
}

void DeskHooks::ForgetProcess(const Process& process) {
  for (auto& [id, hook] : hooks_)
    if (hook.process == &process) Unhook(id, hook);
}

std::vector<std::string> DeskHooks::NotDetached(const Process& process) const {
  std::vector<std::string> classes;
  for (const auto& [id, hook] : hooks_)
    if (hook.process == &process) classes.push_back(hook.className);
  return classes;
}

void DeskHooks::Drop(const Process& process) {
  ForgetProcess(process);
  std::erase_if(hooks_, [&](const auto& entry) { return entry.second.process == &process; });
}

bool DeskProxy::Attach(Window clientFrame) {
  if (!desk_.windows().Exists(clientFrame)) return false;
  frame_ = clientFrame;
  owner_ = desk_.Current();
  return true;
}

void DeskProxy::StopSound() {
  const ProcessId client = desk_.windows().ProcessOf(frame_);
  if (!desk_.windows().Exists(frame_)) return;
  desk_.Note("client-sound-stopped", {});
  const auto& stop = desk_.services().answers.stopSound;
  if (stop) desk_.RunAs(client, stop);
}

}  // namespace corvel::desk
