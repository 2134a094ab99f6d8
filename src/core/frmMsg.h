// frmMsg: the program's message box.
#pragma once

#include "core/marked_picture.h"
#include "core/program.h"

#include <array>

namespace corvel {

class frmMsg : public ProgramForm {
 public:
  // `style` as MsgBoxEx takes it; `noShow` is the first state of chkNoShow, nullptr leaves it out.
  frmMsg(Program& program, std::string_view text, int style, const bool* noShow);

  // 0 until a button is pressed.
  int Answer() const { return answer_; }
  // The answer that changes nothing: what Escape gives or, where it does nothing, the last button
  // of Yes/No and the first of Abort/Retry/Ignore.
  int HarmlessAnswer() const;

  MarkedPicture Picture2;
  forms::PictureBox Picture1;
  std::array<forms::Button, 3> Command1;
  forms::CheckBox chkNoShow;

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

 private:
  void Command1_Click(int index);

  std::string text_;
  int set_;  // of buttons
  int answer_ = 0;
};

}  // namespace corvel
