// frmInpBox: the program's input box.
#pragma once

#include "core/marked_picture.h"
#include "core/program.h"
#include "forms/timer.h"

#include <array>

namespace corvel {

class frmInpBox : public ProgramForm {
 public:
  frmInpBox(Program& program, std::string_view text, std::string_view preset);

  bool Answered() const { return answered_; }
  const std::string& Answer() const { return answer_; }  // "" on Cancel

  forms::PictureBox Image1;
  MarkedPicture Picture1;
  forms::Frame Frame1;
  forms::TextBox txtInput;
  std::array<forms::Button, 2> Command1;
  forms::Timer Timer1;

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

 private:
  void Finish(std::string answer);

  std::string text_, answer_;
  bool answered_ = false;
};

}  // namespace corvel
