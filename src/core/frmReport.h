// frmReport: tells the user of a run-time error and asks what is to be done.
#pragma once

#include "core/report_error.h"

#include <optional>

namespace corvel {

class frmReport : public ProgramForm {
 public:
  frmReport(Program& program, const ErrorPlace& place, const RunTimeError& error);
  // Nothing until a button is pressed.
  std::optional<ErrorAnswer> Answer() const { return answer_; }

  forms::PictureBox Picture1;
  forms::Label lblHeading, lblPlace, lblError;
  forms::Button cmdStop, cmdRetry, cmdGoOn;

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

 private:
  std::optional<ErrorAnswer> answer_;
};

}  // namespace corvel
