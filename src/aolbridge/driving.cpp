// Making the client do things, by the messages that a user's own actions would send.
#include "aolbridge/aolclient.h"
#include "aolbridge/client_facts.h"
#include "aolbridge/polling.h"
#include "base/text.h"
#include "core/helpers.h"
#include "core/settings_chat.h"
#include "core/settings_shell.h"

namespace corvel {
namespace {

constexpr std::size_t kMenuTextRoom = 100;
constexpr std::uint32_t kSubMenuId = 0xFFFFFFFF;  // of a row that opens a menu
constexpr int kVirtualTab = 9;

// Members' own pages on the service's web server, by name.
constexpr std::string_view kMemberPages = "http://members.aol.com/";

}  // namespace

// One level deep, as the client's own menus are. Rows that run nothing, separators and those that
// open a menu, are never meant.
bool AolClient::RunMenuByString(Window window, std::string_view caption, bool run) {
  if (caption.empty()) return false;
  Menus& menus = program_.platform.menus;
  const MenuHandle bar = menus.MenuOf(window);
  for (int top = 0; top < menus.Count(bar); ++top) {
    const MenuHandle menu = menus.SubMenu(bar, top);
    for (int row = 0; row < menus.Count(menu); ++row) {
      const std::uint32_t id = menus.IdAt(menu, row);
      if (id == 0 || id == kSubMenuId) continue;
      if (!EqualNoCase(menus.TextAt(menu, row).substr(0, kMenuTextRoom - 1), caption)) continue;
      if (run) program_.platform.windows.Send(window, wm::kCommand, id, 0);
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
  if (const auto row = Fact(facts::kWriteMailRow); !row.empty())
    RunMenuByString(program_.g.hAOL, row, true);
  else
    ClickWindow(program_,
                program_.platform.windows.Next(FindChildByClass(IconRow(), facts::kIcon)));
  return Poll(program_, "OpenEMail", 20, [&] {
    const Window mail = DocumentTitled(strings_.AOLWriteTitle);
    return program_.platform.windows.IsVisible(mail) ? mail : Window{};
  });
}

Window AolClient::AOLOpenEMail(std::string_view address, bool tabOn) {
  if (!KnownEdition()) return {};
  WindowSystem& windows = program_.platform.windows;
  Window mail = DocumentTitled(strings_.AOLWriteTitle);
  if (!mail) mail = WriteMailOnTop();
  if (!mail) mail = OpenEMail();
  if (!mail) return {};
  if (!address.empty())
    windows.SendText(WaitChildByClass(mail, facts::kEdit), wm::kSetText, 0, address);
  if (tabOn) {
    windows.ActivateByCaption(strings_.AOLTitle);
    windows.TypeKey(kVirtualTab);
    windows.TypeKey(kVirtualTab);
  }
  return mail;
}

void AolClient::AOLGetProfile(std::string_view name) {
  if (!KnownEdition()) return;
  Globals& g = program_.g;
  WindowSystem& windows = program_.platform.windows;
  if (const auto row = Fact(facts::kProfileRow); !row.empty())
    RunMenuByString(g.hAOL, row, true);
  else
    windows.Send(FindChildByClass(IconRow(), facts::kIcon), wm::kChar, 'g', 0);
  const Window ask = WaitChildByTitle(g.hMDI, "Get a Member's Profile");
  if (!ask) return;
  const Window edit = WaitChildByClass(ask, facts::kEdit);
  windows.SendText(edit, wm::kSetText, 0, name);
  windows.Send(edit, wm::kChar, 13, 0);
  if (Fact(facts::kProfileAnswers))
    Poll(program_, "AOLGetProfile", kNoLimit, [&] {
      const Window profile = FindChildByTitle(g.hMDI, "Member Profile");
      return profile ? profile : ClientBox();
    });
  windows.Send(ask, wm::kClose, 0, 0);
}

void AolClient::AOLCursor() {
  WindowSystem& windows = program_.platform.windows;
  if (!RunMenuByString(program_.g.hAOL, strings_.AOLAbout, true)) return;
  const Window about = Poll(program_, "AOLCursor", kNoLimit, [&] {
    const Window modal = ModalWindow();
    return FindChildByClass(modal, facts::kGlyph) ? modal : Window{};
  });
  Pause(program_, 0.5);
  if (!Fact(facts::kAboutHasButton)) {
    windows.Send(about, wm::kClose, 0, 0);
    return;
  }
  const Window icon = FindChildByClass(about, facts::kIcon);
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
