#include "forms/subclass.h"

#include "forms/form.h"

#include <algorithm>
#include <utility>

namespace corvel::forms {

SubClass::SubClass(Form& form, std::string name, std::vector<MessageId> messages)
    : form_(form), name_(std::move(name)), id_(form.NextId()), messages_(std::move(messages)) {
  form.subClasses_.push_back(this);
}

SubClass::~SubClass() {
  std::erase(form_.subClasses_, this);
  Unhook();
}

Window SubClass::HWnd() const { return At(0); }

Window SubClass::At(int index) const {
  return index >= 0 && index < Count() ? hooked_[static_cast<std::size_t>(index)].window : Window{};
}

void SubClass::SetHWnd(Window window) {
  if (window && Count() == 1 && HWnd() == window) return Add(window);
  Unhook();
  if (window) Add(window);
}

SubClass::Hooked* SubClass::Find(Window window) {
  const auto known = std::find_if(hooked_.begin(), hooked_.end(),
                                  [window](const Hooked& h) { return h.window == window; });
  return known == hooked_.end() ? nullptr : &*known;
}

void SubClass::Add(Window window) {
  if (!window || !form_.IsLoaded()) return;
  Hooks& hooks = form_.platform().hooks;
  if (const Hooked* known = Find(window)) {
    if (hooks.IsAttached(known->hook)) return;
    hooks.Detach(known->hook);
  }
  const HookId hook = hooks.Attach(window, messages_, *this);
  // Handlers may have run meanwhile, and have changed the list.
  if (Hooked* known = Find(window))
    known->hook = hook;
  else
    hooked_.push_back({window, hook});
}

void SubClass::Remove(Window window) {
  const Hooked* known = Find(window);
  if (!known) return;
  form_.platform().hooks.Detach(known->hook);
  std::erase_if(hooked_, [window](const Hooked& h) { return h.window == window; });
}

void SubClass::Renew() {
  for (int i = 0; i < Count(); ++i)
    if (form_.platform().windows.Exists(At(i))) Add(At(i));
}

void SubClass::Unhook() noexcept {
  for (const Hooked& hooked : std::exchange(hooked_, {}))
    form_.platform().hooks.Detach(hooked.hook);
}

void SubClass::Raise(LParam value) {
  if (form_.IsLoaded()) form_.platform().windows.Post(form_.Handle(), kDeferredMessage, id_, value);
}

void SubClass::OnDeferred(LParam value) {
  if (!onWndMessage) return;
  const auto copy = onWndMessage;
  form_.Collection().Run(form_, name_, "WndMessage", [&copy, value] { copy(value); });
}

void SubClass::OnHookedMessage(HookedMessage& message) {
  if (!onWndMessageX || !form_.IsLoaded()) return;
  const auto copy = onWndMessageX;
  form_.Collection().Run(form_, name_, "WndMessageX", [&copy, &message] { copy(message); });
}

Chat::Chat(Form& form, std::string name) : form_(form), name_(std::move(name)) {
  form.chats_.push_back(this);
}

Chat::~Chat() {
  std::erase(form_.chats_, this);
  Detach();
}

void Chat::Attach(Window room) {
  Detach();
  if (!form_.IsLoaded()) return;
  room_ = room;
  hook_ = form_.platform().hooks.AttachChat(room, *this);
}

void Chat::Renew() {
  Platform& platform = form_.platform();
  if (room_ && platform.windows.Exists(room_) && !platform.hooks.IsAttached(hook_)) Attach(room_);
}

void Chat::Detach() noexcept {
  room_ = {};
  if (const HookId hook = std::exchange(hook_, 0)) form_.platform().hooks.DetachChat(hook);
}

void Chat::OnChatLine(std::string_view sender, std::string_view text) {
  if (!onChatMsg || !form_.IsLoaded()) return;
  const auto copy = onChatMsg;
  form_.Collection().Run(form_, name_, "ChatMsg", [&copy, sender, text] { copy(sender, text); });
}

}  // namespace corvel::forms
