// The account's screen names, and the one that is signed on.
#include "aolbridge/aolclient.h"
#include "aolbridge/client_facts.h"
#include "aolbridge/list_memory.h"
#include "aolbridge/polling.h"
#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/report_error.h"
#include "core/users_turn.h"

namespace corvel {
namespace {

constexpr std::size_t kMostRows = 7;
constexpr const char* kAskForWelcome =
    "Please open the Welcome window again: it tells your screen name.";
constexpr const char* kAskForSignOn = "Please open the Sign On window: it tells your screen names.";

// Stores `most` names; the others keep what they hold.
void StoreNames(Globals& g, const std::vector<std::string>& names, int most) {
  for (std::size_t i = 0; i < static_cast<std::size_t>(most); ++i)
    g.SN[i] = i < names.size() ? names[i] : std::string();
}

struct ComboNames {
  std::vector<std::string> names;
  std::string selected;
};

// The names in the sign-on window's combo box, in front of "Guest".
ComboNames ReadCombo(Platform& platform, Window combo) {
  const ClientList list(platform, combo, ClientList::Kind::kComboBox);
  ComboNames result;
  for (int row = 0; row < list.Count() && result.names.size() < kMostRows; ++row) {
    std::string name = list.Row(row);
    if (name == "Guest") break;
    result.names.push_back(std::move(name));
  }
  const int selected = list.Selected();
  if (selected >= 0 && static_cast<std::size_t>(selected) < result.names.size())
    result.selected = result.names[static_cast<std::size_t>(selected)];
  return result;
}

void TimedOut(Program& program) {
  MsgBoxEx(program,
           std::string(kTitle) +
               " timed out waiting for America Online to load.~N ~NPlease start America Online "
               "first and then start Gatewarden: G-32",
           style::kOk + style::kExclamation);
  StopProgram(program);
}

// "Welcome, NAME!"
std::string NameInWelcome(const std::string& caption) {
  const std::size_t greeting = facts::kWelcome.size();
  const std::string name = caption.size() > greeting ? caption.substr(greeting) : std::string();
  return Trim(std::string_view(name).substr(0, name.find('!')));
}

}  // namespace

// In either of its states.
Window AolClient::SignOnWindow() {
  const Window window = DocumentTitled(strings_.AOLSignOnTitle);
  return window ? window : DocumentTitled(strings_.AOLGoodbyeTitle);
}

void AolClient::ReadSignOnNames() {
  constexpr double kPatience = 1;  // seconds, as often as need be
  constexpr int kTriesAlone = 10;  // before the user is asked to help
  Globals& g = program_.g;
  if (!KnownEdition()) return;  // there is no title to look for
  std::optional<UsersTurn> turn;
  for (int tries = 0, failures = 0; !g.Unloading;) {
    if (!program_.platform.windows.Exists(g.hAOL)) StopProgram(program_);
    const Window window = SignOnWindow();
    if (!window) {
      if (IsAOLOnline(false)) return;  // the user has signed on meanwhile: no such window comes
      RunMenuByString(g.hAOL, Fact(facts::kSignOnRow), true);
      if (!turn && ++tries > kTriesAlone) turn.emplace(program_, kAskForSignOn);
      Poll(
          program_, "ReadSignOnNames", kPatience, [&] { return SignOnWindow(); },
          turn ? WaitFor::kUser : WaitFor::kClient);
      continue;
    }
    if (const Window combo = WaitChildByClass(window, facts::kCombo)) {
      const ComboNames found = ReadCombo(program_.platform, combo);
      StoreNames(g, found.names, Fact(facts::kNamesKept));
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
  if (!KnownEdition()) return;
  if (Fact(facts::kNamesInAccountIndex))
    ReadAccountIndex();
  else
    AskLibraryForNames();
  if (Fact(facts::kNamesInAccountIndex) && !signingOn) g.CurrentSN = GetUserSN();
}

void AolClient::AskLibraryForNames() {
  Globals& g = program_.g;
  const auto buffers = program_.platform.clientLibrary.GetScreenNames(g.AOLPath + "\\");
  const auto most = static_cast<std::size_t>(Fact(facts::kNamesKept));
  for (std::size_t i = 0; i < buffers.size() && i < most; ++i) g.SN[i] = Trim(CutAtNul(buffers[i]));
  if (buffers.size() > most) g.CurrentSN = Trim(CutAtNul(buffers[most]));
}

void AolClient::ReadAccountIndex() {
  const std::string file = program_.g.AOLPath + "\\idb\\main.idx";
  if (!FileExists(program_, file)) {
    PlainBox(program_, "AOL MAIN.IDX not found! Aborting startup.", style::kOk);
    return;
  }
  Reported(program_, {"modAOLFunctions", "QRV_AOLGetScreenNames"}, [&] {
    const auto names = NamesInAccountIndex(ReadWholeFile(program_, file));
    if (!names.empty()) StoreNames(program_.g, names, Fact(facts::kNamesKept));
  });
}

// The name stands in the caption of the Welcome window alone. Where the user has closed it, and the
// client has no keyword for it, only he can open it again.
std::string AolClient::GetUserSN() {
  constexpr std::size_t kRoom = 256;
  constexpr double kBetweenLooks = 1;  // seconds, after which the session is looked at again
  Globals& g = program_.g;
  std::optional<UsersTurn> turn;
  while (!g.Unloading) {
    if (!IsAOLOnline(false)) {
      ReadSignOnNames();
      return g.CurrentSN;
    }
    Window welcome = WelcomeWindow();
    if (!welcome) welcome = CallForWelcome();
    if (!welcome && turn)
      welcome = Poll(
          program_, "GetUserSN", kBetweenLooks, [&] { return WelcomeWindow(); }, WaitFor::kUser);
    if (welcome)
      return NameInWelcome(
          program_.platform.windows.SendForText(welcome, wm::kGetText, kRoom, kRoom));
    if (!turn) turn.emplace(program_, kAskForWelcome);
  }
  return {};
}

// By its keyword, where there is one; else it may just be on its way.
Window AolClient::CallForWelcome() {
  constexpr double kPatience = 3;  // seconds
  if (const auto keyword = Fact(facts::kWelcomeKeyword); !keyword.empty()) {
    RunKeyword(std::string(keyword));
    return WaitChildByTitle(program_.g.hMDI, "Welcome, ");
  }
  return Poll(program_, "GetUserSN", kPatience, [&] { return WelcomeWindow(); });
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
