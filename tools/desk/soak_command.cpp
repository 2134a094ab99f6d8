// corvel-desk soak; see soak_command.h.
#include "tools/desk/soak_command.h"

#include "base/cp1252.h"
#include "tools/desk/soak.h"
#include "tools/scenario_player.h"
#include "tools/trace.h"

#include <chrono>
#include <cstdio>
#include <iostream>

namespace corvel::tools {
namespace {

void PrintUses(const SoakUses& uses) {
  std::printf("  used    seen  what\n");
  for (const SoakUses::Row& row : uses.Table())
    std::printf("%6d  %6d  %s\n", row.used, row.seen, ToUtf8(row.thing).c_str());
}

}  // namespace

int SoakCommand(Arguments& arguments) {
  using Clock = std::chrono::steady_clock;
  const auto begin = Clock::now();
  const std::uint64_t seed = arguments.TakeNumber(
      "--seed", static_cast<std::uint64_t>(begin.time_since_epoch().count()) % 1'000'000);
  const std::uint64_t hours = arguments.TakeNumber("--hours", 1);
  const bool trace = arguments.TakeFlag("--trace"), uses = arguments.TakeFlag("--uses");
  if (!arguments.Rest().empty() || !arguments.Error().empty()) {
    std::cerr << arguments.Error()
              << "\nusage: corvel-desk soak [--trace] [--uses] [--seed N] [--hours H]\n";
    return kUnreadable;
  }
  std::cout << "seed " << seed << std::endl;
  Soak soak(seed);
  if (trace)
    soak.OnEffect([](const desk::JournalEntry& entry) { std::cout << TraceLine(entry) << '\n'; });
  const std::string failure = soak.Run(static_cast<double>(hours));
  const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  if (!failure.empty()) {
    for (const std::string& line : soak.LastEffects()) std::cout << line << '\n';
    std::cout << "failed: " << failure << "\nagain: corvel-desk soak --seed " << seed << " --hours "
              << hours << '\n';
  }
  if (uses) PrintUses(soak.Uses());
  std::printf(
      "%.2f hours played, %d deeds, %d starts of the program; %.1f s, %.0f times as fast "
      "as time\n",
      soak.HoursPlayed(), soak.Deeds(), soak.Lives(), seconds, soak.HoursPlayed() * 3600 / seconds);
  return failure.empty() ? kHeld : kFailed;
}

}  // namespace corvel::tools
