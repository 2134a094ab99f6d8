// frmReport: tells the user of a run-time error and asks what is to be done.
#pragma once

#include "core/modal_form.h"
#include "core/report_error.h"

namespace corvel {

class frmReport : public ModalForm<ErrorAnswer> {
 public:
  frmReport(Program& program, const ErrorPlace& place, const RunTimeError& error, bool canRetry);

  forms::PictureBox Picture1;
  forms::Label lblHeading, lblPlace, lblError;
  forms::Button cmdStop, cmdRetry, cmdGoOn;

 protected:
  void Form_Load() override;
};

}  // namespace corvel
