// frmSendTo: asks where to copy or move a wav.
#pragma once

#include "core/program.h"

namespace corvel {

class frmSendTo : public ProgramForm {
 public:
  explicit frmSendTo(Program& program);

  forms::Label lblWavFile, lblWav, lblTarget;
  forms::TextBox txtHistory;  // the target folder; empty once the window is hidden: cancelled
  forms::Button cmdBrowse;
  forms::OptionButton optCopy, optMove;
  forms::Button cmdOK, cmdCancel;

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

 private:
  void cmdBrowse_Click();
  void cmdCancel_Click();
};

}  // namespace corvel
