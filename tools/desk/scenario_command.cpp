// corvel-desk scenario; see scenario_command.h.
#include "tools/desk/scenario_command.h"

#include "tools/desk/desk_stage.h"
#include "tools/desk/interactive.h"
#include "tools/scenario_player.h"
#include "tools/terminal_text.h"
#include "tools/trace.h"

#include <iostream>

namespace corvel::tools {

int ScenarioCommand(Arguments& arguments) {
  ScenarioOptions options;
  const std::uint64_t seed = arguments.TakeNumber("--seed", 1);
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
  if (files == std::vector<std::string>{"-"})
    return PlayByHand(std::cin, std::cout, StdinIsTerminal(), seed);
  return PlayScenarioFiles(
      files, [seed] { return std::make_unique<DeskStage>(seed); }, options);
}

}  // namespace corvel::tools
