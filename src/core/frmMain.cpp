#include "core/frmMain.h"

#include "core/features/facts_and_clock.h"
#include "core/main.h"
#include "core/report_error.h"

namespace corvel {

frmMain::frmMain(Program& p)
    : ProgramForm(p, "frmMain", kTitle),
      Picture1(*this, "Picture1"),
      lblTitle(*this, "lblTitle", std::string(kTitle) + "  " + p.g.ProgramVersion),
      lblFact(*this, "lblFact", "Fact of the Day"),
      lblTipText(*this, "lblTipText"),
      lblStatus(*this, "lblStatus"),
      prgStatus(*this, "prgStatus"),
      cmdExit(*this, "cmdExit", "E&xit Corvel") {
  SetBorder(false);
  SetEtchedEdge(true);
  SetClosable(false);
  Picture1.SetPicture(Picture::kGradient);
  Picture1.SetAccessibleName(kTitle);
  FontStyle bold;
  bold.bold = true;
  lblTitle.SetFont(bold);
  lblFact.SetFont(bold);
  lblTipText.SetWordWrap(true);
  lblTipText.SetMnemonic(false);
  prgStatus.SetAccessibleName("Progress of the start");
  cmdExit.SetVisible(false);
  cmdExit.SetCancel(true);
  cmdExit.SetToolTip("Ends the start; the client stays");
  cmdExit.onClick = [this] { UnloadAllForms(program, false); };
}

void frmMain::Form_Load() {
  using forms::Cell, forms::Column, forms::Row, forms::Space;
  GoOn([this] { lblTipText.SetCaption(program.hub.factsAndClock->ChooseFact()); });
  lblFact.SetVisible(!lblTipText.Caption().empty());
  lblTipText.SetVisible(!lblTipText.Caption().empty());
  Arrange(Column({Cell(Picture1, 56, 2), Cell(lblTitle), Cell(lblFact), Cell(lblTipText, 56),
                  Cell(lblStatus, 56), Cell(prgStatus, 56), Row({Space(), Cell(cmdExit)})}));
  Center();
}

void frmMain::OfferExit(bool offered) {
  cmdExit.SetVisible(offered);
  Arrange();
}

// It goes when the start is through, not before.
bool frmMain::Form_QueryUnload(bool byUser) { return !byUser; }

}  // namespace corvel
