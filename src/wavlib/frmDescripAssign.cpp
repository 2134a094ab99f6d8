#include "wavlib/frmDescripAssign.h"

#include "base/text.h"
#include "core/looks.h"

namespace corvel {

frmDescripAssign::frmDescripAssign(Program& p, const Description& preset)
    : ModalForm(p, "frmDescripAssign", "Wav Description", std::nullopt),
      lblWav(*this, "lblWav", "&Wav:"),
      lblDescrip(*this, "lblDescrip", "&Description:"),
      txtWav(*this, "txtWav"),
      txtDescrip(*this, "txtDescrip"),
      cmdOK(*this, "cmdOK", "OK"),
      cmdCancel(*this, "cmdCancel", "Cancel") {
  txtWav.SetText(preset.name);
  txtDescrip.SetText(preset.text);
  txtWav.SetAccessibleName("Wav");
  txtDescrip.SetAccessibleName("Description");
  cmdOK.SetDefault(true);
  cmdOK.onClick = [this] { cmdOK_Click(); };
  cmdCancel.SetCancel(true);
  cmdCancel.onClick = [this] { Cancel(); };
}

void frmDescripAssign::Form_Load() {
  SetFormColor(program, *this);
  using namespace forms;
  Arrange(Column({Cell(lblWav), Cell(txtWav, 50), Cell(lblDescrip), Cell(txtDescrip, 50),
                  Row({Space(), Cell(cmdOK, 10), Cell(cmdCancel, 10)})}));
}

void frmDescripAssign::cmdOK_Click() {
  const Description record{Trim(txtWav.Text()), Trim(txtDescrip.Text())};
  if (record.name.empty() && record.text.empty())
    Cancel();
  else
    Answer(record);
}

}  // namespace corvel
