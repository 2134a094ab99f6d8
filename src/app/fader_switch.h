// What stands for the fader's windows as long as there are none: the one thing that must not wait
// for them. Faded text that a room refuses would be refused again with the next line.
#pragma once

#include "core/not_built.h"
#include "core/program.h"
#include "core/settings_fader.h"

namespace corvel {

class FaderSwitch : public NoFaderWindows {
 public:
  explicit FaderSwitch(Program& program) : program_(program) {}
  void Join(Hub& hub) { hub.faderWindows = this; }

  void SwitchOff() override { program_.settings.Fader.On.Set(false); }

 private:
  Program& program_;
};

}  // namespace corvel
