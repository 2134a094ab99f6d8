// frmCMDialog: the folder chooser.
#pragma once

#include "core/dialogs.h"

namespace corvel {

class frmCMDialog : public ProgramForm {
 public:
  frmCMDialog(Program& program, const FolderQuestion& question);

  const std::string& Folder() const { return folder_; }  // "" on Cancel

  forms::ComboBox Drive1;
  forms::ListBox Dir1, File1;
  forms::TextBox txtPath;
  forms::Button Command1, Command2;

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

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
  std::string folder_;
};

}  // namespace corvel
