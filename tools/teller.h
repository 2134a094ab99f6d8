// Tells a scenario as it happens, for a person: what is done, what comes of it, the room's lines in
// their colours.
#pragma once

#include "platform/desk/journal.h"
#include "tools/scenario_player.h"

#include <cstdint>
#include <functional>
#include <string>

namespace corvel::tools {

class Teller {
 public:
  // Takes so many milliseconds, so that a person can follow; may be empty.
  using Rest = std::function<void(std::int64_t milliseconds)>;
  Teller(bool color, Rest rest) : color_(color), rest_(std::move(rest)) {}

  // What is told of the play. The teller must outlive it.
  ScenarioOptions Options();
  // It is told: what is done by the user, by the people in the room. Not what is looked at or set
  // beforehand.
  static bool Tells(const Words& words);

 private:
  struct Telling {
    const char* kind;
    std::string (Teller::*text)(const desk::JournalEntry& entry);
  };

  void Narrate(const std::string& text);
  void Command(const Words& words);
  // Of the effects those that a person sees; settings and files are for the trace.
  void Effect(const desk::JournalEntry& entry);
  std::string Line(const desk::JournalEntry& entry);
  std::string Message(const desk::JournalEntry& entry);
  std::string Shown(const desk::JournalEntry& entry);
  std::string Hidden(const desk::JournalEntry& entry);
  std::string Sound(const desk::JournalEntry& entry);
  std::string Hook(const desk::JournalEntry& entry);
  void Tell(const desk::JournalEntry& entry, const std::string& text);
  void RestFor(std::int64_t milliseconds) const;

  const bool color_;
  const Rest rest_;
  std::int64_t lastAt_ = 0;
};

}  // namespace corvel::tools
