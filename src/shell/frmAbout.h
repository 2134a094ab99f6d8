// frmAbout: what this program is, and which version of it and of the client runs here.
#pragma once

#include "core/program.h"

namespace corvel {

class frmAbout : public ProgramForm {
 public:
  explicit frmAbout(Program& program);

  forms::PictureBox Picture1;
  forms::Label lblTitle, lblVersion, lblAOL, lblWhat;
  forms::Button cmdWebSite, cmdOK;

 protected:
  void Form_Load() override;
};

}  // namespace corvel
