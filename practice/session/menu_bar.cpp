#include "practice/session/menu_bar.h"

#include "base/text.h"
#include "practice/controls/text_box.h"
#include "practice/documents/boxes.h"
#include "practice/documents/mail.h"
#include "practice/session/by_hand.h"
#include "practice/session/sign_on.h"

#include <span>

namespace corvel::practice {
namespace {

enum : std::uint32_t {
  kNew = 8001,
  kComposeMail,
  kGetProfile,
  kSignOn,
  kSignOff,
  kAbout,
  kChatList,
  kKeyword,
  kLocate,
  kUndo,
  kCut,
  kCopy,
  kPaste,
  kSelectAll,
  kIdleRow,  // rows that the practice client has for their count alone
  kTile = 1212,
  kCascade = 1213,
};

struct Row {
  std::string_view caption;  // "" for a separator
  std::uint32_t id = kIdleRow;
};

// Stands for a caption that differs by locale.
constexpr std::string_view kAboutCaption = "?about";
constexpr std::string_view kSignOnCaption = "?sign on";

struct Menu {
  std::string_view caption;
  std::span<const Row> rows;
};

constexpr Row kFile[] = {{"&New\tCtrl+N", kNew},
                         {"&Open...\tCtrl+O"},
                         {"&Save\tCtrl+S"},
                         {"Save &As..."},
                         {""},
                         {"&Print...\tCtrl+P"},
                         {""},
                         {"E&xit", kExitCommand}};
constexpr Row kEdit[] = {{"&Undo\tCtrl+Z", kUndo},
                         {""},
                         {"Cu&t\tCtrl+X", kCut},
                         {"&Copy\tCtrl+C", kCopy},
                         {"&Paste\tCtrl+V", kPaste},
                         {""},
                         {"Select &All\tCtrl+A", kSelectAll}};
// Ten rows: whoever lists the open windows here does so from position 10 on.
constexpr Row kWindow[] = {{"&Cascade", kCascade},
                           {"&Tile", kTile},
                           {"&Arrange Icons"},
                           {"Close All E&xcept Front"},
                           {""},
                           {"Add &Top Window to Favorite Places"},
                           {"&Remember Window Size Only"},
                           {"Remember Window Size and &Position"},
                           {"&Forget Window Size and Position"},
                           {""}};
constexpr Row kSession[] = {{kSignOnCaption, kSignOn}, {"Sign &Off", kSignOff}};
constexpr Row kHelp[] = {{"&Offline Help"}, {""}, {kAboutCaption, kAbout}};
constexpr Row kPeople[] = {{"&Find a Chat", kChatList}, {"&Locate Member Online\tCtrl+L", kLocate}};

constexpr Row kGoTo3[] = {
    {kSignOnCaption, kSignOn}, {"&Keyword...\tCtrl+K", kKeyword}, {"Sign &Off", kSignOff}};
constexpr Row kMail3[] = {
    {"Post &Office"}, {"&Read New Mail\tCtrl+R"}, {"&Compose Mail\tCtrl+M", kComposeMail}};
constexpr Row kMembers3[] = {{"Get a Member's Profile\tCtrl+G", kGetProfile},
                             {"&Locate a Member Online\tCtrl+L", kLocate}};

constexpr Menu kMenus3[] = {{"&File", kFile},   {"&Edit", kEdit},  {"&Window", kWindow},
                            {"&Go To", kGoTo3}, {"&Mail", kMail3}, {"Mem&bers", kMembers3},
                            {"&Help", kHelp}};
constexpr Menu kMenus4[] = {{"&File", kFile},
                            {"&Edit", kEdit},
                            {"&Window", kWindow},
                            {"&Sign Off", kSession},
                            {"&Help", kHelp}};
constexpr Menu kMenus5[] = {{"&File", kFile},     {"&Edit", kEdit},        {"&Window", kWindow},
                            {"&People", kPeople}, {"&Sign Off", kSession}, {"&Help", kHelp}};

std::span<const Menu> MenusOf(int generation) {
  if (generation == 3) return kMenus3;
  if (generation == 4) return kMenus4;
  return kMenus5;
}

std::string_view CaptionOf(const Facts& facts, const Row& row) {
  if (row.caption == kAboutCaption) return facts.aboutRow;
  if (row.caption == kSignOnCaption) return facts.signOnRow;
  return row.caption;
}

void RunExit(Client& client) { client.platform().ownWindows.Destroy(client.frame()); }

// The rows of the Edit menu are the text's that has the keyboard.
template <WParam order>
void EditText(Client& client) {
  const Window focus = client.windows().Focus();
  if (client.FindAs<TextBox>(focus)) client.windows().Send(focus, wm::kCommand, order, 0);
}

struct MenuAction {
  std::uint32_t id;
  void (*run)(Client&);
};

constexpr MenuAction kMenuActions[] = {
    {kNew, OpenUntitled},
    {kComposeMail, OpenWriteMail},
    {kGetProfile, OpenGetProfile},
    {kSignOn, ShowSignOn},
    {kSignOff, SignOff},
    {kAbout, OpenAbout},
    {kChatList, OpenChatList},
    {kKeyword, OpenKeywordBox},
    {kLocate, OpenLocateBox},
    {kUndo, EditText<text_command::kUndo>},
    {kCut, EditText<text_command::kCut>},
    {kCopy, EditText<text_command::kCopy>},
    {kPaste, EditText<text_command::kPaste>},
    {kSelectAll, EditText<text_command::kSelectAll>},
    {kExitCommand, RunExit},
};

std::string PlainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size() && caption[i] != '\t'; ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return plain;
}

std::optional<MenuRow> FindIn(Menus& menus, MenuHandle menu, std::string_view caption, int depth) {
  constexpr int kDeepest = 8;
  const int count = depth > kDeepest ? 0 : menus.Count(menu);
  for (int at = 0; at < count; ++at) {
    if (const MenuHandle sub = menus.SubMenu(menu, at)) {
      if (auto row = FindIn(menus, sub, caption, depth + 1)) return row;
      continue;
    }
    const std::string text = menus.TextAt(menu, at);
    if (!text.empty() && (text == caption || EqualNoCase(PlainCaption(text), caption)))
      return MenuRow{menus.IdAt(menu, at), (menus.StateAt(menu, at) & menu_flag::kGrayed) == 0};
  }
  return std::nullopt;
}

}  // namespace

void MakeMenuBar(Client& client) {
  Menus& menus = client.platform().menus;
  const MenuHandle bar = client.platform().ownWindows.CreateMenuBar();
  for (const Menu& menu : MenusOf(client.facts().generation)) {
    const MenuHandle popup = menus.CreatePopup();
    for (const Row& row : menu.rows) {
      const bool separator = row.caption.empty();
      menus.Insert(popup, -1, menu_flag::kByPosition | (separator ? menu_flag::kSeparator : 0),
                   separator ? 0 : row.id, {}, CaptionOf(client.facts(), row));
    }
    menus.Insert(bar, -1, menu_flag::kByPosition | menu_flag::kPopup, 0, popup, menu.caption);
  }
  client.platform().ownWindows.SetMenuBar(client.frame(), bar);
}

bool RunMenuCommand(Client& client, std::uint32_t id) {
  for (const MenuAction& command : kMenuActions) {
    if (command.id != id) continue;
    command.run(client);
    return true;
  }
  return false;
}

std::optional<MenuRow> FindMenuRow(Client& client, std::string_view caption) {
  Menus& menus = client.platform().menus;
  return FindIn(menus, menus.MenuOf(client.frame()), caption, 0);
}

std::optional<MenuRow> LookForMenuRow(Client& client, std::string_view caption) {
  Menus& menus = client.platform().menus;
  const MenuHandle bar = menus.MenuOf(client.frame());
  for (int at = 0; at < menus.Count(bar); ++at) {
    const MenuHandle popup = menus.SubMenu(bar, at);
    client.windows().Send(client.frame(), wm::kInitMenuPopup, popup.value, at);
    if (auto row = FindIn(menus, popup, caption, 0)) return row;
  }
  return std::nullopt;
}

}  // namespace corvel::practice
