// frmDescrip: the small window without a caption that shows a wav's description. It is moved by
// dragging its text.
#pragma once

#include "core/program.h"

namespace corvel {

class frmDescrip : public ProgramForm {
 public:
  explicit frmDescrip(Program& program);

  forms::Label lblDes;

 protected:
  void Form_Load() override;
  void Form_Move() override;
  void Form_Resize() override;

 private:
  void RestoreSize();
};

}  // namespace corvel
