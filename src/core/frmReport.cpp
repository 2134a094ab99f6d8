#include "core/frmReport.h"

namespace corvel {

namespace {

std::string PlaceText(const Program& program, const ErrorPlace& place) {
  return std::string(kTitle) + " " + program.g.ProgramVersion + ", " + place.module + ", " +
         place.procedure + (place.line > 0 ? ", line " + std::to_string(place.line) : "");
}

std::string ClientText(const Program& program) {
  return program.g.AOLVerText.empty() ? "" : " (AOL " + program.g.AOLVerText + ")";
}

}  // namespace

frmReport::frmReport(Program& p, const ErrorPlace& place, const RunTimeError& error, bool canRetry)
    : ModalForm(p, "frmReport", std::string(kTitle) + " - Error", ErrorAnswer::kGoOn),
      Picture1(*this, "Picture1"),
      lblHeading(*this, "lblHeading", "A step could not be completed."),
      lblPlace(*this, "lblPlace", PlaceText(p, place) + ClientText(p)),
      lblError(*this, "lblError", "Error " + std::to_string(error.Number()) + ": " + error.Text()),
      cmdStop(*this, "cmdStop", "&Stop"),
      cmdRetry(*this, "cmdRetry", "&Retry"),
      cmdGoOn(*this, "cmdGoOn", "&Go on") {
  lblPlace.SetMnemonic(false);
  lblError.SetMnemonic(false);
  Picture1.SetPicture(Picture::kStop);
  Picture1.SetAccessibleName("Error");
  cmdStop.SetToolTip("Ends Corvel 32 and gives the client everything back.");
  cmdRetry.SetToolTip("Tries the step again.");
  cmdRetry.SetVisible(canRetry);
  cmdGoOn.SetToolTip("Leaves the step out and goes on.");
  cmdGoOn.SetDefault(true);
  cmdGoOn.SetCancel(true);
  cmdStop.onClick = [this] { Answer(ErrorAnswer::kStop); };
  cmdRetry.onClick = [this] { Answer(ErrorAnswer::kRetry); };
  cmdGoOn.onClick = [this] { Answer(ErrorAnswer::kGoOn); };
}

void frmReport::Form_Load() {
  using forms::Cell, forms::Column, forms::Row, forms::Space;
  Arrange(Column({Row({Cell(Picture1), Column({Cell(lblHeading), Cell(lblPlace), Cell(lblError)})}),
                  Row({Space(), Cell(cmdStop), Cell(cmdRetry), Cell(cmdGoOn), Space()})}));
}

}  // namespace corvel
