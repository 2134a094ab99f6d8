// frmDescripAssign: the small dialog for one wav's name and description.
#pragma once

#include "core/program.h"
#include "wavlib/wav_descriptions.h"

#include <optional>

namespace corvel {

class frmDescripAssign : public ProgramForm {
 public:
  explicit frmDescripAssign(Program& program);

  forms::Label lblWav, lblDescrip;
  forms::TextBox txtWav, txtDescrip;
  forms::Button cmdOK, cmdCancel;

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

 private:
  void cmdCancel_Click();
};

// Shows the dialog in front of `owner`, preloaded, and waits for it. Nothing if it was cancelled;
// otherwise both texts, trimmed.
std::optional<Description> AskDescription(Program& program, forms::Form& owner,
                                          const Description& preset);

}  // namespace corvel
