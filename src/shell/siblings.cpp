#include "shell/siblings.h"

#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/settings_shell.h"

namespace corvel {

void SiblingPrograms::Join(Hub& hub) {
  const auto& general = program_.settings.General;
  hub.siblings = this;
  hub.commands.Set(Command::kPalroster, [this, &general] { StartOrTell(general.PalrosterPath); });
  hub.commands.Set(Command::kBackdrape, [this, &general] { StartOrTell(general.BackdrapePath); });
}

void SiblingPrograms::StartPalroster() { Start(program_.settings.General.PalrosterPath); }
void SiblingPrograms::StartBackdrape() { Start(program_.settings.General.BackdrapePath); }

// False: it isn't there.
bool SiblingPrograms::Start(const std::string& path) {
  if (!FileExists(program_, path)) return false;
  program_.platform.processes.Run(path, show::kNormal);
  return true;
}

void SiblingPrograms::StartOrTell(const std::string& path) {
  if (Start(path)) return;
  MsgBoxEx(program_, "The program ~B~CB" + path + "~B~CN was not found.",
           style::kOk + style::kExclamation);
}

}  // namespace corvel
