#include "wavlib/frmSendTo.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/looks.h"
#include "core/settings_wavs.h"

namespace corvel {

frmSendTo::frmSendTo(Program& p, const std::string& path, const std::string& name)
    : ModalForm(p, "frmSendTo", "Move Selected Wav", {}),
      lblWavFile(*this, "lblWavFile", path),
      lblWav(*this, "lblWav", name),
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
  cmdBrowse.onClick = [this] { cmdBrowse_Click(); };
  cmdOK.SetDefault(true);
  cmdOK.onClick = [this] { Answer({Trim(txtHistory.Text()), optMove.Value()}); };
  cmdCancel.SetCancel(true);
  cmdCancel.onClick = [this] { Cancel(); };
}

void frmSendTo::Form_Load() {
  SetFormColor(program, *this);
  txtHistory.SetText(program.settings.SendTo.Last.Read());
  using namespace forms;
  Arrange(Column({Cell(lblWav, 60), Cell(lblWavFile, 60), Cell(lblTarget),
                  Row({Stretch(Cell(txtHistory, 45)), Cell(cmdBrowse, 12)}),
                  Row({Cell(optCopy, 10), Cell(optMove, 10), Space(), Cell(cmdOK, 10),
                       Cell(cmdCancel, 10)})}));
}

void frmSendTo::cmdBrowse_Click() {
  const std::string folder = SaveDialog(program, Handle(), "WAV Files", "*.wav");
  if (!folder.empty()) txtHistory.SetText(folder);
}

}  // namespace corvel
