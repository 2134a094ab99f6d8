#include "wavlib/frmDescrip.h"

#include "base/text.h"
#include "core/helpers.h"
#include "core/looks.h"
#include "core/settings_wavs.h"

#include <algorithm>

namespace corvel {
namespace {

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
  SetDraggedBy(lblDes);
}

void frmDescrip::Form_Load() {
  SetFormColor(program, *this);
  RestoreSize();
  RestorePlace(program, *this, program.settings.Descriptions.Place);
  Form_Resize();
}

void frmDescrip::RestoreSize() {
  const int width = program.settings.Descriptions.Width.Read();
  const int height = program.settings.Descriptions.Height.Read();
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
  SavePlace(*this, program.settings.Descriptions.Place);
  program.settings.Descriptions.Width.Set(Width());
  program.settings.Descriptions.Height.Set(Height());
}

void frmDescrip::Form_Resize() {
  lblDes.SetPlace({0, 0, State().place.width, State().place.height});
}

}  // namespace corvel
