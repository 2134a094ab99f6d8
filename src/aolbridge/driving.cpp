// Making the client do things, by the messages that a user's own actions would send.
#include "aolbridge/aolclient.h"
#include "aolbridge/polling.h"
#include "base/text.h"
#include "core/helpers.h"
#include "core/settings_chat.h"
#include "core/settings_shell.h"

#include <algorithm>

namespace corvel {
namespace {

constexpr std::size_t kMenuTextRoom = 100;
constexpr int kVirtualTab = 9;

// Members' own pages on the service's web server, by name.
constexpr std::string_view kMemberPages = "http://members.aol.com/";

}  // namespace

// One level deep, as the client's own menus are.
bool AolClient::RunMenuByString(Window window, std::string_view caption, bool run) {
  Menus& menus = program_.platform.menus;
  const MenuHandle bar = menus.MenuOf(window);
  for (int top = 0; top < menus.Count(bar); ++top) {
    const MenuHandle menu = menus.SubMenu(bar, top);
    for (int row = 0; row < menus.Count(menu); ++row) {
      if (!EqualNoCase(menus.TextAt(menu, row).substr(0, kMenuTextRoom - 1), caption)) continue;
      if (run) program_.platform.windows.Send(window, wm::kCommand, menus.IdAt(menu, row), 0);
      return true;
    }
  }
  return false;
}

// The external browser once had a branch here, for targets whose first six characters were
// "http://": seven characters, so that no target ever took it. Every target goes to the client, as
// it always did.
void AolClient::RunKeyword(const std::string& target) {
  program_.platform.processes.Run(program_.g.AOLPath + "\\waol.exe -s" + target, show::kHide);
}

Window AolClient::OpenEMail() {
  Globals& g = program_.g;
  WindowSystem& windows = program_.platform.windows;
  if (g.AOLVer == "3") {
    RunMenuByString(g.hAOL, "&Compose Mail\tCtrl+M", true);
  } else {
    const Window bar = FindChildByClass(FindChildByClass(g.hAOL, "AOL Toolbar"), "_AOL_Toolbar");
    ClickWindow(program_, windows.Next(FindChildByClass(bar, "_AOL_ICON")));
  }
  return Poll(program_, "OpenEMail", 20, [&] {
    const Window mail = windows.FindChild(g.hMDI, {}, "AOL Child", g.strings.AOLWriteTitle);
    return windows.IsVisible(mail) ? mail : Window{};
  });
}

Window AolClient::AOLOpenEMail(std::string_view address, bool tabOn) {
  const Globals& g = program_.g;
  WindowSystem& windows = program_.platform.windows;
  Window mail = windows.FindChild(g.hMDI, {}, "AOL Child", g.strings.AOLWriteTitle);
  if (!mail) mail = IsWriteMailWindow(windows.TopChild(g.hMDI));
  if (!mail) mail = OpenEMail();
  if (!mail) return {};
  if (!address.empty())
    windows.SendText(WaitChildByClass(mail, "_AOL_EDIT"), wm::kSetText, 0, address);
  if (tabOn) {
    windows.ActivateByCaption(g.strings.AOLTitle);
    windows.TypeKey(kVirtualTab);
    windows.TypeKey(kVirtualTab);
  }
  return mail;
}

Window AolClient::IsWriteMailWindow(Window window) {
  if (!window) return {};
  WindowSystem& windows = program_.platform.windows;
  if (program_.g.AOLVer != "3") {
    const Window probe = FindChildByClass(window, "_AOL_Checkbox");
    const bool isMail = probe && FindChildByClass(window, "_AOL_FontCombo") &&
                        Lower(GetAPIText(probe)).starts_with("request \"return receipt\"");
    return isMail ? window : Window{};
  }
  constexpr std::string_view kCaptions[] = {"Address Book", "Address\r\nBook", "Address\rBook",
                                            "Address\nBook"};
  const bool isMail = std::any_of(std::begin(kCaptions), std::end(kCaptions), [&](auto caption) {
    return bool(windows.FindChild(window, {}, "_AOL_STATIC", caption));
  });
  return isMail ? window : Window{};
}

void AolClient::AOLGetProfile(std::string_view name) {
  const Globals& g = program_.g;
  WindowSystem& windows = program_.platform.windows;
  if (g.AOLVer == "3") {
    RunMenuByString(g.hAOL, "Get a Member's Profile\tCtrl+G", true);
  } else {
    const Window bar = FindChildByClass(FindChildByClass(g.hAOL, "aol toolbar"), "_aol_toolbar");
    windows.Send(FindChildByClass(bar, "_aol_icon"), wm::kChar, 'g', 0);
  }
  const Window ask = WaitChildByTitle(g.hMDI, "Get a Member's Profile");
  if (!ask) return;
  const Window edit = WaitChildByClass(ask, "_AOL_EDIT");
  windows.SendText(edit, wm::kSetText, 0, name);
  windows.Send(edit, wm::kChar, 13, 0);
  if (g.IsVersion4Or5())
    Poll(program_, "AOLGetProfile", kNoLimit, [&] {
      const Window profile = FindChildByTitle(g.hMDI, "Member Profile");
      return profile ? profile : windows.Find("#32770", g.strings.AOLTitle);
    });
  windows.Send(ask, wm::kClose, 0, 0);
}

void AolClient::AOLCursor() {
  const Globals& g = program_.g;
  WindowSystem& windows = program_.platform.windows;
  if (!RunMenuByString(g.hAOL, g.strings.AOLAbout, true)) return;
  const Window about = Poll(program_, "AOLCursor", kNoLimit, [&] {
    const Window modal = windows.Find("_AOL_Modal", std::nullopt);
    return FindChildByClass(modal, "_AOL_GLYPH") ? modal : Window{};
  });
  Pause(program_, 0.5);
  if (g.AOLVer == "3") {
    windows.Send(about, wm::kClose, 0, 0);
    return;
  }
  const Window icon = FindChildByClass(about, "_AOL_ICON");
  windows.SetFocus(icon);
  ClickWindow(program_, icon);
}

void AolClient::OpenMemberPage(std::string_view name) {
  const std::string key = Lower(WithoutBlanks(name));
  std::string page = Trim(program_.settings.WebPageURL.Read(key));
  if (page.empty()) page = std::string(kMemberPages) + Replaced(name, " ", "%20");
  if (program_.settings.General.UseExternalBrowser)
    OpenWithShell(program_, nullptr, page);
  else
    RunKeyword(page);
}

void AolClient::Hushlet() {
  program_.platform.sound.Stop();
  program_.platform.proxy.StopSound();
}

}  // namespace corvel
