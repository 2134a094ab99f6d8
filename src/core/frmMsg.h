// frmMsg: the program's message box. With a wav it is also the window in which one that has been
// found is heard or deleted.
#pragma once

#include "core/dialogs.h"
#include "core/marked_picture.h"
#include "core/modal_form.h"

#include <array>

namespace corvel {

struct MessageAnswer {
  int button = 0;
  bool noShow = false;  // the state of chkNoShow
};

class frmMsg : public ModalForm<MessageAnswer> {
 public:
  frmMsg(Program& program, std::string_view text, int style, const MessageOptions& options);

  MarkedPicture Picture2;
  forms::PictureBox Picture1;
  std::array<forms::Button, 3> Command1;
  forms::CheckBox chkNoShow;

 protected:
  void Form_Load() override;
  void Cancel() override;

 private:
  void ShowButtons(int style);
  void Command1_Click(int index);
  void Preview();
  void Hushlet();
  void DeleteWav();
  void EnableButtons(bool enabled);

  std::string text_, wav_;
  bool canCancel_ = false;
};

}  // namespace corvel
