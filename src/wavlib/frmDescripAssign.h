// frmDescripAssign: the small dialog for one wav's name and description.
#pragma once

#include "core/modal_form.h"
#include "wavlib/wav_descriptions.h"

#include <optional>

namespace corvel {

// Both texts, trimmed; nothing on Cancel, or if both are empty.
class frmDescripAssign : public ModalForm<std::optional<Description>> {
 public:
  frmDescripAssign(Program& program, const Description& preset);

  forms::Label lblWav, lblDescrip;
  forms::TextBox txtWav, txtDescrip;
  forms::Button cmdOK, cmdCancel;

 protected:
  void Form_Load() override;

 private:
  void cmdOK_Click();
};

}  // namespace corvel
