// frmEditDesc: the editor of all wav descriptions. Its rows are what the files hold, also when they
// are changed elsewhere while it stands.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "forms/menu.h"
#include "wavlib/wav_descriptions.h"

namespace corvel {

class frmEditDesc : public ProgramForm {
 public:
  frmEditDesc(Program& program, AolClient& client);

  forms::ListView ListView1;
  forms::Button cmdNew, cmdEdit, cmdDel, cmdPrint, cmdHelp, cmdExit;
  forms::Menu mnuPrintItem;

  // Reads the files again. Rows keep their places, new ones come last; the current one stays.
  void Refresh();

 protected:
  void Form_Load() override;

 private:
  void cmdNew_Click();
  void cmdEdit_Click();
  void cmdDel_Click();

  void EnableButtons();
  void ShowRecords(const std::vector<Description>& records, const std::string& current);
  Description Row(int row) const;
  std::string CurrentName() const { return Row(ListView1.ListIndex()).name; }
  int RowOf(std::string_view name) const;    // case ignored; -1: none
  bool IsUsable(const Description& record);  // tells the user if not
  std::vector<Description> Records() const;

  void PrintDescriptions();
  void ListToEMail();
  void ListsToFile();

  AolClient& client_;
};

// Tells the editor, if it stands, that descriptions have changed.
void RefreshDescriptionEditor(Program& program);

}  // namespace corvel
