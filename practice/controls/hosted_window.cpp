#include "practice/controls/hosted_window.h"

#include "practice/controls/window_host.h"

namespace corvel::practice {

MessageResult HostedWindow::OnMessage(Window window, const Message& message) {
  const WindowHost::Entry entry(host_);
  if (!window_ && !gone_) {
    window_ = window;
    host_.Adopt(shared_from_this());
  }
  if (message.id != wm::kNcDestroy) return Handle(message);
  const MessageResult result = Default(message);
  window_ = {};
  gone_ = true;
  host_.Bury(window);
  OnDestroyed();
  return result;
}

bool HostedWindow::OnNotice(Notice, Window, char) { return false; }

MessageResult HostedWindow::Default(const Message& message) {
  return host_.platform().ownWindows.Default(window_, message);
}

HostedWindow* HostedWindow::Parent() const { return host_.Find(host_.windows().Parent(window_)); }

bool HostedWindow::Tell(Notice notice, char character) {
  HostedWindow* parent = Parent();
  return parent != nullptr && parent->OnNotice(notice, window_, character);
}

MessageResult Icon::Handle(const Message& message) {
  if (message.id == wm::kLButtonDown) {
    pressed_ = host().windows().IsEnabled(window());
    return 0;
  }
  if (message.id == wm::kLButtonUp) {
    const bool clicked = pressed_ && host().windows().IsEnabled(window());
    pressed_ = false;
    if (clicked) Tell(Notice::kClick);
    return 0;
  }
  if (message.id == wm::kChar) {
    Tell(Notice::kCharacter, static_cast<char>(message.wParam));
    return 0;
  }
  return Default(message);
}

}  // namespace corvel::practice
