#include "wavlib/frmDescripAssign.h"

#include "base/text.h"
#include "core/looks.h"
#include "wavlib/modal.h"

namespace corvel {

frmDescripAssign::frmDescripAssign(Program& program)
    : ProgramForm(program, "frmDescripAssign", "Wav Description"),
      lblWav(*this, "lblWav", "&Wav:"),
      lblDescrip(*this, "lblDescrip", "&Description:"),
      txtWav(*this, "txtWav"),
      txtDescrip(*this, "txtDescrip"),
      cmdOK(*this, "cmdOK", "OK"),
      cmdCancel(*this, "cmdCancel", "Cancel") {
  txtWav.SetAccessibleName("Wav");
  txtDescrip.SetAccessibleName("Description");
  cmdOK.SetDefault(true);
  cmdOK.onClick = [this] { Hide(); };
  cmdCancel.SetCancel(true);
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmDescripAssign::Form_Load() {
  SetFormColor(program, *this);
  using namespace forms;
  Arrange(Column({Cell(lblWav), Cell(txtWav, 50), Cell(lblDescrip), Cell(txtDescrip, 50),
                  Row({Space(), Cell(cmdOK, 10), Cell(cmdCancel, 10)})}));
}

// The frame's close box is a way to cancel; whoever waits reads the boxes and unloads the window.
bool frmDescripAssign::Form_QueryUnload(bool byUser) {
  if (byUser) cmdCancel_Click();
  return !byUser;
}

void frmDescripAssign::cmdCancel_Click() {
  txtWav.SetText("");
  txtDescrip.SetText("");
  Hide();
}

std::optional<Description> AskDescription(Program& program, forms::Form& owner,
                                          const Description& preset) {
  const auto dialog = program.forms.LoadNew<frmDescripAssign>(program);
  dialog->txtWav.SetText(preset.name);
  dialog->txtDescrip.SetText(preset.text);
  ShowModal(program, owner, *dialog, "AskDescription");
  Description answer{Trim(dialog->txtWav.Text()), Trim(dialog->txtDescrip.Text())};
  const bool unloaded = !dialog->IsLoaded();  // the program ended meanwhile
  dialog->Unload();
  if (unloaded || (answer.name.empty() && answer.text.empty())) return std::nullopt;
  return answer;
}

}  // namespace corvel
