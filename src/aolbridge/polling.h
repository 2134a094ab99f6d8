// How the bridge waits for the client: look, let events happen, look again, until a limit.
#pragma once

#include "core/program.h"

#include <algorithm>
#include <cstdint>

namespace corvel {

inline constexpr double kNoLimit = 0;

// Calls `look` until it answers something true, and gives that; a default value at the limit, in
// seconds, or when the program or the client is going down. Limits go by the time of day, and a
// wait that crosses midnight ends at once: that is how these waits always were.
template <typename Look>
auto Poll(Program& program, const char* name, double limit, Look look,
          WaitFor whom = WaitFor::kClient) -> decltype(look()) {
  Platform& platform = program.platform;
  const double start = SecondsOfDay(platform.clock.Now());
  for (;;) {
    if (program.g.Unloading) return {};
    if (auto found = look()) return found;
    if (program.g.hAOL && !platform.windows.Exists(program.g.hAOL)) return {};
    Wait wait{name, whom, {}};
    if (limit != kNoLimit) {
      constexpr double kDay = 86400;
      const double now = SecondsOfDay(platform.clock.Now());
      const double passed = now - start;
      if (passed < 0 || passed >= limit) return {};
      const double left = std::min(limit - passed, kDay - now);
      wait.until = platform.clock.TickCount() + static_cast<std::uint32_t>(left * 1000) + 1;
    }
    platform.events.Pump(wait);
  }
}

}  // namespace corvel
