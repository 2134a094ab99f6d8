// frmEditDesc: the editor of all wav descriptions.
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

 protected:
  void Form_Load() override;

 private:
  void cmdNew_Click();
  void cmdEdit_Click();
  void cmdDel_Click();

  void LoadRows();
  void EnableButtons();
  Description Row(int row) const;
  int FindName(const std::string& name) const;  // -1: no such row
  bool IsUsable(const Description& record);     // tells the user if not
  std::vector<Description> Records() const;

  void PrintDescriptions();
  void ListToEMail();
  void ListsToFile();

  AolClient& client_;
};

}  // namespace corvel
