// corvel-desk: the program on the in-memory desktop, for tests, demonstrations and long runs.
#include "tools/desk/arguments.h"
#include "tools/desk/fade_command.h"
#include "tools/desk/scenario_command.h"
#include "tools/desk/soak_command.h"
#include "tools/scenario_player.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

using corvel::tools::Arguments;

int FadeCommand(Arguments& arguments) { return corvel::tools::RunFade(arguments.All()); }

struct SubCommand {
  const char* name;
  const char* does;
  int (*run)(Arguments& arguments);
};
constexpr SubCommand kSubCommands[] = {
    {"demo", "the demonstration: [--plain] [--fast]", corvel::tools::DemoCommand},
    {"scenario", "plays scenario files: [--trace] [--seed N] FILE... (- plays by hand)",
     corvel::tools::ScenarioCommand},
    {"fade", "the fade engine as a filter: --number N --colors C1,C2 [--solid] [--html FILE]",
     FadeCommand},
    {"soak", "a random user for virtual hours: --seed N --hours H", corvel::tools::SoakCommand},
};

void PrintUsage(std::ostream& out) {
  out << "corvel-desk: Corvel 32 on an in-memory desktop, in virtual time\n\n";
  for (const SubCommand& command : kSubCommands)
    out << "  corvel-desk " << command.name << "   " << command.does << '\n';
}

}  // namespace

int main(int count, char** values) {
  std::vector<std::string> words(values + 1, values + count);
  const std::string name = words.empty() ? "--help" : words.front();
  if (!words.empty()) words.erase(words.begin());
  for (const SubCommand& command : kSubCommands)
    if (name == command.name) {
      Arguments arguments(std::move(words));
      return command.run(arguments);
    }
  const bool asked = name == "--help" || name == "help";
  PrintUsage(asked ? std::cout : std::cerr);
  return asked ? corvel::tools::kHeld : corvel::tools::kUnreadable;
}
