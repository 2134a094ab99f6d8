// corvel-desk scenario; see scenario_command.h.
#include "tools/scenario_command.h"

#include "tools/interactive.h"
#include "tools/scenario_player.h"
#include "tools/terminal_text.h"
#include "tools/trace.h"

#include <algorithm>
#include <iostream>

namespace corvel::tools {
namespace {

int PlayOne(const std::string& file, const ScenarioOptions& options) {
  if (file == "-") return PlayByHand(std::cin, std::cout, StdinIsTerminal(), options.seed);
  const ScenarioVerdict verdict = PlayScenarioFile(file, options);
  std::cout.flush();
  for (const std::string& message : verdict.messages) std::cerr << message << '\n';
  return verdict.exitCode;
}

}  // namespace

int ScenarioCommand(Arguments& arguments) {
  ScenarioOptions options;
  options.seed = arguments.TakeNumber("--seed", options.seed);
  if (arguments.TakeFlag("--trace"))
    options.onEffect = [](const desk::JournalEntry& entry) {
      std::cout << TraceLine(entry) << '\n';
    };
  const auto& files = arguments.Rest();
  if (!arguments.Error().empty() || files.empty()) {
    std::cerr << (files.empty() ? "no scenario file is named" : arguments.Error())
              << "\nusage: corvel-desk scenario [--trace] [--seed N] FILE...   (- plays by hand)\n";
    return kUnreadable;
  }
  int exitCode = kHeld;
  for (const std::string& file : files) exitCode = std::max(exitCode, PlayOne(file, options));
  return exitCode;
}

}  // namespace corvel::tools
