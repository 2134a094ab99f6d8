// What must hold at every step of a soak, whatever the user, the client and the drive do.
#pragma once

#include "tools/desk/desk_stage.h"

#include <cstdint>
#include <set>
#include <string>

namespace corvel::tools {

class SoakChecks {
 public:
  // What the system's start file holds at first: the program may only add to it.
  static constexpr const char* kAutoexec = "SET PATH=C:\\DOS\r\n";

  explicit SoakChecks(DeskStage& stage) : stage_(stage) {}

  // Told of each effect: it may allow the user's wave files to be moved or deleted.
  void Hear(const desk::JournalEntry& entry);
  // Cheap, at every idle moment: no wait of the program lasts for ever.
  std::string CheckProgress();
  // After each step of the user.
  std::string Check();

 private:
  std::string CheckHooks();
  std::string CheckClient();
  std::string CheckWaves();
  std::string CheckDataFiles();
  std::string CheckLeftOpen();

  DeskStage& stage_;
  std::string waitName_;
  std::size_t waitDepth_ = 0;
  std::int64_t waitSince_ = 0;
  std::set<std::string> waves_;
  int asked_ = 0;      // questions after which one may vanish, not agreed to so far
  int mayVanish_ = 0;  // wave files that the user has agreed to lose
};

}  // namespace corvel::tools
