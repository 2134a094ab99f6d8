#include "wavlib/frmSendTo.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/looks.h"

namespace corvel {

frmSendTo::frmSendTo(Program& program)
    : ProgramForm(program, "frmSendTo", "Move Selected Wav"),
      lblWavFile(*this, "lblWavFile"),
      lblWav(*this, "lblWav"),
      lblTarget(*this, "lblTarget", "&Send to folder:"),
      txtHistory(*this, "txtHistory"),
      cmdBrowse(*this, "cmdBrowse", "&Browse..."),
      optCopy(*this, "optCopy", "&Copy"),
      optMove(*this, "optMove", "&Move"),
      cmdOK(*this, "cmdOK", "OK"),
      cmdCancel(*this, "cmdCancel", "Cancel") {
  lblWav.SetMnemonic(false);
  lblWavFile.SetMnemonic(false);
  optCopy.SetValue(true);
  txtHistory.SetAccessibleName("Target folder");
  txtHistory.onKey = [this](Key key) {
    if (key != Key::kEnter) return false;
    Hide();
    return true;
  };
  cmdBrowse.onClick = [this] { cmdBrowse_Click(); };
  cmdOK.SetDefault(true);
  cmdOK.onClick = [this] { Hide(); };
  cmdCancel.SetCancel(true);
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmSendTo::Form_Load() {
  SetFormColor(program, *this);
  txtHistory.SetText(Trim(program.store.ReadKey("SendTo", "Last")));
  using namespace forms;
  Arrange(Column({Cell(lblWav, 60), Cell(lblWavFile, 60), Cell(lblTarget),
                  Row({Stretch(Cell(txtHistory, 45)), Cell(cmdBrowse, 12)}),
                  Row({Cell(optCopy, 10), Cell(optMove, 10), Space(), Cell(cmdOK, 10),
                       Cell(cmdCancel, 10)})}));
}

// The frame's close box is a way to cancel; whoever waits reads the box and unloads the window.
bool frmSendTo::Form_QueryUnload(bool byUser) {
  if (byUser) cmdCancel_Click();
  return !byUser;
}

void frmSendTo::cmdBrowse_Click() {
  const std::string folder = SaveDialog(program, Handle(), "WAV Files", "*.wav");
  if (!folder.empty()) txtHistory.SetText(folder);
}

void frmSendTo::cmdCancel_Click() {
  txtHistory.SetText("");
  Hide();
}

}  // namespace corvel
