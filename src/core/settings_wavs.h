// Settings of the wav list and of sending wavs.
#pragma once

#include "core/default_styles.h"
#include "core/free_names.h"
#include "core/setting.h"

namespace corvel {

struct GarlandSettings : SettingsSection {
  explicit GarlandSettings(SettingsTree& t) : SettingsSection{t, "Garland", LoadGroup::kToolbar} {}
  TextSetting Current{*this, "Current", kDefaultGarland, "the current Garland style"};
  FlagSetting Random{LoadedWith(LoadGroup::kWhenUsed),
                     "Random",
                     {"Yes", "No"},
                     false,
                     "each wav has a style drawn from all"};
};

inline constexpr std::string_view kAolDirectory = "AOL Directory";  // a category always there

struct WavListSettings : SettingsSection {
  explicit WavListSettings(SettingsTree& t) : SettingsSection{t, "Wav List", LoadGroup::kWavList} {}
  FlagSetting DoubleClickSends{*this,
                               "Double-click",
                               {"Send", "Preview"},
                               false,
                               "what a double-click in the wav list does"};
  FlagSetting PrintsOneALine{
      *this, "PrintDirection", {"1", "0"}, false, "0 five names a line, 1 one name a line", kTrim};
  FlagSetting NoAOLWavs{*this, "NoAOLWavs", false, "the client's own wavs are left out", kTrim};
  FlagSetting UseUpperWavTrigger{*this, "UseUpperWavTrigger", true, "\"{S\" rather than \"{s\"",
                                 kTrim};
  SettingsSection window{LoadedWith(LoadGroup::kWhenUsed)};
  PlaceSetting Place{window};
  TextSetting DefaultCategory{window, "Default Category", kAolDirectory,
                              "the category that was shown last", kTrim};
  FlagSetting Garland{window, "Garland", {"On", "Off"}, false, "wavs go out in a Garland"};
};

struct DescriptionsSettings : SettingsSection {
  explicit DescriptionsSettings(SettingsTree& t)
      : SettingsSection{t, "Descriptions", LoadGroup::kWavList} {}
  FlagSetting Show{*this, "Show", true, "wav descriptions show"};
  FlagSetting AsWindow{*this, "ShowAs", {"Window", "ToolTip"}, false, "where they show"};
  FlagSetting SendToRoom{*this, "SendToRoom", false, "they go out with the wav"};
  FlagSetting TrimDescrip{*this, "TrimDescrip", false, "without \"Descrip:\""};
  PlaceSetting Place{*this};
  SettingsSection window{LoadedWith(LoadGroup::kWhenUsed)};
  NumberSetting<std::int32_t> Width{window, "Width", 0, "size of its window, in twips",
                                    kTrim | kForgiving};
  NumberSetting<std::int32_t> Height{window, "Height", 0, "size of its window, in twips",
                                     kTrim | kForgiving};
};

struct SendToSettings : SettingsSection {
  explicit SendToSettings(SettingsTree& t) : SettingsSection{t, "SendTo", LoadGroup::kWhenUsed} {}
  TextSetting Last{*this, "Last", "", "the folder that a wav was sent to last", kTrim};
};

struct CategoriesSettings : FreeNames {
  explicit CategoriesSettings(SettingsTree& t)
      : FreeNames(t, "Categories",
                  "a wav category and its folder, and the fixed `AOL Directory` and `Windows "
                  "Directory`") {}
};

}  // namespace corvel
