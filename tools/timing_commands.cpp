// The commands that let several things go on at once: one that is only begun, one that comes later.
#include "tools/scenario_commands.h"

#include <algorithm>
#include <cmath>

namespace corvel::tools {
namespace {

constexpr double kLatest = 1e6;  // seconds

bool IsIn(std::span<const Command> table, const std::string& word) {
  return std::any_of(table.begin(), table.end(), [&](const Command& command) {
    return command.when == When::kRun && word == command.word;
  });
}

// --- Begun, and not waited for -------------------------------------------------------------------

std::string CheckBegin(const Words& words) {
  const Words inner = words.Behind(1);
  const bool ofUser = IsIn(ProgramCommands(), inner[0]) || IsIn(ClientCommands(), inner[0]);
  if (ofUser || inner.IsBare(0, "start") || !FindCommand(inner[0])) return CheckCommand(inner);
  return "only a command of the user, in the program or in the client, can be begun";
}

Failure PlayBegin(Play& play, const Words& words) {
  const Words inner = words.Behind(1);
  play.OnlyBegin();
  return FindCommand(inner[0])->play(play, inner);
}

// --- Later ---------------------------------------------------------------------------------------

std::string CheckAfter(const Words& words) {
  if (ParseSeconds(words[1], kLatest) < 0) return "a number of seconds is wanted";
  const Words inner = words.Behind(2);
  if (IsIn(ClientCommands(), inner[0]) || !FindCommand(inner[0])) return CheckCommand(inner);
  return "only a command of the client can come later";
}

Failure PlayAfter(Play& play, const Words& words) {
  const Words inner = words.Behind(2);
  play.PlayLater(std::llround(ParseSeconds(words[1], kLatest) * 1000),
                 [&play, inner] { return FindCommand(inner[0])->play(play, inner); });
  return {};
}

constexpr Command kTimingCommands[] = {
    {"begin", "COMMAND...", 1, kAnyNumber, When::kRun, PlayBegin, CheckBegin},
    {"after", "SECONDS COMMAND...", 2, kAnyNumber, When::kRun, PlayAfter, CheckAfter, true},
};

}  // namespace

std::span<const Command> TimingCommands() { return kTimingCommands; }

}  // namespace corvel::tools
