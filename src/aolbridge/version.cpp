// Which client this is: its frame, version, country; and whether the user is signed on.
#include "aolbridge/aolclient.h"
#include "aolbridge/client_facts.h"
#include "aolbridge/polling.h"
#include "base/cp1252.h"
#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/maker_pages.h"

namespace corvel {
namespace {

std::string VersionDigit(std::string_view version) {
  if (version == "3.0") return "3";
  if (version == "4.0") return "4";
  if (version == "5.0" || version == "5.1") return "5";
  return {};
}

// The menus tell the country. A client that is just coming up has none, and one that hangs doesn't
// tell.
void WaitForMenus(Program& program) {
  constexpr double kLongest = 30;
  Poll(program, "GetAOLVersion", kLongest,
       [&] { return program.platform.menus.MenuOf(program.g.hAOL); });
}

[[noreturn]] void RefuseVersion6(Program& program) {
  MsgBoxEx(program,
           "~B~CRAOL 6.0 Detected!~B~CN~N ~NThis version of Corvel 32 is not yet compatible with "
           "AOL 6.0.",
           style::kOk + style::kExclamation);
  StopProgram(program);
}

[[noreturn]] void RefuseGermanClient(Program& program) {
  const std::string text =
      std::string("~B~CRAOL DE Ermittelt!~B~CN~N ~N") + kTitle +
      " ist nicht kompatibel mit der deutschen Version der America Online software.~N ~N"
      "Bitte schreiben Sie an ~B~CB" +
      maker::kSupportAddress + "~B~CN " + std::string("für AOLSOFTWARE-Alternativen."_cp) +
      "~N ~NAbbrechenstart.";
  MsgBoxEx(program, text, style::kOk + style::kExclamation);
  StopProgram(program);
}

}  // namespace

void AolClient::GetAOLVersion() {
  Globals& g = program_.g;
  const std::string version = CutAtNul(program_.platform.clientLibrary.GetVersion(g.AOLPath));
  g.AOLVer = VersionDigit(version);
  g.AOLLocale = 0;
  if (version == "6.0") RefuseVersion6(program_);
  if (Fact(facts::kMenusTellCountry)) {
    WaitForMenus(program_);
    if (RunMenuByString(g.hAOL, "&About AOL", false))
      g.AOLLocale = IsAOLAU() ? 3 : 1;
    else if (RunMenuByString(g.hAOL, "&About AOL Canada", false))
      g.AOLLocale = 2;
    else if (RunMenuByString(g.hAOL, "&Über AOL 5.0"_cp, false))
      RefuseGermanClient(program_);
  }
  g.AOLVerFull = version;
}

std::optional<Edition> AolClient::KnownEdition() const {
  return EditionOf(program_.g.AOLVer, program_.g.AOLLocale);
}

Country AolClient::CountryOf() const { return CountryAt(program_.g.AOLLocale); }

void AolClient::LoadAOLStrings() {
  strings_ = StringsOf(KnownEdition());
  program_.g.houseColors = HouseColorsAt(program_.g.AOLLocale);
}

Window AolClient::FindFrame() {
  return program_.platform.windows.Find(facts::kFrame, std::nullopt);
}

Window AolClient::FindMdi() {
  return program_.platform.windows.FindChild(program_.g.hAOL, {}, facts::kMdi, std::nullopt);
}

// The window that holds the icons of the toolbar.
Window AolClient::IconRow() {
  const Window toolbar = FindChildByClass(program_.g.hAOL, facts::kToolbar);
  return Fact(facts::kToolbarHoldsIcons) ? toolbar : FindChildByClass(toolbar, facts::kIconRow);
}

bool AolClient::IsAOLAU() {
  return Lower(GetAPIText(FindChildByClass(IconRow(), facts::kIcon, 3))) == "e-mail centre";
}

// The sign of being online is a toolbar icon that is enabled.
bool AolClient::IsAOLOnline(bool showMessage) {
  const Globals& g = program_.g;
  if (g.Unloading) return false;
  // What is due may happen; there is nothing to wait for.
  program_.platform.events.Pump(
      {"IsAOLOnline", WaitFor::kClient, program_.platform.clock.TickCount()});
  if (g.Unloading) return false;
  const Window icon = FindChildByClass(IconRow(), facts::kIcon, Fact(facts::kOnlineIcon));
  if (program_.platform.windows.IsEnabled(icon)) return true;
  if (showMessage)
    MsgBoxEx(program_,
             "~B~CRYou are not currently signed on!~B~CN~N ~NYou must be online to use this "
             "feature!",
             style::kOk + style::kExclamation);
  return false;
}

bool AolClient::IsModalCancelUp() {
  return HoldsNoCase(GetAPIText(FindChildByClass(ModalWindow(), facts::kIcon)), "cancel");
}

}  // namespace corvel
