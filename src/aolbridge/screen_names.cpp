// The account's screen names, and the one that is signed on.
#include "aolbridge/aolclient.h"
#include "aolbridge/list_memory.h"
#include "aolbridge/polling.h"
#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/report_error.h"

#include <array>

namespace corvel {
namespace {

constexpr std::size_t kNames4 = 5, kNames5 = 7;  // what the two versions offer

// Stores as many names as the version has; the others keep what they hold.
void StoreNames(Globals& g, const std::vector<std::string>& names) {
  const std::size_t most = g.AOLVer == "5" ? kNames5 : kNames4;
  for (std::size_t i = 0; i < most; ++i) g.SN[i] = i < names.size() ? names[i] : std::string();
}

struct ComboNames {
  std::vector<std::string> names;
  std::string selected;
};

// The names in the sign-on window's combo box, in front of "Guest".
ComboNames ReadCombo(Platform& platform, Window combo) {
  const ClientList list(platform, combo, ClientList::Kind::kComboBox);
  ComboNames result;
  for (int row = 0; row < list.Count() && result.names.size() < kNames5; ++row) {
    std::string name = list.Row(row);
    if (name == "Guest") break;
    result.names.push_back(std::move(name));
  }
  const int selected = list.Selected();
  if (selected >= 0 && static_cast<std::size_t>(selected) < result.names.size())
    result.selected = result.names[static_cast<std::size_t>(selected)];
  return result;
}

// The sign-on window in either of its states.
Window SignOnWindow(Program& program) {
  const Globals& g = program.g;
  WindowSystem& windows = program.platform.windows;
  if (const Window w = windows.FindChild(g.hMDI, {}, "AOL Child", g.strings.AOLSignOnTitle))
    return w;
  return windows.FindChild(g.hMDI, {}, "AOL Child", g.strings.AOLGoodbyeTitle);
}

void TimedOut(Program& program) {
  MsgBoxEx(program,
           std::string(kTitle) +
               " timed out waiting for America Online to load.~N ~NPlease start America Online "
               "first and then start Gatewarden: G-32",
           style::kOk + style::kExclamation);
  EndProgram();
}

}  // namespace

void AolClient::ReadSignOnNames() {
  Globals& g = program_.g;
  // Of a client that nobody knows there is no title to look for.
  if (g.strings.AOLSignOnTitle.empty()) return;
  for (int failures = 0; !g.Unloading;) {
    if (!program_.platform.windows.Exists(g.hAOL)) StopProgram(program_);
    const Window window = SignOnWindow(program_);
    if (!window) {
      if (IsAOLOnline(false)) return;  // the user has signed on meanwhile: no such window comes
      RunMenuByString(g.hAOL, g.AOLVer == "3" ? "Set Up && Sign On" : "&Sign On Screen", true);
      Poll(program_, "ReadSignOnNames", 1, [&] { return SignOnWindow(program_); });
      continue;
    }
    if (const Window combo = WaitChildByClass(window, "_AOL_COMBOBOX")) {
      const ComboNames found = ReadCombo(program_.platform, combo);
      StoreNames(g, found.names);
      g.CurrentSN = found.selected;
      return;
    }
    if (++failures == 3) TimedOut(program_);
  }
}

void AolClient::GetScreenNames() {
  Globals& g = program_.g;
  const bool signingOn = IsModalCancelUp();
  if (!signingOn && !IsAOLOnline(false)) {
    ReadSignOnNames();
    g.CurrentSN.clear();
    return;
  }
  if (g.AOLVer == "3") {
    const auto buffers = program_.platform.clientLibrary.GetScreenNames(g.AOLPath + "\\");
    for (std::size_t i = 0; i < buffers.size() && i < 5; ++i) g.SN[i] = Trim(CutAtNul(buffers[i]));
    if (buffers.size() > 5) g.CurrentSN = Trim(CutAtNul(buffers[5]));
    return;
  }
  if (!g.IsVersion4Or5()) return;
  const std::string file = g.AOLPath + "\\idb\\main.idx";
  if (!FileExists(program_, file))
    PlainBox(program_, "AOL MAIN.IDX not found! Aborting startup.", style::kOk);
  else
    Reported(program_, {"modAOLFunctions", "QRV_AOLGetScreenNames"}, [&] {
      const auto names = NamesInAccountIndex(ReadWholeFile(program_, file));
      if (!names.empty()) StoreNames(g, names);
    });
  if (!signingOn) g.CurrentSN = GetUserSN();
}

std::string AolClient::GetUserSN() {
  constexpr std::size_t kRoom = 256;
  constexpr std::string_view kWelcome = "Welcome,";
  Globals& g = program_.g;
  while (!g.Unloading) {
    if (!IsAOLOnline(false)) {
      ReadSignOnNames();
      return g.CurrentSN;
    }
    Window welcome = FindChildByTitle(g.hMDI, kWelcome);
    if (!welcome && g.AOLVer == "5") {
      RunKeyword("welcome");
      welcome = WaitChildByTitle(g.hMDI, "Welcome, ");
    }
    if (!welcome) continue;
    const std::string text =
        program_.platform.windows.SendForText(welcome, wm::kGetText, kRoom, kRoom);
    const std::string name = text.size() > kWelcome.size() ? text.substr(kWelcome.size()) : "";
    return Trim(std::string_view(name).substr(0, name.find('!')));
  }
  return {};
}

void AolClient::MSNCheck() {
  const std::string master = Trim(program_.g.SN[0]);
  if (master == "New User") {
    MsgBoxEx(
        program_,
        std::string("~B~CRAOL Software not registered!~B~CN~N ~N") + kTitle +
            " has detected that the version of AOL you wish to use does not have an account "
            "installed (e.g. - ~B~CBNew User~B~CN)~N ~NYou must have an AOL account registered "
            "before attempting to load " +
            kTitle + "!",
        style::kOk + style::kExclamation);
    program_.forms.UnloadAll();
    EndProgram();
  }
  if (master.empty() && !IsAOLOnline(false)) ReadSignOnNames();
}

}  // namespace corvel
