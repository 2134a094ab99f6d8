// The commands of the scenario language: one table row each, with how its line reads, when it may
// stand, and what does it.
#pragma once

#include "tools/play.h"
#include "tools/scenario_file.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace corvel::tools {

enum class When {
  kScene,    // before the start: says what stands on the stage
  kAnyTime,  // sets something, touches nobody
  kRun,      // the client stands from here on
};

struct Command {
  const char* word;
  const char* form;         // how its line reads behind the word
  std::size_t least, most;  // words behind it
  When when;
  Failure (*play)(Play& play, const Words& words);  // nullptr: not built yet
  // What else is wrong with the words, "" if nothing; may be left out.
  std::string (*check)(const Words& words) = nullptr;
  bool keepsPopup = false;  // an open pop-up menu stays open for it
};

inline constexpr std::size_t kAnyNumber = 1000;

std::span<const Command> SceneCommands();
std::span<const Command> ClientCommands();
std::span<const Command> ProgramCommands();
std::span<const Command> TimingCommands();

// The row for a command's word, or nullptr.
const Command* FindCommand(std::string_view word);
// The same for the command that a line gives, be it to be begun only.
const Command* CommandGiven(const Words& words);

// What is wrong with the line as a command, whatever the play is at; "" if nothing.
std::string CheckCommand(const Words& words);

// All commands with how their lines read, for the person who plays by hand.
std::string CommandHelp();

// A number of seconds from 0 to `most`; -1 if the word is none.
double ParseSeconds(const std::string& word, double most);

}  // namespace corvel::tools
