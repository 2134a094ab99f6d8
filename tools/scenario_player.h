// Plays scenario files and tells their verdict.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/journal.h"
#include "tools/scenario_file.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace corvel::tools {

inline constexpr int kHeld = 0, kFailed = 1, kUnreadable = 2;  // exit codes

struct ScenarioOptions {
  std::uint64_t seed = 1;
  // Told each effect, narration and command as it comes; may be empty.
  std::function<void(const desk::JournalEntry&)> onEffect;
  std::function<void(const std::string& utf8)> onNarration;
  std::function<void(const Words& words, desk::Desk& desk)> onCommand;
};

struct ScenarioVerdict {
  int exitCode = kHeld;
  std::vector<std::string> messages;  // "FILE:LINE: expected …, got …", UTF-8
};

// `name` stands in the messages.
ScenarioVerdict PlayScenario(const std::string& name, std::string_view utf8,
                             const ReadBeside& readBeside, const ScenarioOptions& options);
ScenarioVerdict PlayScenarioFile(const std::string& path, const ScenarioOptions& options);

// Everything that is wrong with a file before it is played, and its lines in the order of playing:
// what sets the scene comes first.
void CheckScenario(ScenarioFile& file);

}  // namespace corvel::tools
