// Which client this is: version, country, its texts; and whether the user is signed on.
#include "aolbridge/aolclient.h"
#include "aolbridge/polling.h"
#include "base/cp1252.h"
#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/main.h"

#include <algorithm>
#include <array>

namespace corvel {
namespace {

// Row 4 is a place in the table that no detection reaches now.
constexpr int kFormerLocale = 4;

struct LocaleRow {
  int locale;
  std::string_view versions;  // of AOLVer
  std::array<std::string_view, 7> strings;
};

// The order is that of AolStrings. Found by reading each client's windows.
constexpr std::array kLocaleRows = {
    LocaleRow{0,
              "3",
              {"Compose Mail", "America Online", "&About America Online", "America  Online",
               "Welcome", "Goodbye from America Online!", "Attach File"}},
    LocaleRow{0,
              "45",
              {"Write Mail", "America Online", "&About America Online", "America  Online",
               "Sign On", "Goodbye from America Online!", "Attach"}},
    LocaleRow{
        1, "4", {"Write Mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Open"}},
    LocaleRow{
        1,
        "5",
        {"Write Email", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Attach"}},
    LocaleRow{2,
              "4",
              {"Write Mail", "AOL Canada", "&About AOL Canada", "AOL Canada", "Sign On",
               "Goodbye from AOL Canada!", "Open"}},
    LocaleRow{2,
              "5",
              {"Write Mail", "AOL", "&About AOL Canada", "AOL Canada", "Sign On",
               "Goodbye from AOL Canada!", "Attach"}},
    LocaleRow{
        3,
        "4",
        {"Write e-mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Attach"}},
    LocaleRow{
        3,
        "5",
        {"Write e-mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL", "Attach"}},
    LocaleRow{
        kFormerLocale,
        "45",
        {"Write e-mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Attach"}},
};

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
      "Bitte schreiben Sie an ~B~CBsupport@qrvsoftware.com~B~CN " +
      std::string("für AOLSOFTWARE-Alternativen."_cp) + "~N ~NAbbrechenstart.";
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
  if (g.IsVersion4Or5()) {
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

void AolClient::LoadAOLStrings() {
  const Globals& g = program_.g;
  const auto row = std::find_if(kLocaleRows.begin(), kLocaleRows.end(), [&](const LocaleRow& r) {
    return r.locale == g.AOLLocale && !g.AOLVer.empty() &&
           r.versions.find(g.AOLVer) != std::string_view::npos;
  });
  if (row == kLocaleRows.end()) return;
  AolStrings& s = program_.g.strings;
  const std::array<std::string*, 7> targets = {
      &s.AOLWriteTitle,  &s.AOLName,         &s.AOLAbout,     &s.AOLTitle,
      &s.AOLSignOnTitle, &s.AOLGoodbyeTitle, &s.AOLAttachText};
  for (std::size_t i = 0; i < targets.size(); ++i) *targets[i] = row->strings[i];
}

bool AolClient::IsAOLAU() {
  const Window bar =
      FindChildByClass(FindChildByClass(program_.g.hAOL, "AOL Toolbar"), "_AOL_Toolbar");
  return Lower(GetAPIText(FindChildByClass(bar, "_AOL_ICON", 3))) == "e-mail centre";
}

// The sign of being online is a toolbar icon that is enabled.
bool AolClient::IsAOLOnline(bool showMessage) {
  const Globals& g = program_.g;
  if (g.Unloading) return false;
  // What is due may happen; there is nothing to wait for.
  program_.platform.events.Pump(
      {"IsAOLOnline", WaitFor::kClient, program_.platform.clock.TickCount()});
  if (g.Unloading) return false;
  const Window toolbar = FindChildByClass(g.hAOL, "AOL Toolbar");
  if (!toolbar) return false;
  const Window icon =
      g.AOLVer == "3" ? FindChildByClass(toolbar, "_AOL_ICON", 6)
                      : FindChildByClass(FindChildByClass(toolbar, "_AOL_TOOLBAR"), "_AOL_ICON");
  if (program_.platform.windows.IsEnabled(icon)) return true;
  if (showMessage)
    MsgBoxEx(program_,
             "~B~CRYou are not currently signed on!~B~CN~N ~NYou must be online to use this "
             "feature!",
             style::kOk + style::kExclamation);
  return false;
}

bool AolClient::IsModalCancelUp() {
  const Window modal = program_.platform.windows.Find("_AOL_MODAL", std::nullopt);
  return modal && HoldsNoCase(GetAPIText(FindChildByClass(modal, "_AOL_ICON")), "cancel");
}

}  // namespace corvel
