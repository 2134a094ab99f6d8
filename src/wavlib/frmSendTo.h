// frmSendTo: asks where to copy or move a wav.
#pragma once

#include "core/modal_form.h"

#include <string>

namespace corvel {

struct SendTarget {
  std::string folder;  // "": given up
  bool move = false;
};

class frmSendTo : public ModalForm<SendTarget> {
 public:
  frmSendTo(Program& program, const std::string& path, const std::string& name);

  forms::Label lblWavFile, lblWav, lblTarget;
  forms::TextBox txtHistory;  // the target folder
  forms::Button cmdBrowse;
  forms::OptionButton optCopy, optMove;
  forms::Button cmdOK, cmdCancel;

 protected:
  void Form_Load() override;

 private:
  void cmdBrowse_Click();
};

}  // namespace corvel
