// frmWatch: a window without an owner that never shows, and looks after frmCV7.
//
// frmCV7's window is owned by the client's and, where the system takes owned windows along, is gone
// with it; the timers on it are gone too, the one that watches the client among them. And that one
// stands still while a message of its own is up. This one stays, and takes the program down.
#pragma once

#include "core/program.h"
#include "forms/timer.h"

namespace corvel {

class frmWatch : public ProgramForm {
 public:
  explicit frmWatch(Program& program);

  forms::Timer Timer1;

 private:
  void Timer1_Timer();
  void EndWaits();
};

}  // namespace corvel
