// Words for the commands of the random user, made up from how a command's line reads: a new command
// is played as soon as it stands in its table.
#pragma once

#include "tools/desk/dice.h"
#include "tools/scenario_commands.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvel::tools {

// How often a command of the client or the drive is drawn, beside the others.
int WeightOf(const Command& command);

class SoakWords {
 public:
  explicit SoakWords(Dice& dice) : dice_(dice) {}

  // A line of this command. Nothing if its form has a word that nobody here knows.
  std::optional<Words> LineOf(const Command& command);
  // A text for a placeholder of those forms: "TEXT", "PERSON", "KEY". Nothing if nobody knows it.
  std::optional<std::string> Some(std::string_view placeholder);

 private:
  bool Add(Words& words, std::string_view part);

  Dice& dice_;
};

}  // namespace corvel::tools
