// corvel-win: the program in real windows, played by scenarios.
#include "tools/scenario_player.h"
#include "tools/teller.h"
#include "tools/trace.h"
#include "tools/win32/win32_stage.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <windows.h>

namespace {

using namespace corvel::tools;

std::string OwnFolder() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string own = path;
  return own.substr(0, own.rfind('\\'));
}

using Files = std::vector<std::string>;

int Play(const Files& files, const ScenarioOptions& options) {
  const std::string folder = OwnFolder();
  return PlayScenarioFiles(
      files, [&] { return std::make_unique<Win32Stage>(folder); }, options);
}

int Scenario(Files files) {
  ScenarioOptions options;
  if (std::erase(files, "--trace") > 0)
    options.onEffect = [](const corvel::desk::JournalEntry& entry) {
      std::cout << TraceLine(entry) << std::endl;
    };
  return Play(files, options);
}

// Told as it happens. The windows themselves take the time that a person needs to follow.
int Demo(Files files) {
  const bool color = std::erase(files, "--color") > 0;
  Teller teller(color, {});
  return Play(files, teller.Options());
}

struct SubCommand {
  const char* name;
  int (*run)(Files files);
};
constexpr SubCommand kSubCommands[] = {{"scenario", Scenario}, {"demo", Demo}};

}  // namespace

int main(int count, char** values) {
  Files words(values + 1, values + count);
  const std::string name = words.empty() ? "" : words.front();
  for (const SubCommand& command : kSubCommands) {
    if (name != command.name || words.size() < 2) continue;
    words.erase(words.begin());
    try {
      return command.run(std::move(words));
    } catch (const std::exception& error) {
      std::cerr << "corvel-win: " << error.what() << '\n';
      return kUnreadable;
    }
  }
  std::cerr << "usage: corvel-win scenario [--trace] FILE...\n"
               "       corvel-win demo [--color] FILE\n"
               "Plays scenarios with the program in real windows. It needs a machine, or a prefix, "
               "of its own.\n";
  return kUnreadable;
}
