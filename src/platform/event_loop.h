// The heart beat of a process: letting events happen, and timers.
#pragma once

#include "platform/window_types.h"

#include <cstdint>
#include <optional>

namespace corvel {

// Whom a wait is for. The program's windows must be usable while it waits for its user.
enum class WaitFor { kTime, kClient, kUser };

// What a loop waits for while it pumps. `name` must outlive the wait; it is shown when a wait is
// stuck, so it is the name of the procedure that waits.
struct Wait {
  const char* name = "";
  WaitFor whom = WaitFor::kClient;
  // The tick count at which the loop will stop waiting, if it has such a limit.
  std::optional<std::uint32_t> until{};
};

class EventLoop {
 public:
  virtual ~EventLoop() = default;

  // Lets what is due happen: posted messages in order, then timers. If nothing is due, time passes
  // until something is (on Windows the thread sleeps, at most until wait.until or some
  // milliseconds; on the desk the clock moves). Any handler of the process can run inside. Throws
  // ProcessExit if the process has been ended meanwhile.
  virtual void Pump(const Wait& wait) = 0;

  // Sends kTimer with wParam `id` to a window of our own, every `milliseconds` (at least 10), until
  // stopped or the window dies. Starting a running id changes its interval and starts it anew. A
  // tick that could not be delivered in time is not made up for.
  virtual void StartTimer(Window window, std::uintptr_t id, std::uint32_t milliseconds) = 0;
  virtual void StopTimer(Window window, std::uintptr_t id) = 0;
};

}  // namespace corvel
