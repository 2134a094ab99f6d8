#include "wavlib/path_check.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/report_error.h"
#include "wavlib/append_line.h"
#include "wavlib/wav_categories.h"

namespace corvel {
namespace {

constexpr std::string_view kAutoexec = "C:\\AUTOEXEC.BAT";
constexpr std::string_view kSavedAutoexec = "C:\\AUTOEXEC.QRV";

std::string PathLine(const std::string& upperFolder) { return "SET PATH=%PATH%;" + upperFolder; }

std::string Question(const std::string& upperFolder, const std::string& category) {
  return "The path " + upperFolder + " for \"Wav Category: " + category +
         "\" does not exist in the \"PATH=\" statement of your AUTOEXEC.BAT file.\r\n\r\n"
         "Any wavs you place in this Wav Category will not be heard in any AOL chat rooms until "
         "the following line is added to your AUTOEXEC.BAT\r\n\r\n" +
         PathLine(upperFolder) +
         "\r\n\r\nCorvel can do this for you now by clicking YES below.  Your old AUTOEXEC.BAT "
         "will be saved as AUTOEXEC.QRV\r\n\r\n"
         "If you choose NO, you will need to manually make the changes to your AUTOEXEC.BAT"
         "\r\n\r\nDo you wish to proceed?";
}

bool StandsOnPath(Program& program, const std::string& folder) {
  Files& files = program.platform.files;
  return files.Exists(kAutoexec) && IsOnPath(files.Read(kAutoexec), folder);
}

bool ExtendPath(Program& program, const std::string& upperFolder) {
  Files& files = program.platform.files;
  return Reported(program, {"frmTabs", "cmdNewCat_Click"},
                  [&] {
                    if (files.Exists(kAutoexec)) files.Copy(kAutoexec, kSavedAutoexec);
                  }) &&
         Reported(program, {"frmTabs", "cmdNewCat_Click"},
                  [&] { AppendLine(program, kAutoexec, PathLine(upperFolder)); });
}

}  // namespace

std::string ShortFileName(Program& program, std::string_view path) {
  const std::string shortPath = program.platform.files.ShortPath(path);
  return shortPath.empty() ? std::string(path) : shortPath;
}

bool IsOnPath(std::string_view autoexec, std::string_view shortFolder) {
  const std::string text = Lower(autoexec);
  const auto line = text.find("set path=");
  return line != std::string::npos && text.find(Lower(shortFolder), line) != std::string::npos;
}

void CheckPath(Program& program, const std::string& category) {
  const std::string folder = ShortFileName(program, StoredFolder(program, category));
  bool found = false;
  const bool read = Reported(program, {"frmTabs", "cmdNewCat_Click"},
                             [&] { found = StandsOnPath(program, folder); });
  if (!read || found) return;
  const std::string upper = Upper(folder);
  if (PlainBox(program, Question(upper, category), style::kYesNo + style::kInformation) !=
      answer::kYes)
    return;
  if (ExtendPath(program, upper))
    MsgBoxEx(program,
             "A ~BFULL~B restart of the system will be necessary before these changes will take "
             "effect!");
}

}  // namespace corvel
