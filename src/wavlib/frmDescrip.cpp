#include "wavlib/frmDescrip.h"

#include "base/text.h"
#include "core/helpers.h"
#include "core/looks.h"

#include <algorithm>

namespace corvel {
namespace {

constexpr const char* kDescriptionsSection = "Descriptions";
constexpr int kColumns = 40, kLines = 3;
constexpr int kSmallest = 300;  // twips: what is smaller could not be caught by the mouse any more

}  // namespace

frmDescrip::frmDescrip(Program& program)
    : ProgramForm(program, "frmDescrip"), lblDes(*this, "lblDes") {
  SetBorder(false);
  SetResizable(true);
  SetEtchedEdge(true);
  lblDes.SetWordWrap(true);
  lblDes.SetMnemonic(false);
  lblDes.SetAccessibleName("Wav description");
  lblDes.onDrag = [this](int dx, int dy) { lblDes_Drag(dx, dy); };
}

void frmDescrip::Form_Load() {
  SetFormColor(program, *this);
  RestoreSize();
  RestorePlace(program, *this, kDescriptionsSection);
  Form_Resize();
}

void frmDescrip::RestoreSize() {
  const int width = IntVal(program.store.ReadKey(kDescriptionsSection, "Width"));
  const int height = IntVal(program.store.ReadKey(kDescriptionsSection, "Height"));
  const Size screen = platform().display.ScreenSize();
  const int twips = platform().display.TwipsPerPixel();
  const Size letter = platform().display.TextExtent("n", {});
  if (width > 0 && height > 0)
    SetSize(std::clamp(width, kSmallest, screen.width * twips),
            std::clamp(height, kSmallest, screen.height * twips));
  else
    SetSize(kColumns * letter.width * twips, kLines * letter.height * twips);
}

void frmDescrip::Form_Move() {
  SavePlace(program, *this, kDescriptionsSection);
  program.store.WriteKey(kDescriptionsSection, "Width", std::to_string(Width()));
  program.store.WriteKey(kDescriptionsSection, "Height", std::to_string(Height()));
}

void frmDescrip::Form_Resize() {
  lblDes.SetPlace({0, 0, State().place.width, State().place.height});
}

void frmDescrip::lblDes_Drag(int dx, int dy) {
  const int twips = platform().display.TwipsPerPixel();
  MoveTo(Left() + dx * twips, Top() + dy * twips);
  Form_Move();
}

}  // namespace corvel
