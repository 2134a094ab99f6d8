#include "practice/win32/practice_app.h"

#include "base/error.h"
#include "base/text.h"
#include "platform/win32/handles.h"

#include <string_view>

namespace corvel::practice {
namespace {

Platform WithWindows(const Platform& home, OwnWindows& windows) {
  return {home.windows,   home.menus,   home.events,        windows,        home.hooks,
          home.proxy,     home.peers,   home.display,       home.registry,  home.files,
          home.processes, home.system,  home.clientLibrary, home.clipboard, home.sound,
          home.shell,     home.printer, home.dialogs,       home.clock,     home.random,
          home.media,     home.web};
}

// The command of the row whose text ends with this shortcut; 0 for none, or a greyed one.
UINT CommandOf(HMENU menu, const std::string& shortcut) {
  for (int at = 0; at < GetMenuItemCount(menu); ++at) {
    if (const HMENU sub = GetSubMenu(menu, at)) {
      if (const UINT found = CommandOf(sub, shortcut)) return found;
      continue;
    }
    char text[100] = "";
    GetMenuStringA(menu, static_cast<UINT>(at), text, sizeof text, MF_BYPOSITION);
    const bool usable =
        (GetMenuState(menu, static_cast<UINT>(at), MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0;
    if (usable && std::string_view(text).ends_with(shortcut)) return GetMenuItemID(menu, at);
  }
  return 0;
}

}  // namespace

bool MenuKeys::Filter(MSG& message) {
  // These letters are characters that the text with the keyboard takes itself.
  constexpr std::string_view kOfText = "ACVXZ";
  const auto key = static_cast<char>(message.wParam);
  const bool letter = message.wParam >= 'A' && message.wParam <= 'Z';
  if (message.message != WM_KEYDOWN || !letter || GetKeyState(VK_CONTROL) >= 0) return false;
  const HWND frame = win32::ToHwnd(client_.Frame());
  if (kOfText.find(key) != std::string_view::npos || !IsWindowEnabled(frame)) return false;
  if (message.hwnd != frame && !IsChild(frame, message.hwnd)) return false;
  const UINT command = CommandOf(GetMenu(frame), std::string("\tCtrl+") + key);
  if (command != 0) SendMessageA(frame, WM_COMMAND, command, 0);
  return command != 0;
}

PracticeApp::PracticeApp()
    : windows_(home_.platform().ownWindows), platform_(WithWindows(home_.platform(), windows_)) {
  settings_ = ReadSettings(platform_.files, platform_.system.ProgramFolder(),
                           platform_.system.CommandLine());
  TellMistakes();
  LayAccountIndex();
  client_.emplace(platform_, memory_, settings_.setup,
                  [this](std::string_view kind, const Words& words) { Hear(kind, words); });
  keys_.emplace(*client_);
  home_.events().AddFilter(*keys_);
}

PracticeApp::~PracticeApp() {
  if (keys_) home_.events().RemoveFilter(*keys_);
}

void PracticeApp::TellMistakes() {
  if (settings_.mistakes.empty()) return;
  std::string text = "The practice client starts without what it did not understand:\n";
  for (const std::string& mistake : settings_.mistakes) text += "\n- " + mistake + ".";
  platform_.dialogs.PlainMessage({}, text, "Practice client", MB_OK | MB_ICONEXCLAMATION);
}

// The account file tells the names of this very account.
void PracticeApp::LayAccountIndex() {
  const std::string folder = settings_.setup.folder + "\\idb";
  try {
    if (!platform_.files.IsFolder(folder)) platform_.files.MakeFolder(folder);
    platform_.files.Write(folder + "\\main.idx", AccountIndex(settings_.setup.screenNames));
  } catch (const RunTimeError& error) {
    platform_.dialogs.PlainMessage(
        {}, "The account file " + folder + "\\main.idx could not be written: " + error.Text() + ".",
        "Practice client", MB_OK | MB_ICONEXCLAMATION);
  }
}

void PracticeApp::Hear(std::string_view kind, const Words& words) {
  if (channel_) channel_->Note(kind, words);
  if (people_) people_->Hear(kind, words);
}

void PracticeApp::Run() {
  client_->Start();
  ShowWindow(win32::ToHwnd(client_->Frame()), SW_SHOWNORMAL);
  channel_.emplace(platform_, *client_);
  if (settings_.people) people_.emplace(platform_, *client_);
  if (!settings_.target.empty()) channel_->GoLater(settings_.target);
  while (!client_->Finished()) {
    platform_.events.Pump({.name = "PracticeApp::Run", .whom = WaitFor::kUser});
    // People of a script's own and invented ones don't mix.
    if (people_ && channel_->IsUsed()) people_.reset();
  }
}

}  // namespace corvel::practice
