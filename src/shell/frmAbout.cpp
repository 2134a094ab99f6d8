#include "shell/frmAbout.h"

#include "core/looks.h"
#include "core/maker_pages.h"

namespace corvel {
namespace {

constexpr int kColumns = 44;
constexpr const char* kWhat =
    "Stands beside America Online and adds what a chat room wants: wavs with their colours, fades, "
    "keywords, Instant Messages in one place.";

}  // namespace

frmAbout::frmAbout(Program& p)
    : ProgramForm(p, "frmAbout", std::string("About ") + kTitle),
      Picture1(*this, "Picture1"),
      lblTitle(*this, "lblTitle", kTitle),
      lblVersion(*this, "lblVersion", "Version " + p.g.ProgramVersion),
      lblAOL(*this, "lblAOL", "America Online " + p.g.AOLVerText),
      lblWhat(*this, "lblWhat", kWhat),
      cmdWebSite(*this, "cmdWebSite", "QRV Software &Web Site"),
      cmdOK(*this, "cmdOK", "OK") {
  Picture1.SetPicture(Picture::kGradient);
  Picture1.SetAccessibleName(kTitle);
  FontStyle bold;
  bold.bold = true;
  lblTitle.SetFont(bold);
  lblWhat.SetWordWrap(true);
  cmdWebSite.SetToolTip(maker::kWebSite);
  cmdWebSite.onClick = [this] { OpenPage(program, this, maker::kWebSite); };
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
  cmdOK.onClick = [this] { Unload(); };
}

void frmAbout::Form_Load() {
  SetFormColor(program, *this);
  using namespace forms;
  Arrange(Column({Cell(Picture1, kColumns, 2), Cell(lblTitle), Cell(lblVersion), Cell(lblAOL),
                  Cell(lblWhat, kColumns), Row({Cell(cmdWebSite, 22), Space(), Cell(cmdOK, 10)})}));
  Center();
  SetOwner(program.g.hAOL);
}

}  // namespace corvel
