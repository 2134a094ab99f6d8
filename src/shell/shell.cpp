#include "shell/shell.h"

#include "core/helpers.h"
#include "core/main.h"
#include "shell/frmAbout.h"

namespace corvel {

void ShellFeature::Join(Hub& hub) {
  accessModes_.Join(hub);
  siblings_.Join(hub);
  hub.commands.Set(Command::kHelp, [this] { ShowHelp(program_, "Table of Contents"); });
  hub.commands.Set(Command::kTechSupport, [this] { ShowHelp(program_, "Tech Support"); });
  hub.commands.Set(Command::kAbout, [this] { program_.forms.Load<frmAbout>(program_).Show(); });
  hub.commands.Set(Command::kExit, [this] { UnloadAllForms(program_, true); });
  hub.commands.Set(Command::kKillHourglass, [this] {
    if (client_.IsAOLOnline(true)) client_.AOLCursor();
  });
}

}  // namespace corvel
