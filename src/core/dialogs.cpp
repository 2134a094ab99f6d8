#include "core/dialogs.h"

#include "base/text.h"
#include "core/frmCMDialog.h"
#include "core/frmInpBox.h"
#include "core/frmMsg.h"
#include "core/helpers.h"
#include "core/settings_shell.h"

#include <array>

namespace corvel {

namespace {

constexpr Color kWhite = 16777215;

// True while it stands, whatever way the procedure is left.
class FlagUp {
 public:
  explicit FlagUp(bool& flag) : flag_(flag) { flag_ = true; }
  ~FlagUp() { flag_ = false; }
  FlagUp(const FlagUp&) = delete;
  FlagUp& operator=(const FlagUp&) = delete;

 private:
  bool& flag_;
};

std::string FolderWithSlash(std::string_view path) { return FolderOf(path) + "\\"; }

}  // namespace

int MsgBoxEx(Program& program, std::string_view text, int style, bool* doNotShow) {
  // Behind the way down no window comes up any more: what still unwinds gets the answer that
  // changes nothing.
  if (program.g.Unloading) return frmMsg(program, text, style, doNotShow).HarmlessAnswer();
  const auto form = program.forms.LoadNew<frmMsg>(program, text, style, doNotShow);
  form->Show();
  while (!form->Answer() && form->IsLoaded())
    program.platform.events.Pump({"MsgBoxEx", WaitFor::kUser});
  if (doNotShow) *doNotShow = form->chkNoShow.Value() != 0;
  form->Unload();
  return form->Answer() ? form->Answer() : form->HarmlessAnswer();
}

std::string InputBoxEx(Program& program, std::string_view text, std::string_view preset) {
  if (program.g.Unloading) return {};
  const FlagUp up(program.g.InputBoxUp);
  const auto form = program.forms.LoadNew<frmInpBox>(program, text, preset);
  form->Show();
  while (!form->Answered() && form->IsLoaded())
    program.platform.events.Pump({"InputBoxEx", WaitFor::kUser});
  form->Unload();
  return form->Answer();
}

int PlainBox(Program& program, std::string_view text, int style) {
  return program.platform.dialogs.PlainMessage({}, text, kTitle, style);
}

std::string OpenDialog(Program& program, Window owner, std::string_view description,
                       std::string_view pattern, int mode) {
  const auto answer = program.platform.dialogs.OpenFile(owner, description, pattern);
  if (!answer) return {};
  const std::string path = CutAtNul(*answer);
  return mode == 2 ? FolderWithSlash(path) : path;
}

std::string SaveDialog(Program& program, Window owner, std::string_view description,
                       std::string_view pattern) {
  // The typed name is thrown away, but the box must not be empty for its OK to work.
  const auto answer = program.platform.dialogs.SaveFile(owner, description, pattern, "path");
  return answer ? FolderWithSlash(CutAtNul(*answer)) : std::string();
}

Color PickColor(Program& program, Window owner, Color start) {
  std::array<Color, 16> custom;
  for (std::size_t i = 0; i < custom.size(); ++i) {
    const std::string text = Trim(program.settings.CustomColors.Read(std::to_string(i)));
    custom[i] = text.empty() ? kWhite : IntVal(text);
  }
  const auto chosen = program.platform.dialogs.ChooseColor(owner, start, custom);
  for (std::size_t i = 0; i < custom.size(); ++i)
    program.settings.CustomColors.Write(std::to_string(i), std::to_string(custom[i]));
  return chosen.value_or(start);
}

std::string ChooseFolder(Program& program, const FolderQuestion& question) {
  if (program.g.Unloading) return {};
  const auto form = program.forms.LoadNew<frmCMDialog>(program, question);
  form->Show();
  WaitWhileVisible(program, *form, "ChooseFolder");
  form->Unload();
  return form->Folder();
}

FolderQuestion ClientFolderQuestion() {
  return {"Select AOL Directory", "aol.exe", "aol.exe", "Double-click your current AOL folder"};
}

FolderQuestion WavFolderQuestion() { return {"", "*.wav", "", ""}; }

}  // namespace corvel
