#include "practice/controls/client_window.h"

#include "practice/client/client.h"

namespace corvel::practice {

MessageResult ClientWindow::OnMessage(Window window, const Message& message) {
  const Client::Entry entry(client_);
  if (!window_ && !gone_) {
    window_ = window;
    client_.Adopt(shared_from_this());
  }
  if (message.id != wm::kNcDestroy) return Handle(message);
  const MessageResult result = Default(message);
  window_ = {};
  gone_ = true;
  client_.Bury(window);
  OnDestroyed();
  return result;
}

bool ClientWindow::OnNotice(Notice, Window, char) { return false; }

MessageResult ClientWindow::Default(const Message& message) {
  return client_.platform().ownWindows.Default(window_, message);
}

bool ClientWindow::Tell(Notice notice, char character) {
  ClientWindow* parent = client_.Find(client_.windows().Parent(window_));
  return parent != nullptr && parent->OnNotice(notice, window_, character);
}

MessageResult Icon::Handle(const Message& message) {
  if (message.id == wm::kLButtonDown) {
    pressed_ = client().windows().IsEnabled(window());
    return 0;
  }
  if (message.id == wm::kLButtonUp) {
    const bool clicked = pressed_ && client().windows().IsEnabled(window());
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
