// Hooks; see win32_hooks.h.
#include "platform/win32/win32_hooks.h"

#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvel::win32 {
namespace {

// The client sends it to a view, with the text, when it has added that text.
constexpr MessageId kChatMessages[] = {0x2803};

// "sender:" TAB "text", as a view holds a line; nothing for other lines.
std::optional<std::pair<std::string, std::string>> SplitLine(std::string_view line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string_view::npos) return std::nullopt;
  std::string_view sender = line.substr(0, tab);
  while (!sender.empty() && sender.front() == '\n') sender.remove_prefix(1);
  if (!sender.empty() && sender.back() == ':') sender.remove_suffix(1);
  return std::pair(std::string(sender), std::string(line.substr(tab + 1)));
}

}  // namespace

Win32Hooks::Win32Hooks(HookChannel& channel) : channel_(channel) { channel_.SetSink(this); }

Win32Hooks::~Win32Hooks() {
  channel_.SetSink(nullptr);  // the library takes them off when the channel lets go of it
}

HookId Win32Hooks::Add(Hook hook, std::span<const MessageId> messages) {
  hook.link = channel_.Enter(hook.window);
  if (!hook.link) return 0;
  const auto listening = hook.chat ? hook::Listening::kTold : hook::Listening::kAsked;
  const DeedRequest request{
      .deed = Deed::kHook,
      .handle = FromHwnd(hook.window).value,
      .flags = static_cast<std::uint32_t>(listening),
      .id = next_++,
      .text = {reinterpret_cast<const char*>(messages.data()), messages.size_bytes()}};
  const auto link = hook.link;
  hooks_.emplace(request.id, std::move(hook));  // it may be asked before Do has come back
  const auto reply = link->Do(request);
  if (reply && reply->value) return request.id;
  hooks_.erase(request.id);
  return 0;
}

HookId Win32Hooks::Attach(Window window, std::span<const MessageId> messages,
                          HookHandler& handler) {
  const HookId id = Add({.window = ToHwnd(window), .link = nullptr, .handler = &handler}, messages);
  Callback::Rethrow();
  return id;
}

HookId Win32Hooks::AttachChat(Window room, ChatLineHandler& handler) {
  const HWND parent = ToHwnd(room);
  if (!parent || !IsWindow(parent)) return 0;
  const HWND view = FindWindowExA(parent, nullptr, "RICHCNTL", nullptr);
  const HookId id =
      view ? Add({.window = view, .link = nullptr, .chat = &handler}, kChatMessages) : 0;
  Callback::Rethrow();
  return id;
}

bool Win32Hooks::HooksLiveWindow(const Hook& hook) const {
  return hook.window && GetWindowThreadProcessId(hook.window, nullptr) == hook.link->thread() &&
         hook.link->Lives();
}

void Win32Hooks::Detach(HookId hook) noexcept {
  const auto node = hooks_.extract(hook);
  if (node && HooksLiveWindow(node.mapped()))
    if (HookLink& link = *node.mapped().link; !link.Do({.deed = Deed::kUnhook, .id = hook}))
      link.Later(Deed::kUnhook, 0, hook);
}

void Win32Hooks::DetachChat(HookId hook) noexcept { Detach(hook); }

bool Win32Hooks::IsAttached(HookId hook) {
  const auto it = hooks_.find(hook);
  return it != hooks_.end() && HooksLiveWindow(it->second);
}

void Win32Hooks::OnAsked(HookId hook, HookedMessage& message) {
  const auto it = hooks_.find(hook);
  if (it != hooks_.end() && it->second.handler) it->second.handler->OnHookedMessage(message);
}

void Win32Hooks::OnTold(HookId hook, const std::string& text) {
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = std::min(rest.find('\r'), rest.size());
    if (auto line = SplitLine(rest.substr(0, end)))
      lines_.push_back({hook, std::move(line->first), std::move(line->second)});
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

void Win32Hooks::DeliverTold() {
  // A handler that pumps comes in here again and goes on with the next line.
  while (!lines_.empty()) {
    const Line line = std::move(lines_.front());
    lines_.pop_front();
    const auto it = hooks_.find(line.hook);
    if (it != hooks_.end() && it->second.chat) it->second.chat->OnChatLine(line.sender, line.text);
  }
}

void Win32Hooks::OnGone(HookId hook) {
  if (const auto it = hooks_.find(hook); it != hooks_.end()) it->second.window = nullptr;
}

}  // namespace corvel::win32
