// frmCMDialog: the folder chooser.
#pragma once

#include "core/dialogs.h"
#include "core/modal_form.h"

namespace corvel {

class frmCMDialog : public ModalForm<std::string> {  // the folder, "" on Cancel
 public:
  frmCMDialog(Program& program, const FolderQuestion& question);

  forms::ComboBox Drive1;
  forms::ListBox Dir1, File1;
  forms::TextBox txtPath;
  forms::Button Command1, Command2;

 protected:
  void Form_Load() override;

 private:
  void Drive1_Change();
  void Dir1_DblClick();
  void Command1_Click();
  void GoTo(const std::string& path);
  void ShowFolders();
  void ShowFiles();
  void SelectDrive();
  bool IsAcceptable(const std::string& path);

  FolderQuestion question_;
  std::string path_;  // of the open folder
  std::vector<std::string>
      folderOfRow_;  // of Dir1: the way down to the open one, then what it holds
};

}  // namespace corvel
