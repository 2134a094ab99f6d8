// frmMain: the splash, which tells how far the start has come.
#pragma once

#include "core/program.h"

namespace corvel {

class frmMain : public ProgramForm {
 public:
  explicit frmMain(Program& program);

  forms::PictureBox Picture1;
  forms::Label lblTitle, lblFact, lblTipText, lblStatus;
  forms::ProgressBar prgStatus;

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;
};

}  // namespace corvel
