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
  forms::Button cmdExit;

  // Whether the user may end the start: he may while it waits for him (core/users_turn.h).
  void OfferExit(bool offered);

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;
};

}  // namespace corvel
