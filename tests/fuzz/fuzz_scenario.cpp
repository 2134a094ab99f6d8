// Any bytes as a scenario file: read, checked, and what reads well reads the same when written out.
#include "tools/scenario_file.h"
#include "tools/scenario_player.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvel::tools;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ScenarioFile file =
      ParseScenario(text, [](const std::string& name) { return std::optional(name + "\xFF"); });
  CheckScenario(file);
  for (const ScenarioLine& line : file.lines) {
    std::string again, error;
    for (const std::string& word : line.words.All()) again += Quoted(word) + " ";
    // A word that begins with "@" would name a file again.
    if (again.find("\"@") != std::string::npos) continue;
    if (ParseScenarioLine(again, {}, error).All() != line.words.All() || !error.empty())
      std::abort();
  }
  return 0;
}
