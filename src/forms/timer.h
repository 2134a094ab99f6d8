// Timer: calls onTimer every so many milliseconds while enabled and its form is loaded.
//
// A tick that falls due while the same timer's procedure still runs (in a pump inside it) is left
// out: a timer never re-enters itself. Other timers and hooks can run inside it. A tick that was on
// its way when the timer was disabled is dropped.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace corvel::forms {

class Form;

class Timer {
 public:
  Timer(Form& form, std::string name, std::uint32_t milliseconds, bool enabled);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  const std::string& Name() const { return name_; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);  // enabling a running one doesn't start it anew
  std::function<void()> onTimer;

 private:
  friend class Form;
  void Tick();
  void Apply();

  Form& form_;
  std::string name_;
  std::uintptr_t id_;
  std::uint32_t milliseconds_;
  bool enabled_;
  bool running_ = false;
};

}  // namespace corvel::forms
