#include "core/frmInpBox.h"

namespace corvel {

namespace {

constexpr int kInputColumns = 52;
constexpr std::uint32_t kFocusDelayMs = 50;

}  // namespace

frmInpBox::frmInpBox(Program& p, std::string_view text, std::string_view preset,
                     const InputOptions& options)
    : ModalForm(p, "frmInpBox", options.title.empty() ? DialogTitle(p) : options.title, {}),
      Image1(*this, "Image1"),
      Picture1(*this, "Picture1"),
      Frame1(*this, "Frame1"),
      txtInput(*this, "txtInput"),
      Command1{{{*this, "Command1", "OK", 0}, {*this, "Command1", "Cancel", 1}}},
      Timer1(*this, "Timer1", kFocusDelayMs, true),
      text_(text) {
  Image1.SetPicture(Picture::kQuestion);
  txtInput.SetText(preset);
  txtInput.SetMaxLength(options.maxLength);
  Command1[0].SetDefault(true);
  Command1[1].SetCancel(true);
  Command1[0].onClick = [this] { Answer(txtInput.Text()); };
  Command1[1].onClick = [this] { Cancel(); };
  // The focus can only go to the box once the window stands.
  Timer1.onTimer = [this] {
    Timer1.SetEnabled(false);
    txtInput.TakeFocus();
  };
}

void frmInpBox::Form_Load() {
  using forms::Cell, forms::Column, forms::Framed, forms::Row, forms::Space, forms::Stretch;
  Picture1.SetMarkedText(platform().display, text_, kInputColumns);
  txtInput.SetAccessibleName(Picture1.State().accessibleName);
  Arrange(Column({Row({Cell(Image1), Cell(Picture1)}),
                  Framed(Frame1, Row({Stretch(Cell(txtInput, kInputColumns))})),
                  Row({Space(), Cell(Command1[0]), Cell(Command1[1]), Space()})}));
  SetTopMost();
}

}  // namespace corvel
