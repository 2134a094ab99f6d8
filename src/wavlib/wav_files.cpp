#include "wavlib/wav_files.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/report_error.h"
#include "core/settings_wavs.h"
#include "wavlib/frmSendTo.h"
#include "wavlib/modal.h"
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

bool Transfer(Program& program, const std::string& source, const std::string& folder,
              const std::string& name, bool move) {
  Files& files = program.platform.files;
  if (IsSameFolder(program, FolderOf(source), folder)) {
    MsgBoxEx(program,
             "~B~CRCan not send wav~B~CN~N ~N~BSource~B and ~Bdestination~B directories are the "
             "same.",
             style::kOk + style::kExclamation);
    return false;
  }
  try {
    files.SetAttributes(source, 0);
    files.Copy(source, folder + "\\" + name + ".wav");
    if (move) files.Delete(source);
    return true;
  } catch (const RunTimeError& error) {
    MsgBoxEx(program, TransferMessage(error.Number()), style::kOk + style::kExclamation);
    return false;
  }
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

bool RenameWav(Program& program, const std::string& folder, const std::string& name) {
  const std::string path = folder + "\\" + name + ".wav";
  const std::string newName = InputBoxEx(
      program, "~B~CR" + path +
                   "Please enter a new wav name to rename the selected wav to.~N ~N~B~CBDo not "
                   "enter the path.~B~CN");
  if (newName.empty()) return false;
  return Reported(
      program, {"frmTabs", "RenameWav"},
      [&] { program.platform.files.Rename(path, folder + "\\" + newName + ".wav"); },
      [&](const RunTimeError& error) {
        if (error.Number() != err::kFileExists) return false;
        MsgBoxEx(program,
                 "~B~CRA wav by this name already exists.~B~CN~N ~NPlease choose another name.",
                 style::kOk + style::kExclamation);
        return true;
      });
}

bool SendWavTo(Program& program, forms::Form& owner, const std::string& path,
               const std::string& name) {
  const auto dialog = program.forms.LoadNew<frmSendTo>(program);
  dialog->lblWav.SetCaption(name);
  dialog->lblWavFile.SetCaption(path);
  ShowModal(program, owner, *dialog, "SendWavTo");
  std::string folder = dialog->IsLoaded() ? Trim(dialog->txtHistory.Text()) : std::string();
  const bool move = dialog->optMove.Value();
  dialog->Unload();
  if (folder.empty()) return false;
  if (folder.ends_with('\\')) folder.pop_back();
  if (!Transfer(program, path, folder, name, move)) return false;
  program.settings.SendTo.Last.Set(folder);
  return true;
}

}  // namespace corvel
