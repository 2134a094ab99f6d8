// Settings of what is done with mail.
#pragma once

#include "core/default_styles.h"
#include "core/setting.h"

namespace corvel {

struct EWavSettings : SettingsSection {
  explicit EWavSettings(SettingsTree& t) : SettingsSection{t, "E-Wav", LoadGroup::kToolbar} {}
  FlagSetting PlayMailWav{*this, "PlayMailWav", true, "sound codes of read mail are played"};
};

struct EFadeSettings : SettingsSection {
  explicit EFadeSettings(SettingsTree& t) : SettingsSection{t, "E-Fade", LoadGroup::kToolbar} {}
  FlagSetting ShowToolbar{*this, "ShowToolbar", true,
                          "the fade bar stands over mail that is written"};
  PlaceSetting Place{*this};
};

// How dates are told; kNone until the load, and for good if what is stored is neither.
enum class DateStyle { kNone, kLong, kShort };

struct EMailSettings : SettingsSection {
  explicit EMailSettings(SettingsTree& t) : SettingsSection{t, "E-Mail", LoadGroup::kEMail} {}
  FlagSetting IncludeDescription{*this, "Include Description", false,
                                 "wav descriptions go in the mail"};
  FlagSetting IncludeDisclaimer{*this, "Include Disclaimer", false,
                                "the custom message goes in the mail"};
  NumberSetting<std::int32_t> DefaultMsg{*this, "DefaultMsg", 1, "the default message", kForgiving};
  FlagSetting UseAlias{*this, "UseAlias", false, "the alias stands for the screen name"};
  TextSetting AliasName{*this, "AliasName", "", "the alias"};
  FlagSetting UseSubjectStyle{*this, "UseSubjectStyle", true, "the subject has a style"};
  TextSetting SubjectStyle{*this, "SubjectStyle", kDefaultGarland, "that style"};
  FlagSetting DisplayOptions{*this, "DisplayOptions", true, "the options are asked before sending"};
  WordSetting<DateStyle> DateFormat{*this,
                                    "DateFormat",
                                    {{"1", DateStyle::kLong}, {"2", DateStyle::kShort}},
                                    DateStyle::kLong,
                                    "1 the long date, 2 the short one"};
  FlagSetting IncludeTimeZone{*this, "IncludeTimeZone", true, "times name their zone"};
};

struct WavScanSettings : SettingsSection {
  explicit WavScanSettings(SettingsTree& t) : SettingsSection{t, "WavScan", LoadGroup::kWavScan} {}
  FlagSetting Active{*this, "Active", true, "mails are searched for wavs"};
  FlagSetting ShowProperties{*this, "ShowProperties", false,
                             "a wav that is found shows its properties"};
  FlagSetting NoPrompt{*this, "NoPrompt", false, "without asking first"};
  FlagSetting Notify{*this, "Notify", true, "one that isn't found is told"};
};

struct WavCheckSettings : SettingsSection {
  explicit WavCheckSettings(SettingsTree& t)
      : SettingsSection{t, "WavCheck", LoadGroup::kWhenUsed} {}
  PlaceSetting Place{*this};
};

}  // namespace corvel
