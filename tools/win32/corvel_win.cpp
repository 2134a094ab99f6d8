// corvel-win: the program in real windows, played by scenarios.
#include "tools/scenario_player.h"
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

int Scenario(std::vector<std::string> files) {
  ScenarioOptions options;
  if (std::erase(files, "--trace") > 0)
    options.onEffect = [](const corvel::desk::JournalEntry& entry) {
      std::cout << TraceLine(entry) << std::endl;
    };
  const std::string folder = OwnFolder();
  return PlayScenarioFiles(
      files, [&] { return std::make_unique<Win32Stage>(folder); }, options);
}

}  // namespace

int main(int count, char** values) {
  std::vector<std::string> words(values + 1, values + count);
  if (words.size() < 2 || words.front() != "scenario") {
    std::cerr << "usage: corvel-win scenario [--trace] FILE...\n"
                 "Plays scenarios with the program in real windows. It needs a machine, or a "
                 "prefix, of its own.\n";
    return kUnreadable;
  }
  words.erase(words.begin());
  try {
    return Scenario(std::move(words));
  } catch (const std::exception& error) {
    std::cerr << "corvel-win: " << error.what() << '\n';
    return kUnreadable;
  }
}
