// frmInpBox: the program's input box.
#pragma once

#include "core/dialogs.h"
#include "core/marked_picture.h"
#include "core/modal_form.h"
#include "forms/timer.h"

#include <array>

namespace corvel {

class frmInpBox : public ModalForm<std::string> {  // "" on Cancel
 public:
  frmInpBox(Program& program, std::string_view text, std::string_view preset,
            const InputOptions& options);

  forms::PictureBox Image1;
  MarkedPicture Picture1;
  forms::Frame Frame1;
  forms::TextBox txtInput;
  std::array<forms::Button, 2> Command1;
  forms::Timer Timer1;

 protected:
  void Form_Load() override;

 private:
  std::string text_;
};

}  // namespace corvel
