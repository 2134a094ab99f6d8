// The trace; see trace.h.
#include "tools/trace.h"

#include "base/cp1252.h"
#include "tools/scenario_file.h"

#include <cstdio>

namespace corvel::tools {

std::string TraceLine(const desk::JournalEntry& entry) {
  char time[40];
  std::snprintf(time, sizeof time, "%3lld.%03d", static_cast<long long>(entry.at / 1000),
                static_cast<int>(entry.at % 1000));
  std::string line = time + (" " + entry.kind);
  const bool withAnswer = entry.kind == "message" && entry.words.size() == 2;
  for (std::size_t i = 0; i < entry.words.size(); ++i) {
    const bool isAnswer = withAnswer && i == 1;
    line += isAnswer ? " answer " + ToUtf8(entry.words[i]) : " " + Quoted(entry.words[i]);
  }
  return line;
}

}  // namespace corvel::tools
