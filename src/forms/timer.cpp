#include "forms/timer.h"

#include "forms/form.h"

#include <utility>

namespace corvel::forms {

Timer::Timer(Form& form, std::string name, std::uint32_t milliseconds, bool enabled)
    : form_(form),
      name_(std::move(name)),
      id_(form.NextId()),
      milliseconds_(milliseconds),
      enabled_(enabled) {
  form.timers_.push_back(this);
  if (enabled_) Apply();
}

Timer::~Timer() {
  std::erase(form_.timers_, this);
  if (form_.IsLoaded()) form_.platform().events.StopTimer(form_.Handle(), id_);
}

void Timer::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Apply();
}

void Timer::Apply() {
  if (!form_.IsLoaded()) return;
  EventLoop& events = form_.platform().events;
  if (enabled_)
    events.StartTimer(form_.Handle(), id_, milliseconds_);
  else
    events.StopTimer(form_.Handle(), id_);
}

void Timer::Tick() {
  if (!enabled_ || running_ || !onTimer) return;
  const Forms::EventScope scope(form_.Collection());  // running_ is touched behind the procedure
  struct Running {
    explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
    ~Running() { flag_ = false; }
    bool& flag_;
  } running(running_);
  const auto copy = onTimer;
  form_.Collection().Run(form_, name_, "Timer", copy);
}

}  // namespace corvel::forms
