#include "shell/client_menu.h"

#include "base/text.h"
#include "core/settings_shell.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

namespace corvel::client_menu {
namespace {

constexpr std::string_view kCaption = "Corve&l";

struct Row {
  std::uint32_t id;  // 0: a separator, or a sub-menu
  const char* caption;
  std::optional<Command> command{};
  std::span<const Row> rows{};
};

constexpr Row kSeparator{0, "-"};

constexpr Row kMenuRows[] = {
    {1100, "&Hide Welcome Window", Command::kHideWelcome},
    kSeparator,
    {1101, "&Tech Support", Command::kTechSupport},
    {1102, "&Advertise", Command::kAdvertise},
    {1103, "Q&RV Software Website", Command::kWebSite},
    kSeparator,
    {1105, "&Palroster", Command::kPalroster},
    kSeparator,
    {1106, "&Backdrape", Command::kBackdrape},
    kSeparator,
    {1104, "&Export/Import Wizard", Command::kExportImport},
};
constexpr Row kWavsRows[] = {
    {1200, "&WavList", Command::kWavList},
    kSeparator,
    {1201, "&Hushlet", Command::kHushlet},
    kSeparator,
    {1203, "F&ade Designer/Control Panel", Command::kFadeDesigner},
};
constexpr Row kIMsRows[] = {
    {1401, "&IM Manager", Command::kIMManager},
    kSeparator,
    {1402, "&Turn IMs Off", Command::kTurnIMsOff},
};
constexpr Row kPeopleRows[] = {
    {1300, "&QuickFind", Command::kQuickFind},
    kSeparator,
    {1301, "&Chat Room Buster", Command::kRoomBuster},
    kSeparator,
    {1302, "&Aliases", Command::kAliases},
    {1303, "A&IM E-Mail Addresses", Command::kAimAddresses},
    {1304, "&Member Web Page Addresses", Command::kWebPages},
};
constexpr Row kEditorRows[] = {
    {1500, "&Garland Editor", Command::kGarlandEditor},
    {1501, "&Hug Style Editor", Command::kHugEditor},
    {1502, "&Chat Room Keyword Editor", Command::kKeywordEditor},
    kSeparator,
    {1503, "H&otWords Editor", Command::kHotWords},
    kSeparator,
    {1504, "&E-Mail a Wav Message Editor", Command::kEMailMessages},
    kSeparator,
    {1505, "&Wav Descriptions Editor", Command::kDescriptions},
};
constexpr Row kRows[] = {
    {1000, "&Show Toolbar", Command::kShowToolbar},
    kSeparator,
    {1001, "&Options", Command::kOptions},
    kSeparator,
    {0, "&Menu", {}, kMenuRows},
    {0, "&Wavs", {}, kWavsRows},
    {0, "&IMs", {}, kIMsRows},
    {0, "&People", {}, kPeopleRows},
    {0, "&Editor", {}, kEditorRows},
    kSeparator,
    {1002, "H&elp", Command::kHelp},
    {1006, "&Check for Updates", Command::kCheckForUpdates},
    kSeparator,
    {1003, "&About Corvel", Command::kAbout},
    kSeparator,
    {kExit, "E&xit Corvel", Command::kExit},
};

bool IsSeparator(const Row& row) { return row.id == 0 && row.rows.empty(); }

template <class Matches>
const Row* FindRow(std::span<const Row> rows, const Matches& matches) {
  for (const Row& row : rows) {
    if (matches(row)) return &row;
    if (const Row* const below = FindRow(row.rows, matches)) return below;
  }
  return nullptr;
}

bool IsShown(const Program& program, const Row& row) {
  const auto& general = program.settings.General;
  if (row.command == Command::kPalroster) return general.ShowPRMenu;
  if (row.command == Command::kBackdrape) return general.ShowBDMenu;
  return true;
}

bool CanBeChosen(const Program& program, Command command) {
  const bool versionCan = command != Command::kFadeDesigner || program.hub.client->CanFade();
  return versionCan && program.hub.commands.IsBuilt(command);
}

std::string CaptionOf(const Program& program, const Row& row) {
  const bool hides = row.command == Command::kHideWelcome;
  return hides && program.hub.client->HasMainWindow() ? "&Hide AOL Main Window" : row.caption;
}

class Builder {
 public:
  explicit Builder(Program& program) : program_(program), menus_(program.platform.menus) {}

  MenuHandle Popup(std::span<const Row> rows) {
    const MenuHandle menu = menus_.CreatePopup();
    bool afterRow = false;
    for (const Row& row : rows) {
      if (!IsShown(program_, row)) continue;
      if (IsSeparator(row) && !afterRow) continue;  // the row in front of it isn't shown
      Add(menu, row);
      afterRow = !IsSeparator(row);
    }
    return menu;
  }

 private:
  void Add(MenuHandle menu, const Row& row) {
    constexpr std::uint32_t kPlain = menu_flag::kByPosition;
    if (IsSeparator(row)) {
      menus_.Insert(menu, -1, kPlain | menu_flag::kSeparator, 0, {}, "");
    } else if (!row.rows.empty()) {
      const MenuHandle sub = Popup(row.rows);
      if (!menus_.Insert(menu, -1, kPlain | menu_flag::kPopup, 0, sub, row.caption))
        menus_.Destroy(sub);
    } else {
      const std::uint32_t state = CanBeChosen(program_, *row.command) ? 0 : menu_flag::kGrayed;
      menus_.Insert(menu, -1, kPlain | state, row.id, {}, CaptionOf(program_, row));
    }
  }

  Program& program_;
  Menus& menus_;
};

}  // namespace

std::optional<Command> CommandOf(std::uint32_t id) {
  const Row* const row =
      FindRow(kRows, [id](const Row& one) { return one.id == id && one.command; });
  return row ? row->command : std::nullopt;
}

bool Insert(Program& program, AolClient& client) {
  Menus& menus = program.platform.menus;
  const MenuHandle bar = menus.MenuOf(program.g.hAOL);
  const int count = menus.Count(bar);
  if (count < 0) return false;
  const MenuHandle popup = Builder(program).Popup(kRows);
  if (!menus.Insert(bar, client.PlaceOfOurMenu(count), menu_flag::kByPosition | menu_flag::kPopup,
                    0, popup, kCaption)) {
    menus.Destroy(popup);
    return false;
  }
  menus.DrawBar(program.g.hAOL);
  return true;
}

void Remove(Program& program) {
  Menus& menus = program.platform.menus;
  const MenuHandle bar = menus.MenuOf(program.g.hAOL);
  for (int at = menus.Count(bar) - 1; at >= 0; --at)
    if (Trim(menus.TextAt(bar, at)) == kCaption) menus.Delete(bar, at, menu_flag::kByPosition);
  menus.DrawBar(program.g.hAOL);
}

void SetCaption(Program& program, Command command, std::string_view caption) {
  const Row* const row =
      FindRow(kRows, [command](const Row& one) { return one.command == command; });
  if (!row) return;
  Menus& menus = program.platform.menus;
  const std::uint32_t state = CanBeChosen(program, command) ? 0 : menu_flag::kGrayed;
  menus.Modify(menus.MenuOf(program.g.hAOL), static_cast<int>(row->id), state, row->id, caption);
}

}  // namespace corvel::client_menu
