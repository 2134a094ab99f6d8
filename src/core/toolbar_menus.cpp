#include "core/toolbar_menus.h"

#include "core/not_built.h"

#include <iterator>
#include <optional>
#include <vector>

namespace corvel {

namespace {

// A separator, a row with a command, or a row with a sub-menu.
struct RowRule {
  const char* caption;
  std::optional<Command> command{};
  const RowRule* subMenu = nullptr;
  std::size_t subRows = 0;
};

constexpr RowRule kSeparator{"-"};

constexpr RowRule kHideOpt[] = {
    {"As Tray Icon", Command::kHideAsTray},
    {"As Menu Item", Command::kHideAsMenu},
};

constexpr RowRule kMainRows[] = {
    {"Hide Toolbar", std::nullopt, kHideOpt, std::size(kHideOpt)},
    kSeparator,
    {"Options", Command::kOptions},
    kSeparator,
    {"Kill the Hourglass", Command::kKillHourglass},
    {"Upload and Chat", Command::kUploadAndChat},
    {"Hide Welcome Window", Command::kHideWelcome},
    kSeparator,
    {"Tech Support", Command::kTechSupport},
    {"Advertise", Command::kAdvertise},
    {"QRV Software Web Site", Command::kWebSite},
    kSeparator,
    {"Palroster", Command::kPalroster},
    {"Backdrape", Command::kBackdrape},
    kSeparator,
    {"Export/Import Wizard", Command::kExportImport},
    kSeparator,
    {"Help", Command::kHelp},
    {"Check for Updates", Command::kCheckForUpdates},
    kSeparator,
    {"About Corvel", Command::kAbout},
    kSeparator,
    {"Exit Corvel", Command::kExit},
};

constexpr RowRule kWavsRows[] = {
    {"Wav List", Command::kWavList},
    kSeparator,
    {"Hushlet", Command::kHushlet},
    kSeparator,
    {"Fade Designer/Control Panel", Command::kFadeDesigner},
};

constexpr RowRule kIMsRows[] = {
    {"IM Manager", Command::kIMManager},
    kSeparator,
    {"Turn IMs Off", Command::kTurnIMsOff},
};

constexpr RowRule kPeopleRows[] = {
    {"QuickFind", Command::kQuickFind},
    kSeparator,
    {"Chat Room Buster", Command::kRoomBuster},
    kSeparator,
    {"Aliases", Command::kAliases},
    {"AIM E-Mail Addresses", Command::kAimAddresses},
    {"Member Web Page Addresses", Command::kWebPages},
};

constexpr RowRule kEditorRows[] = {
    {"Garlands", Command::kGarlandEditor},
    {"Hug Styles", Command::kHugEditor},
    {"Chat Room Keywords", Command::kKeywordEditor},
    kSeparator,
    {"HotWords", Command::kHotWords},
    kSeparator,
    {"E-Mail a Wav Messages", Command::kEMailMessages},
    kSeparator,
    {"Wav Descriptions", Command::kDescriptions},
};

// The tray's sub-menus have the same rows under their own captions.
constexpr RowRule kTrayWavs[] = {
    {"WavList", Command::kWavList},
    kSeparator,
    {"Hushlet", Command::kHushlet},
    kSeparator,
    {"Fade Designer/Control Panel", Command::kFadeDesigner},
};
constexpr RowRule kTrayPeople[] = {
    {"QuickFind", Command::kQuickFind},
    kSeparator,
    {"Room Buster", Command::kRoomBuster},
    kSeparator,
    {"Aliases", Command::kAliases},
    {"AIM E-Mail Addresses", Command::kAimAddresses},
    {"Member Web Page Addresses", Command::kWebPages},
};
constexpr RowRule kTrayEditors[] = {
    {"Garland Editor", Command::kGarlandEditor},
    {"Hug Style Editor", Command::kHugEditor},
    {"Chat Room Keyword Editor", Command::kKeywordEditor},
    kSeparator,
    {"HotWords Editor", Command::kHotWords},
    kSeparator,
    {"E-Mail a Wav Message Editor", Command::kEMailMessages},
    kSeparator,
    {"Wav Descriptions Editor", Command::kDescriptions},
};

constexpr RowRule kTrayRows[] = {
    {"Show Toolbar", Command::kShowToolbar},
    kSeparator,
    {"Options", Command::kOptions},
    kSeparator,
    {"Wavs", std::nullopt, kTrayWavs, std::size(kTrayWavs)},
    {"IMs", std::nullopt, kIMsRows, std::size(kIMsRows)},
    {"People", std::nullopt, kTrayPeople, std::size(kTrayPeople)},
    {"Editor", std::nullopt, kTrayEditors, std::size(kTrayEditors)},
    kSeparator,
    {"Kill The Hourglass", Command::kKillHourglass},
    {"Upload and Chat", Command::kUploadAndChat},
    {"Hide Welcome Window", Command::kHideWelcome},
    kSeparator,
    {"Tech Support", Command::kTechSupport},
    {"Advertise", Command::kAdvertise},
    {"QRV Software Website", Command::kWebSite},
    kSeparator,
    {"Palroster", Command::kPalroster},
    {"Backdrape", Command::kBackdrape},
    kSeparator,
    {"Export/Import Wizard", Command::kExportImport},
    kSeparator,
    {"Help", Command::kHelp},
    {"Check for Updates", Command::kCheckForUpdates},
    kSeparator,
    {"About Corvel", Command::kAbout},
    kSeparator,
    {"Exit Corvel", Command::kExit},
};

forms::MenuRow MakeRow(Program& program, const RowRule& rule) {
  forms::MenuRow row;
  row.caption = rule.caption;
  for (std::size_t i = 0; i < rule.subRows; ++i)
    row.rows.push_back(MakeRow(program, rule.subMenu[i]));
  if (!rule.command) return row;
  row.id = static_cast<int>(*rule.command);
  row.enabled = program.hub.commands.IsBuilt(*rule.command);
  if (!row.enabled) row.tip = kNotBuiltTip;
  row.onClick = [&program, command = *rule.command] { program.hub.commands.Run(command); };
  return row;
}

template <std::size_t N>
forms::Menu MakeMenu(Program& program, const char* name, const char* caption,
                     const RowRule (&rules)[N]) {
  std::vector<forms::MenuRow> rows;
  for (const RowRule& rule : rules) rows.push_back(MakeRow(program, rule));
  return {name, caption, std::move(rows)};
}

}  // namespace

forms::Menu MakeMainMenu(Program& program) {
  return MakeMenu(program, "mnuMenu", "Menu", kMainRows);
}
forms::Menu MakeWavsMenu(Program& program) {
  return MakeMenu(program, "mnuWavs", "Wavs", kWavsRows);
}
forms::Menu MakeIMsMenu(Program& program) { return MakeMenu(program, "mnuIMs", "IMs", kIMsRows); }
forms::Menu MakePeopleMenu(Program& program) {
  return MakeMenu(program, "mnuHotWords", "People", kPeopleRows);
}
forms::Menu MakeEditorMenu(Program& program) {
  return MakeMenu(program, "mnuEditor", "Editor", kEditorRows);
}

forms::Menu MakeTrayMenu(Program& program) {
  return MakeMenu(program, "mnuTrayMnu", "TrayMenu", kTrayRows);
}

}  // namespace corvel
