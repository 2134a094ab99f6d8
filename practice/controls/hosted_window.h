// The client's own windows: the base of all window procedures here, and the plain kinds.
#pragma once

#include "platform/own_windows.h"

#include <memory>

namespace corvel::practice {

class WindowHost;

// What a control tells the window that it stands in.
enum class Notice { kClick, kEnter, kControlEnter, kTab, kCharacter, kFocus };

// One window of the client. The object lives at least as long as its window, and until no call of
// the client is on the stack any more, whoever destroys the window and when: so a procedure may
// finish its work on an object whose window has gone, and must check Alive() after each send.
class HostedWindow : public WindowProcedure, public std::enable_shared_from_this<HostedWindow> {
 public:
  explicit HostedWindow(WindowHost& host) : host_(host) {}
  HostedWindow(const HostedWindow&) = delete;
  HostedWindow& operator=(const HostedWindow&) = delete;

  MessageResult OnMessage(Window window, const Message& message) final;
  Window window() const { return window_; }  // 0 before it is made and after it has died
  bool Alive() const { return static_cast<bool>(window_); }
  bool Gone() const { return gone_; }

  // A control inside was used. False: this window does nothing on it.
  virtual bool OnNotice(Notice notice, Window control, char character);
  // A text window inside has taken the keyboard.
  virtual void RememberFocus(Window) {}

 protected:
  virtual MessageResult Handle(const Message& message) { return Default(message); }
  virtual void OnDestroyed() {}
  MessageResult Default(const Message& message);
  // It will never have a window.
  void GiveUp() { gone_ = true; }
  // The window that it stands in, if that is one of the client's; else nullptr.
  HostedWindow* Parent() const;
  // Tells the parent, if that is a window of the client.
  bool Tell(Notice notice, char character = 0);
  WindowHost& host() const { return host_; }

 private:
  WindowHost& host_;
  Window window_{};
  bool gone_ = false;
};

// A window that does nothing by itself: labels, pictures, gauges, check boxes, the MDI client.
class PlainWindow : public HostedWindow {
 public:
  using HostedWindow::HostedWindow;
};

// A picture button. Pressed and released it is clicked; a disabled one can't be.
class Icon : public HostedWindow {
 public:
  using HostedWindow::HostedWindow;

 protected:
  MessageResult Handle(const Message& message) override;

 private:
  bool pressed_ = false;
};

}  // namespace corvel::practice
