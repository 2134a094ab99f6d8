// SubClass: the control that hooks windows of the client, and Chat: the control that hears a room.
//
// onWndMessageX runs inside the hooked window's procedure, while its sender waits: decide quickly.
// Raise(value) brings onWndMessage(value) later, outside of the hook: there windows may be
// destroyed and waits may stand. Both are dropped when the form is unloaded, and a form that isn't
// loaded hooks nothing.
#pragma once

#include "platform/hooks.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::forms {

class Form;

// The private message, to the form's window, that carries a raised value (lParam) to the control
// with the number in wParam. Well away from what forms use for themselves.
inline constexpr MessageId kDeferredMessage = wm::kUser + 0x300;

class SubClass : public HookHandler {
 public:
  SubClass(Form& form, std::string name, std::vector<MessageId> messages);
  ~SubClass() override;  // unhooks
  SubClass(const SubClass&) = delete;
  SubClass& operator=(const SubClass&) = delete;

  const std::string& Name() const { return name_; }
  // The one hooked window, or the first of the list; 0 for none. A window that has died is still
  // told until it is changed, as the control always did.
  Window HWnd() const;
  void SetHWnd(Window window);  // 0 unhooks all
  void Add(Window window);
  void Remove(Window window);
  // Hooks anew what stands and isn't hooked: its process may have hung when it was to be.
  void Renew();
  int Count() const { return static_cast<int>(hooked_.size()); }
  Window At(int index) const;

  void Raise(LParam value);

  std::function<void(HookedMessage&)> onWndMessageX;
  std::function<void(LParam)> onWndMessage;

 private:
  friend class Form;
  struct Hooked {
    Window window;
    HookId hook;
  };
  void OnHookedMessage(HookedMessage& message) override;
  void OnDeferred(LParam value);
  void Unhook() noexcept;
  Hooked* Find(Window window);

  Form& form_;
  std::string name_;
  std::uintptr_t id_;
  std::vector<MessageId> messages_;
  std::vector<Hooked> hooked_;
};

class Chat : public ChatLineHandler {
 public:
  Chat(Form& form, std::string name);
  ~Chat() override;
  Chat(const Chat&) = delete;
  Chat& operator=(const Chat&) = delete;

  void Attach(Window room);  // instead of any earlier one
  void Detach() noexcept;
  void Renew();  // as SubClass::Renew
  std::function<void(std::string_view sender, std::string_view text)> onChatMsg;

 private:
  void OnChatLine(std::string_view sender, std::string_view text) override;

  Form& form_;
  std::string name_;
  Window room_{};
  HookId hook_ = 0;
};

}  // namespace corvel::forms
