// Plays scenario files and tells their verdict.
#pragma once

#include "tools/scenario_file.h"
#include "tools/stage.h"

#include <functional>
#include <string>
#include <vector>

namespace corvel::tools {

inline constexpr int kHeld = 0, kFailed = 1, kUnreadable = 2;  // exit codes

struct ScenarioOptions {
  // Told each effect, narration and command as it comes; may be empty.
  std::function<void(const desk::JournalEntry&)> onEffect;
  std::function<void(const std::string& utf8)> onNarration;
  std::function<void(const Words& words)> onCommand;
};

struct ScenarioVerdict {
  int exitCode = kHeld;
  std::string skipped;                // why it isn't for this home; "" if it was played
  std::vector<std::string> messages;  // "FILE:LINE: expected …, got …", UTF-8
};

// On a stage where nothing has been played yet. `name` stands in the messages.
ScenarioVerdict PlayScenario(Stage& stage, const std::string& name, std::string_view utf8,
                             const ReadBeside& readBeside, const ScenarioOptions& options);
ScenarioVerdict PlayScenarioFile(Stage& stage, const std::string& path,
                                 const ScenarioOptions& options);

// Plays the files, each on a stage of its own, and tells the verdicts: what was skipped on standard
// output, what went wrong on standard error. The answer is the worst exit code.
using MakeStage = std::function<std::unique_ptr<Stage>()>;
int PlayScenarioFiles(const std::vector<std::string>& files, const MakeStage& makeStage,
                      const ScenarioOptions& options);

// Everything that is wrong with a file before it is played, and its lines in the order of playing:
// what sets the scene comes first.
void CheckScenario(ScenarioFile& file);

}  // namespace corvel::tools
