#include "core/frmCMDialog.h"

#include "base/error.h"
#include "base/text.h"
#include "core/helpers.h"

#include <algorithm>

namespace corvel {

namespace {

bool IsRoot(std::string_view path) { return path.size() <= 3; }

std::string Joined(const std::string& folder, std::string_view name) {
  return (folder.ends_with('\\') ? folder : folder + "\\") + std::string(name);
}

// Without blanks around it and without a last backslash, but "c:\" for a drive.
std::string Tidied(std::string_view typed) {
  std::string path = Trim(typed);
  while (path.size() > 1 && path.ends_with('\\')) path.pop_back();
  if (path.size() == 2 && path[1] == ':') path += '\\';
  return path;
}

std::vector<std::string> SortedNames(const std::vector<FoundFile>& found, bool folders) {
  std::vector<std::string> names;
  for (const FoundFile& file : found) {
    const bool isFolder = file.attributes & file_attribute::kFolder;
    if (isFolder == folders && file.name != "." && file.name != "..") names.push_back(file.name);
  }
  std::stable_sort(names.begin(), names.end(), LessNoCase);
  return names;
}

// The folders from the drive's root down to `path`.
std::vector<std::string> WayDown(const std::string& path) {
  std::vector<std::string> way{path.substr(0, 3)};
  for (std::size_t end = 3; end < path.size();) {
    end = std::min(path.find('\\', end + 1), path.size());
    way.push_back(path.substr(0, end));
  }
  return way;
}

}  // namespace

frmCMDialog::frmCMDialog(Program& p, const FolderQuestion& question)
    : ModalForm(p, "frmCMDialog", question.title, {}),
      Drive1(*this, "Drive1"),
      Dir1(*this, "Dir1"),
      File1(*this, "File1"),
      txtPath(*this, "txtPath"),
      Command1(*this, "Command1", "OK"),
      Command2(*this, "Command2", "Cancel"),
      question_(question) {
  Drive1.SetAccessibleName("Drive");
  Dir1.SetAccessibleName("Folders");
  Dir1.SetToolTip(question.hint);
  File1.SetAccessibleName("Files in the folder");
  File1.SetEnabled(false);  // shows what the folder holds; there is nothing to choose
  txtPath.SetAccessibleName("Folder chosen");
  Command1.SetDefault(true);
  Command2.SetCancel(true);
  Drive1.onClick = [this] { Drive1_Change(); };
  Dir1.onDblClick = [this] { Dir1_DblClick(); };
  Command1.onClick = [this] { Command1_Click(); };
  Command2.onClick = [this] { Cancel(); };
}

void frmCMDialog::Form_Load() {
  using forms::Cell, forms::Column, forms::Row, forms::Space;
  for (const std::string& drive : platform().files.Drives()) Drive1.AddItem(Lower(drive));
  GoTo(Tidied(question_.start));
  Arrange(Column({Cell(Drive1), Row({Cell(Dir1, 26, 10), Cell(File1, 20, 10)}), Cell(txtPath),
                  Row({Space(), Cell(Command1), Cell(Command2)})}));
}

void frmCMDialog::Drive1_Change() {
  const std::string drive = Drive1.Text();
  if (EqualNoCase(drive, path_.substr(0, 2))) return;
  const int state = platform().files.DriveState(drive + "\\");
  if (state == 0) {
    GoTo(drive + "\\");
    return;
  }
  SelectDrive();
  PlainBox(program, "There is no disk present in the disk drive", style::kOk + style::kStop);
}

void frmCMDialog::Dir1_DblClick() {
  const int row = Dir1.ListIndex();
  if (row >= 0 && row < static_cast<int>(folderOfRow_.size()))
    GoTo(std::string(folderOfRow_[static_cast<std::size_t>(row)]));
}

void frmCMDialog::GoTo(const std::string& path) {
  path_ = path;
  txtPath.SetText(path);
  SelectDrive();
  ShowFolders();
  ShowFiles();
}

// The row of the open folder's drive. Setting it raises Drive1's event, which then finds nothing
// changed.
void frmCMDialog::SelectDrive() {
  for (int row = 0; row < Drive1.ListCount(); ++row)
    if (EqualNoCase(Drive1.List(row), path_.substr(0, 2))) Drive1.SetListIndex(row);
}

void frmCMDialog::ShowFolders() {
  folderOfRow_ = WayDown(path_);
  std::vector<std::string> rows;
  for (const std::string& folder : folderOfRow_)
    rows.push_back(IsRoot(folder) ? folder : FileNameOf(folder));
  const auto open = static_cast<int>(rows.size()) - 1;
  for (const std::string& name : SortedNames(platform().files.Search(Joined(path_, "*.*")), true)) {
    rows.push_back(name);
    folderOfRow_.push_back(Joined(path_, name));
  }
  Dir1.SetItems(std::move(rows));
  Dir1.SetListIndex(open);
}

void frmCMDialog::ShowFiles() {
  File1.SetItems(SortedNames(platform().files.Search(Joined(path_, question_.pattern)), false));
}

bool frmCMDialog::IsAcceptable(const std::string& path) {
  if (!question_.mustHold.empty()) {
    if (!path.empty() && FileExists(program, Joined(path, question_.mustHold))) return true;
    MsgBoxEx(program,
             "~B~CRAOL.EXE not found!~B~CN~N ~NThis is not a valid AOL directory.~N ~NPlease "
             "choose a directory that conatins the ~B~CBAOL.EXE~B~CN file.",
             style::kOk + style::kExclamation, {.owner = this});
    return false;
  }
  if (DirExists(program, path)) return true;
  MsgBoxEx(program, "~B~CRFolder not found!~B~CN~N ~NPlease choose a folder that exists.",
           style::kOk + style::kExclamation, {.owner = this});
  return false;
}

void frmCMDialog::Command1_Click() {
  // A folder that is only marked counts, unless the user has typed a path.
  const int row = Dir1.ListIndex();
  std::string path = Tidied(txtPath.Text());
  if (path == path_ && row >= 0 && row < static_cast<int>(folderOfRow_.size()))
    path = folderOfRow_[static_cast<std::size_t>(row)];
  if (IsAcceptable(path)) Answer(path);
}

}  // namespace corvel
