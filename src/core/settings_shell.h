// Settings of the program as a whole: its looks, its ways to the commands, the client's folder.
#pragma once

#include "core/free_names.h"
#include "core/setting.h"

namespace corvel {

// The root of the tree.
struct RootSettings : SettingsSection {
  explicit RootSettings(SettingsTree& t) : SettingsSection{t, "", LoadGroup::kWhenUsed} {}
  TextSetting AOLPath{*this, "AOL Path", "",
                      "the client's folder; asked for if it is needed and not there"};
  WordSetting<int> UIMode{*this,
                          "UIMode",
                          {{"0", 0}, {"1", 1}, {"2", 2}},
                          1,
                          "look of windows and buttons: 0 Windows style, 1 AOL style, 2 the user's "
                          "own colours",
                          kAsIs,
                          &tree.uiMode};
};

struct UserColorsSettings : SettingsSection {
  explicit UserColorsSettings(SettingsTree& t)
      : SettingsSection{t, "User Colors", LoadGroup::kLook} {}
  ColorSetting WindowColor{*this, "WindowColor", static_cast<std::int32_t>(0x8000000F),
                           "window colour of look 2"};
  ColorSetting ButtonForecolor{*this, "ButtonForecolor", 0xAD6D00, "button face of look 2"};
  ColorSetting ButtonHighlight{*this, "ButtonHighlight", 0, "button highlight of look 2"};
  ColorSetting ButtonText{*this, "ButtonText", 0xFFFFFF, "button caption of look 2"};
  FlagSetting UseShadow{*this, "UseShadow", true, "captions have a shadow", kTrim};
};

struct ToolbarSettings : SettingsSection {
  explicit ToolbarSettings(SettingsTree& t) : SettingsSection{t, "Toolbar", LoadGroup::kToolbar} {}
  WordSetting<int> MenuAccess{*this,
                              "MenuAccess",
                              {{"Toolbar", 0}, {"Tray", 1}, {"Menu", 2}},
                              0,
                              "how the commands are reached",
                              kAsIs,
                              &tree.accessMode};
  FlagSetting Vertical{*this, "Pos", {"Vertical", "Horizontal"}, false, "shape of the toolbar"};
  PlaceSetting Place{*this};
};

struct MenuSettings : SettingsSection {
  explicit MenuSettings(SettingsTree& t) : SettingsSection{t, "Menu", LoadGroup::kWhenUsed} {}
  TextSetting Access{*this, "Access", "", "written where there is no taskbar; nothing reads it"};
};

struct ClockSettings : SettingsSection {
  explicit ClockSettings(SettingsTree& t) : SettingsSection{t, "Clock", LoadGroup::kToolbar} {}
  FlagSetting Show{*this, "Show", true, "the clock floats"};
  PlaceSetting Place{*this};
};

struct GeneralSettings : SettingsSection {
  explicit GeneralSettings(SettingsTree& t) : SettingsSection{t, "General", LoadGroup::kToolbar} {}
  FlagSetting DismissBuddyInvites{*this, "DismissBuddyInvites", false,
                                  "buddy invitations are closed"};
  FlagSetting PopupFact{*this, "PopupFact", false, "a fact of the day after the start"};
  FlagSetting UseExternalBrowser{*this, "UseExternalBrowser", false,
                                 "web pages open outside the client", kTrim};
  SettingsSection siblings{LoadedWith(LoadGroup::kSiblings)};
  FlagSetting ShowPRMenu{siblings, "ShowPRMenu", true, "the row \"Palroster\" is there", kTrim};
  FlagSetting LaunchPR{siblings, "LaunchPR", false, "Palroster is started too", kTrim};
  FlagSetting ShowBDMenu{siblings, "ShowBDMenu", true, "the row \"Backdrape\" is there", kTrim};
  FlagSetting LaunchBD{siblings, "LaunchBD", false, "Backdrape is started too", kTrim};
  SettingsSection siblingPaths{tree, "", LoadGroup::kSiblings};
  TextSetting PalrosterPath{siblingPaths, "PalrosterPath",
                            "C:\\program files\\palroster\\palroster.exe", "the sibling program"};
  TextSetting BackdrapePath{siblingPaths, "BackdrapePath",
                            "C:\\program files\\backdrape\\backdrape.exe", "the sibling program"};
};

struct CustomColorsSettings : FreeNames {
  explicit CustomColorsSettings(SettingsTree& t)
      : FreeNames(t, "CustomColors",
                  "`0` to `15`: the colour dialog's own colours; white where nothing is stored") {}
};

}  // namespace corvel
