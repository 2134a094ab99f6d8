#include "wavlib/wav_files.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "core/settings_wavs.h"
#include "wavlib/frmSendTo.h"
#include "wavlib/list_output.h"
#include "wavlib/path_check.h"

namespace corvel {
namespace {

const char* TransferMessage(int error) {
  switch (error) {
    case err::kFileAlreadyOpen:
    case err::kPermissionDenied:
      return "~B~CRCannot copy an open file.~B~CN~N ~NClose it and try again.";
    case err::kPathNotFound:
      return "~B~CRDestination directory does not exist.~B~CN";
    default:
      return "~B~CRAn error has occured.~B~CN~N ~NFile transfer aborted.";
  }
}

// Whether both are the same folder, also if one is written in its short form.
bool IsSameFolder(Program& program, const std::string& a, const std::string& b) {
  return EqualNoCase(ShortFileName(program, a), ShortFileName(program, b));
}

bool MayTakePlace(Program& program, const std::string& path) {
  return !FileExists(program, path) ||
         AskYesNo(program, "~B~CRFile already exists!~B~CN~N ~NThe file ~B~CB" + path +
                               " ~B~CNalready exists.~N ~NOverwrite this file?");
}

bool Transfer(Program& program, const std::string& source, const std::string& target, bool move) {
  if (IsSameFolder(program, FolderOf(source), FolderOf(target))) {
    MsgBoxEx(program,
             "~B~CRCan not send wav~B~CN~N ~N~BSource~B and ~Bdestination~B directories are the "
             "same.",
             style::kOk + style::kExclamation);
    return false;
  }
  if (!MayTakePlace(program, target)) return false;
  Files& files = program.platform.files;
  int failed = 0;
  try {
    files.SetAttributes(source, 0);
    files.Copy(source, target);
    if (move) files.Delete(source);
  } catch (const RunTimeError& error) {
    failed = error.Number();
  }
  if (failed != 0) MsgBoxEx(program, TransferMessage(failed), style::kOk + style::kExclamation);
  return failed == 0;
}

}  // namespace

bool DeleteWav(Program& program, Window owner, const std::string& path) {
  if (!AskYesNo(program, "~BDelete ~CR" + path +
                             "~CN ?~B~N ~NDo you wish to send the above wav to the Windows Recycle "
                             "Bin?"))
    return false;
  Reported(program, {"frmTabs", "cmdDel_Click"}, [&] {
    Files& files = program.platform.files;
    if (!program.platform.shell.Recycle(owner, path))
      throw RunTimeError(files.Exists(path) ? err::kPathFileAccess : err::kFileNotFound);
  });
  return true;
}

std::optional<std::string> RenameWav(Program& program, const ListedWav& wav) {
  const std::string name = InputBoxEx(
      program, "~B~CR" + wav.path +
                   "Please enter a new wav name to rename the selected wav to.~N ~N~B~CBDo not "
                   "enter the path.~B~CN");
  if (name.empty() || !CanBeFileName(program, name)) return std::nullopt;
  const bool renamed = Reported(
      program, {"frmTabs", "RenameWav"},
      [&] { program.platform.files.Rename(wav.path, wav.folder + "\\" + name + ".wav"); },
      [&](const RunTimeError& error) {
        if (error.Number() != err::kFileExists) return false;
        MsgBoxEx(program,
                 "~B~CRA wav by this name already exists.~B~CN~N ~NPlease choose another name.",
                 style::kOk + style::kExclamation);
        return true;
      });
  return renamed ? std::optional(name) : std::nullopt;
}

std::optional<std::string> SendWavTo(Program& program, forms::Form& owner, const ListedWav& wav) {
  auto [folder, move] = Ask<frmSendTo>(program, &owner, wav.path, wav.name);
  if (folder.empty()) return std::nullopt;
  if (folder.ends_with('\\')) folder.pop_back();
  const std::string target = folder + "\\" + wav.name + ".wav";
  if (!Transfer(program, wav.path, target, move)) return std::nullopt;
  program.settings.SendTo.Last.Set(folder);
  return move ? target : wav.path;
}

}  // namespace corvel
