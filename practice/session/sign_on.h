// Signing on and off: the sign-on window in its two states, the progress window, the windows that
// come with a session.
#pragma once

#include "practice/client/document.h"

#include <string>

namespace corvel::practice {

class SignOnWindow : public Document {
 public:
  SignOnWindow(Client& client, std::string caption);
  bool OnNotice(Notice notice, Window control, char character) override;

 protected:
  void Fill() override;
  Rect FirstPlace() const override { return {130, 70, 320, 190}; }

 private:
  Window combo_{};
};

// "Welcome, NAME!", whose caption tells who is signed on.
class WelcomeWindow : public Document {
 public:
  explicit WelcomeWindow(Client& client);
  bool OnNotice(Notice notice, Window control, char character) override;

 protected:
  void Fill() override;
};

// Brings up the sign-on window, or lifts the one that stands. Nothing while signed on.
void ShowSignOn(Client& client);
// Begins a session: the progress window comes, after a delay the icons are enabled, and the
// session's windows are asked for.
void SignOn(Client& client, const std::string& name);
// The session that exists from the start on.
void BeginSession(Client& client, const std::string& name);
// Ends the session; every document of it closes and the goodbye window is asked for.
void SignOff(Client& client);
// Brings up the Welcome window, or lifts and shows the one that stands.
void ShowWelcome(Client& client);

}  // namespace corvel::practice
