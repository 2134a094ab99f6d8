// The shell's door: who stands behind its interfaces, and the commands that belong to no feature.
#pragma once

#include "shell/access_modes.h"
#include "shell/siblings.h"

namespace corvel {

class ShellFeature {
 public:
  ShellFeature(Program& program, AolClient& client)
      : program_(program), client_(client), accessModes_(program, client), siblings_(program) {}
  void Join(Hub& hub);

 private:
  Program& program_;
  AolClient& client_;
  AccessModes accessModes_;
  SiblingPrograms siblings_;
};

}  // namespace corvel
