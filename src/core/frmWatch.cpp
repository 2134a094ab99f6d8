#include "core/frmWatch.h"

#include "core/frmCV7.h"
#include "core/main.h"

namespace corvel {

frmWatch::frmWatch(Program& p) : ProgramForm(p, "frmWatch"), Timer1(*this, "Timer1", 100, true) {
  Timer1.onTimer = [this] { Timer1_Timer(); };
}

void frmWatch::Timer1_Timer() {
  WindowSystem& windows = platform().windows;
  const bool clientIsGone = !windows.Exists(program.g.hAOL);
  if (program.g.Closing) {
    if (clientIsGone) EndWaits();
    return;
  }
  const frmCV7* const toolbar = program.forms.Loaded<frmCV7>();
  if (toolbar && (clientIsGone || !windows.Exists(toolbar->Handle())))
    UnloadAllForms(program, false);
}

// A way down may wait beneath windows that wait for the user. Without a client there is nothing
// left to wait for.
void frmWatch::EndWaits() {
  FinishWayDown(program);
  program.forms.UnloadAll();
}

}  // namespace corvel
