// corvel-desk demo: plays the demonstration scenario and tells it as it happens.
#include "tools/desk/desk_stage.h"
#include "tools/desk/scenario_command.h"
#include "tools/scenario_player.h"
#include "tools/teller.h"
#include "tools/terminal_text.h"

#include <chrono>
#include <filesystem>
#include <iostream>
#include <thread>

namespace corvel::tools {
namespace {

constexpr const char* kDemoPath = "tests/scenarios/demo.scn";

// In the folder at hand or one above it: the demonstration is started from a checkout.
std::string FindDemo() {
  std::error_code error;
  std::filesystem::path folder = std::filesystem::current_path(error);
  while (!error) {
    if (std::filesystem::is_regular_file(folder / kDemoPath, error))
      return (folder / kDemoPath).string();
    if (folder == folder.parent_path()) break;
    folder = folder.parent_path();
    error.clear();
  }
  return kDemoPath;
}

void SleepFor(std::int64_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace

int DemoCommand(Arguments& arguments) {
  const bool plain = arguments.TakeFlag("--plain");
  const bool fast = arguments.TakeFlag("--fast");
  const std::string file = arguments.TakeValue("--file").value_or(FindDemo());
  if (!arguments.Rest().empty() || !arguments.Error().empty()) {
    std::cerr << "usage: corvel-desk demo [--plain] [--fast] [--file FILE]\n";
    return kUnreadable;
  }
  const bool paced = !fast && StdoutIsTerminal();
  Teller teller(!plain && StdoutShowsColor(), paced ? SleepFor : Teller::Rest());
  const int exitCode = PlayScenarioFiles(
      {file}, [] { return std::make_unique<DeskStage>(1); }, teller.Options());
  if (exitCode == kHeld)
    std::cout
        << "\nEvery byte above was checked. Play on by hand:  build/desk/corvel-desk scenario -\n";
  return exitCode;
}

}  // namespace corvel::tools
