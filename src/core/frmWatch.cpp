#include "core/frmWatch.h"

#include "core/frmCV7.h"
#include "core/main.h"

namespace corvel {

frmWatch::frmWatch(Program& p) : ProgramForm(p, "frmWatch"), Timer1(*this, "Timer1", 100, true) {
  Timer1.onTimer = [this] { Timer1_Timer(); };
}

void frmWatch::Timer1_Timer() {
  const frmCV7* const toolbar = program.forms.Loaded<frmCV7>();
  if (!toolbar) return;
  WindowSystem& windows = platform().windows;
  if (!windows.Exists(toolbar->Handle()) || !windows.Exists(program.g.hAOL))
    UnloadAllForms(program, false);
}

}  // namespace corvel
