// The heart beat of a process in real windows: its one thread's message queue.
#pragma once

#include "platform/event_loop.h"

#include <functional>
#include <vector>
#include <windows.h>

namespace corvel::win32 {

// Sees a message on its way from the queue to its window: keys that move through a dialog.
class MessageFilter {
 public:
  virtual ~MessageFilter() = default;
  // True: it is used up.
  virtual bool Filter(MSG& message) = 0;
};

class Win32EventLoop : public EventLoop {
 public:
  void Pump(const Wait& wait) override;
  void StartTimer(Window window, std::uintptr_t id, std::uint32_t milliseconds) override;
  void StopTimer(Window window, std::uintptr_t id) override;

  // The newest filter sees a message first. A filter is removed before it dies.
  void AddFilter(MessageFilter& filter) { filters_.push_back(&filter); }
  void RemoveFilter(MessageFilter& filter) { std::erase(filters_, &filter); }

  // Called when no message is there, also in the pumps inside of it; true if it did something, so
  // that the pump does not sleep.
  void SetIdle(std::function<bool()> idle) { idle_ = std::move(idle); }

  // The process is to end: this and every later pump throws ProcessExit.
  void End() { ended_ = true; }

  // What is to be done when the user's session ends. The system may end the process as soon as that
  // comes back.
  void SetSessionEnd(std::function<void()> sessionEnd) { sessionEnd_ = std::move(sessionEnd); }
  void EndSession() {
    if (sessionEnd_) sessionEnd_();
  }

  // Brings a message to its window, by way of the filters, as the pump does.
  void Dispatch(MSG& message);

 private:
  bool DispatchWaiting();
  bool IsFiltered(MSG& message);
  void ThrowIfEnded() const;

  std::vector<MessageFilter*> filters_;
  std::function<bool()> idle_;
  std::function<void()> sessionEnd_;
  bool ended_ = false;
};

}  // namespace corvel::win32
