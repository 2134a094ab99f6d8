// Settings of what is done in chat rooms, and of finding people and rooms.
#pragma once

#include "core/default_styles.h"
#include "core/free_names.h"
#include "core/setting.h"

#include <array>

namespace corvel {

struct HugsSettings : SettingsSection {
  explicit HugsSettings(SettingsTree& t) : SettingsSection{t, "Hugs", LoadGroup::kToolbar} {}
  TextSetting Current{*this, "Current", kDefaultHug, "the current hug style"};
};

struct ChatKeywordsSettings : SettingsSection {
  explicit ChatKeywordsSettings(SettingsTree& t)
      : SettingsSection{t, "ChatKeywords", LoadGroup::kToolbar} {}
  FlagSetting Enabled{*this, "Enabled", false, "chat keywords are on"};
  FlagSetting KeywordPopup{*this, "KeywordPopup", false, "they have a pop-up"};
};

struct ChatExtenderSettings : SettingsSection {
  explicit ChatExtenderSettings(SettingsTree& t)
      : SettingsSection{t, "ChatExtender", LoadGroup::kToolbar} {}
  FlagSetting UseMultiline{*this, "UseMultiline", true, "long lines go out in pieces"};
  NumberSetting<float> MultilineBurst{*this, "MultilineBurst", 1.5F, "seconds between the pieces"};
  NumberSetting<std::int32_t> CharsInLine{*this, "CharsInLine", 60,
                                          "their length while the fader is on"};
  PlaceSetting Place{*this};
};

struct HotWordsSettings : SettingsSection {
  explicit HotWordsSettings(SettingsTree& t)
      : SettingsSection{t, "HotWords", LoadGroup::kHotWords} {}
  FlagSetting CaseSensitive{*this, "CaseSensitive", false, "case counts"};
  std::array<FlagSetting, 4> ListActive{{{*this, "OneActive", false, "list 1 is on"},
                                         {*this, "TwoActive", false, "list 2 is on"},
                                         {*this, "ThreeActive", false, "list 3 is on"},
                                         {*this, "FourActive", false, "list 4 is on"}}};
  std::array<TextSetting, 4> ListWavPath{{{*this, "OneWavPath", "", "the sound of list 1"},
                                          {*this, "TwoWavPath", "", "the sound of list 2"},
                                          {*this, "ThreeWavPath", "", "the sound of list 3"},
                                          {*this, "FourWavPath", "", "the sound of list 4"}}};
};

struct QuickFindSettings : SettingsSection {
  explicit QuickFindSettings(SettingsTree& t)
      : SettingsSection{t, "QuickFind", LoadGroup::kToolbar} {}
  FlagSetting SaveResults{*this, "SaveResults", false, "results are kept"};
  TextSetting Default{LoadedWith(LoadGroup::kWhenUsed), "Default", "",
                      "the category that was shown last"};
};

struct RoomBustSettings : SettingsSection {
  explicit RoomBustSettings(SettingsTree& t)
      : SettingsSection{t, "RoomBust", LoadGroup::kWhenUsed} {}
  WordSetting<int> RoomKind{*this,
                            "Default",
                            {{"", 0}, {"Member", 1}, {"Private", 2}},
                            0,
                            "kind of the room: \"\" a featured one",
                            kTrim};
  FlagSetting AddRoomToFreq{*this,
                            "AddRoomToFreq",
                            {"Add", "NoAdd"},
                            true,
                            "the room goes on the list of frequent ones",
                            kForgiving};
};

struct CommandsSettings : FreeNames {
  explicit CommandsSettings(SettingsTree& t) : FreeNames(t, "Commands", "the chat keywords") {}
};

struct AliasSettings : FreeNames {
  explicit AliasSettings(SettingsTree& t) : FreeNames(t, "Alias", "a screen name's alias") {}
};

struct AIMEMailSettings : FreeNames {
  explicit AIMEMailSettings(SettingsTree& t)
      : FreeNames(t, "AIM E-Mail", "a name's mail address") {}
};

struct WebPageURLSettings : FreeNames {
  explicit WebPageURLSettings(SettingsTree& t)
      : FreeNames(t, "Web Page URL", "a name's web page") {}
};

}  // namespace corvel
