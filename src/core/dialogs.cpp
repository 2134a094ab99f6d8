#include "core/dialogs.h"

#include "base/text.h"
#include "core/frmCMDialog.h"
#include "core/frmInpBox.h"
#include "core/frmMsg.h"
#include "core/settings_shell.h"

#include <array>
#include <utility>

namespace corvel {

namespace {

constexpr Color kWhite = 16777215;

// True while it stands, whatever way the procedure is left; one inside another doesn't end it.
class FlagUp {
 public:
  explicit FlagUp(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~FlagUp() { flag_ = before_; }
  FlagUp(const FlagUp&) = delete;
  FlagUp& operator=(const FlagUp&) = delete;

 private:
  bool& flag_;
  bool before_;
};

std::string FolderWithSlash(std::string_view path) { return FolderOf(path) + "\\"; }

}  // namespace

std::string DialogTitle(const Program& program) {
  return std::string(kTitle) + " - " + program.g.ProgramVersion;
}

int MsgBoxEx(Program& program, std::string_view text, int style, const MessageOptions& options) {
  const auto [button, noShow] = Ask<frmMsg>(program, options.owner, text, style, options);
  if (options.doNotShow) *options.doNotShow = noShow;
  return button;
}

std::string InputBoxEx(Program& program, std::string_view text, std::string_view preset,
                       const InputOptions& options) {
  const FlagUp up(program.g.InputBoxUp);
  return Ask<frmInpBox>(program, options.owner, text, preset, options);
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

std::string ChooseFolder(Program& program, const FolderQuestion& question, forms::Form* owner) {
  return Ask<frmCMDialog>(program, owner, question);
}

FolderQuestion ClientFolderQuestion() {
  return {"Select AOL Directory", "aol.exe", "aol.exe", "Double-click your current AOL folder"};
}

FolderQuestion WavFolderQuestion() { return {"", "*.wav", "", ""}; }

}  // namespace corvel
