// The wav list's categories: made, renamed, thrown away.
#include "base/text.h"
#include "core/dialogs.h"
#include "core/report_error.h"
#include "core/settings_wavs.h"
#include "wavlib/frmTabs.h"
#include "wavlib/path_check.h"
#include "wavlib/wav_categories.h"

#include <algorithm>

namespace corvel {

bool frmTabs::HasCategory(const std::string& name) const {
  if (const frmTabs* list = Standing()) return list->cboList.FindExact(name) >= 0;
  const auto names = CategoryNames(program);
  return name == kFavWavs || std::find(names.begin(), names.end(), name) != names.end();
}

void frmTabs::cmdNewCat_Click() {
  const std::string folder = Lower(ChooseFolder(program, WavFolderQuestion(), this));
  if (folder.empty()) return;
  const std::string name = InputBoxEx(
      program,
      "Enter a name this new Wav Category and click ~BOK~B.~N ~NPath for this Wav Category is: "
      "~B~CB" +
          folder);
  if (name.empty()) return;
  if (HasCategory(name)) {
    MsgBoxEx(program,
             "~B~CRCategory name already exists!~B~CN~N ~NPlease choose another name for this Wav "
             "Category.",
             style::kOk + style::kExclamation);
    return;
  }
  if (!Reported(program, {"frmTabs", "cmdNewCat_Click"},
                [&] { WriteCategory(program, name, folder); }))
    return;
  if (frmTabs* list = Standing()) list->ShowNewEntry(name);
  CheckPath(program, name);
}

void frmTabs::ShowNewEntry(const std::string& name) {
  cboList.AddItem(name, cboList.ListCount() - 1);
  SelectCategoryQuietly(cboList.FindString(-1, name));
  cboList_Click();
}

void frmTabs::cmdEditCat_Click() {
  if (cboList.ListIndex() < 0) {
    MsgBoxEx(program,
             "~B~CRNo Category Name has been selected for editing.~B~CN~N ~NPlease select a "
             "Category before attempting to use this function.",
             style::kOk + style::kExclamation);
    return;
  }
  const std::string oldName = cboList.Text(), folder = lblpath.Caption();
  const std::string name = InputBoxEx(
      program, "Below is the currently selected Category.  Make changes as necessary and click OK.",
      oldName);
  if (name.empty()) return;
  // Written first and deleted then, also if the name hasn't changed: the entry is then gone at the
  // next start.
  if (!Reported(program, {"frmTabs", "cmdEditCat_Click"},
                [&] { WriteCategory(program, name, folder); }))
    return;
  program.settings.Categories.Delete(oldName);
  if (frmTabs* list = Standing()) list->RenameEntry(oldName, name);
}

void frmTabs::RenameEntry(const std::string& oldName, const std::string& name) {
  const bool shown = cboList.Text() == oldName;
  cboList.RemoveItem(cboList.FindExact(oldName));
  const int row = cboList.AddItem(name, cboList.ListCount() - 1);
  if (!shown) return;
  SelectCategoryQuietly(row);
  program.settings.WavList.DefaultCategory.Set(name);
}

void frmTabs::cmdDelCat_Click() {
  if (cboList.ListIndex() < 0) {
    MsgBoxEx(program,
             "~B~CRNo Category has been selected for deletion.~B~CN~N ~NPlese select a category "
             "before attemping this function.",
             style::kOk + style::kExclamation);
    return;
  }
  const std::string name = cboList.Text();
  if (!AskYesNo(program, "You are about to delete Wav Category ~B~CR" + name +
                             ".~B~CN~N ~NThis action will ~Bnot~B delete actual wavs.~N ~NDo you "
                             "wish to proceed?"))
    return;
  program.settings.Categories.Delete(name);
  if (frmTabs* list = Standing()) list->RemoveEntry(name);
}

// A category that isn't the one in the list goes without a trace.
void frmTabs::RemoveEntry(const std::string& name) {
  const bool shown = cboList.Text() == name;
  cboList.RemoveItem(cboList.FindExact(name));
  if (!shown) return;
  SelectCategoryQuietly(0);
  cboList_Click();
}

}  // namespace corvel
