// All keys that are read at start-up, as one table, and the one rule that reads them.
//
// The rule: the text is read, and trimmed or lower-cased where the table says so. A key with a set
// of words takes the word's value, the default for "", and leaves its field alone for anything
// else. A text key takes what is there, the default for "". A number is converted unless it is "",
// which is the default; what isn't a number, or doesn't fit, leaves the field alone.
#include "core/settings.h"

#include "base/text.h"
#include "core/program.h"

#include <cstdint>
#include <limits>
#include <variant>

namespace corvel {

namespace {

enum class Group {
  kColors,
  kToolbar,
  kWavList,
  kEMail,
  kWavScan,
  kHotWords,
  kIM,
  kIMManager,
  kSibling,
  kFader
};

enum Form { kAsIs = 0, kTrim = 1, kLower = 2 };

template <typename T>
using Field = T& (*)(Settings&);

// A field that is on or off, by one of two words.
struct Flag {
  Field<bool> field;
  bool byDefault;
  std::string_view on = "True", off = "False";
};
struct WideFlag {
  Field<WideBoolean> field;
  bool byDefault;
};
struct TextKey {
  Field<std::string> field;
  std::string_view byDefault;
};
// A text of one digit up to `last`, as its number or as the text itself.
struct DigitNumber {
  Field<int> field;
  char last;
};
struct DigitText {
  Field<std::string> field;
  char first, last;
};
template <typename T>
struct Number {
  Field<T> field;
  T byDefault;
};
// A number for which also what isn't one means the default.
struct ForgivingNumber {
  Field<int> field;
  int byDefault;
};

using Target = std::variant<Flag, WideFlag, TextKey, DigitNumber, DigitText, Number<std::int32_t>,
                            Number<std::int16_t>, Number<float>, ForgivingNumber>;

struct KeyRule {
  Group group;
  const char* section;
  const char* key;
  Target target;
  int form = kAsIs;
};

#define FIELD(type, path) [](Settings& s) -> type& { return s.path; }
#define ON(path) \
  Flag { FIELD(bool, path), true }
#define OFF(path) \
  Flag { FIELD(bool, path), false }

const KeyRule kRules[] = {
    {Group::kColors, "User Colors", "WindowColor",
     Number<std::int32_t>{FIELD(std::int32_t, UserColors.WindowColor),
                          static_cast<Color>(0x8000000F)}},
    {Group::kColors, "User Colors", "ButtonForecolor",
     Number<std::int32_t>{FIELD(std::int32_t, UserColors.ButtonForecolor), 0xAD6D00}},
    {Group::kColors, "User Colors", "ButtonHighlight",
     Number<std::int32_t>{FIELD(std::int32_t, UserColors.ButtonHighlight), 0}},
    {Group::kColors, "User Colors", "ButtonText",
     Number<std::int32_t>{FIELD(std::int32_t, UserColors.ButtonText), 0xFFFFFF}},
    {Group::kColors, "User Colors", "UseShadow", ON(UserColors.UseShadow), kTrim},

    {Group::kToolbar, "Toolbar", "Pos",
     Flag{FIELD(bool, Toolbar.Vertical), false, "Vertical", "Horizontal"}},
    {Group::kToolbar, "Hugs", "Current", TextKey{FIELD(std::string, Hugs.Current), kDefaultHug}},
    {Group::kToolbar, "Clock", "Show", ON(Clock.Show)},
    {Group::kToolbar, "General", "DismissBuddyInvites", OFF(General.DismissBuddyInvites)},
    {Group::kToolbar, "General", "PopupFact", OFF(General.PopupFact)},
    {Group::kToolbar, "General", "UseExternalBrowser", OFF(General.UseExternalBrowser), kTrim},
    {Group::kToolbar, "ChatKeywords", "Enabled", OFF(ChatKeywords.Enabled)},
    {Group::kToolbar, "ChatKeywords", "KeywordPopup", OFF(ChatKeywords.KeywordPopup)},
    {Group::kToolbar, "ChatExtender", "UseMultiline", ON(ChatExtender.UseMultiline)},
    {Group::kToolbar, "ChatExtender", "MultilineBurst",
     Number<float>{FIELD(float, ChatExtender.MultilineBurst), 1.5F}},
    {Group::kToolbar, "ChatExtender", "CharsInLine",
     Number<std::int32_t>{FIELD(std::int32_t, ChatExtender.CharsInLine), 60}},
    {Group::kToolbar, "E-Wav", "PlayMailWav", ON(EWav.PlayMailWav)},
    {Group::kToolbar, "E-Fade", "ShowToolbar", ON(EFade.ShowToolbar)},
    {Group::kToolbar, "QuickFind", "SaveResults", OFF(QuickFind.SaveResults)},
    {Group::kToolbar, "Garland", "Current",
     TextKey{FIELD(std::string, Garland.Current), kDefaultGarland}},

    {Group::kWavList, "Wav List", "Double-click",
     Flag{FIELD(bool, WavList.DoubleClickSends), false, "Send", "Preview"}},
    {Group::kWavList, "Wav List", "PrintDirection",
     DigitText{FIELD(std::string, WavList.PrintDirection), '0', '1'}, kTrim},
    {Group::kWavList, "Wav List", "NoAOLWavs", OFF(WavList.NoAOLWavs), kTrim},
    {Group::kWavList, "Wav List", "UseUpperWavTrigger", ON(WavList.UseUpperWavTrigger), kTrim},
    {Group::kWavList, "Descriptions", "Show", ON(Descriptions.Show)},
    {Group::kWavList, "Descriptions", "ShowAs",
     Flag{FIELD(bool, Descriptions.AsWindow), false, "Window", "ToolTip"}},
    {Group::kWavList, "Descriptions", "SendToRoom", OFF(Descriptions.SendToRoom)},
    {Group::kWavList, "Descriptions", "TrimDescrip", OFF(Descriptions.TrimDescrip)},

    {Group::kEMail, "E-Mail", "Include Description", OFF(EMail.IncludeDescription)},
    {Group::kEMail, "E-Mail", "Include Disclaimer", OFF(EMail.IncludeDisclaimer)},
    {Group::kEMail, "E-Mail", "DefaultMsg", ForgivingNumber{FIELD(int, EMail.DefaultMsg), 1}},
    {Group::kEMail, "E-Mail", "UseAlias", OFF(EMail.UseAlias)},
    {Group::kEMail, "E-Mail", "AliasName", TextKey{FIELD(std::string, EMail.AliasName), ""}},
    {Group::kEMail, "E-Mail", "UseSubjectStyle", ON(EMail.UseSubjectStyle)},
    {Group::kEMail, "E-Mail", "SubjectStyle",
     TextKey{FIELD(std::string, EMail.SubjectStyle), kDefaultGarland}},
    {Group::kEMail, "E-Mail", "DisplayOptions", ON(EMail.DisplayOptions)},
    {Group::kEMail, "E-Mail", "DateFormat",
     DigitText{FIELD(std::string, EMail.DateFormat), '1', '2'}},
    {Group::kEMail, "E-Mail", "IncludeTimeZone", ON(EMail.IncludeTimeZone)},

    {Group::kWavScan, "WavScan", "Active", ON(WavScan.Active)},
    {Group::kWavScan, "WavScan", "ShowProperties", OFF(WavScan.ShowProperties)},
    {Group::kWavScan, "WavScan", "NoPrompt", OFF(WavScan.NoPrompt)},
    {Group::kWavScan, "WavScan", "Notify", ON(WavScan.Notify)},

    {Group::kHotWords, "HotWords", "CaseSensitive", OFF(HotWords.CaseSensitive)},
    {Group::kHotWords, "HotWords", "OneActive", OFF(HotWords.ListActive[0])},
    {Group::kHotWords, "HotWords", "TwoActive", OFF(HotWords.ListActive[1])},
    {Group::kHotWords, "HotWords", "ThreeActive", OFF(HotWords.ListActive[2])},
    {Group::kHotWords, "HotWords", "FourActive", OFF(HotWords.ListActive[3])},
    {Group::kHotWords, "HotWords", "OneWavPath",
     TextKey{FIELD(std::string, HotWords.ListWavPath[0]), ""}},
    {Group::kHotWords, "HotWords", "TwoWavPath",
     TextKey{FIELD(std::string, HotWords.ListWavPath[1]), ""}},
    {Group::kHotWords, "HotWords", "ThreeWavPath",
     TextKey{FIELD(std::string, HotWords.ListWavPath[2]), ""}},
    {Group::kHotWords, "HotWords", "FourWavPath",
     TextKey{FIELD(std::string, HotWords.ListWavPath[3]), ""}},

    {Group::kIM, "Mode", "UIMode", DigitNumber{FIELD(int, IM.ManagerUIMode), '1'}},
    {Group::kIM, "IM", "IMAnswerMode", DigitNumber{FIELD(int, IM.IMAnswerMode), '5'}},
    {Group::kIM, "IM", "RepeatAnswer", ON(IM.RepeatAnswer)},
    {Group::kIM, "IM", "ShowAnswerWin", ON(IM.ShowAnswerWin)},
    {Group::kIM, "IM", "IMWavsEnabled", ON(IM.IMWavsEnabled)},
    {Group::kIMManager, "IM", "TabsOn", ON(IM.TabsOn), kTrim},
    {Group::kIMManager, "IM", "EnterSends", ON(IM.EnterSends), kTrim},
    {Group::kIMManager, "IM", "TabSwitches", ON(IM.TabSwitches), kTrim},
    {Group::kIMManager, "IM", "MultipleRows", ON(IM.MultipleRows), kTrim},
    {Group::kIM, "IM", "LogIMs", ON(IM.LogIMs), kTrim},
    {Group::kIM, "IM", "LogCountNotify", OFF(IM.LogCountNotify), kTrim},
    {Group::kIM, "IM", "MaxLogs", Number<std::int32_t>{FIELD(std::int32_t, IM.MaxLogs), 30}, kTrim},
    {Group::kIM, "IM", "AutoAcceptAIM", ON(IM.AutoAcceptAIM), kTrim},
    {Group::kIM, "IM", "CloseIMsOnExit", OFF(IM.CloseIMsOnExit), kTrim},
    {Group::kIM, "IM", "TabExtraBtns", ON(IM.TabExtraBtns), kTrim},
    {Group::kIM, "IM", "ListExtraBtns", ON(IM.ListExtraBtns), kTrim},
    {Group::kIM, "IM", "ClickGraysArrow", OFF(IM.ClickGraysArrow), kTrim},
    {Group::kIM, "IM", "Style", Flag{FIELD(bool, IM.StyleTabs), true, "tabs", "buttons"}, kLower},
    {Group::kIM, "IM", "Position", Flag{FIELD(bool, IM.PositionTop), true, "top", "bottom"},
     kLower},

    {Group::kSibling, "General", "ShowPRMenu", ON(General.ShowPRMenu), kTrim},
    {Group::kSibling, "General", "LaunchPR", OFF(General.LaunchPR), kTrim},
    {Group::kSibling, "General", "ShowBDMenu", ON(General.ShowBDMenu), kTrim},
    {Group::kSibling, "General", "LaunchBD", OFF(General.LaunchBD), kTrim},
    {Group::kSibling, "", "PalrosterPath",
     TextKey{FIELD(std::string, General.PalrosterPath),
             "C:\\program files\\palroster\\palroster.exe"}},
    {Group::kSibling, "", "BackdrapePath",
     TextKey{FIELD(std::string, General.BackdrapePath),
             "C:\\program files\\backdrape\\backdrape.exe"}},

    {Group::kFader, "Fader", "On", OFF(Fader.On)},
    {Group::kFader, "Fader", "Default", TextKey{FIELD(std::string, Fader.Default), "Cool Fade"}},
    {Group::kFader, "Fader", "Wavy", OFF(Fader.Wavy)},
    {Group::kFader, "Fader", "Bold", OFF(Fader.Bold)},
    {Group::kFader, "Fader", "Italic", OFF(Fader.Italic)},
    {Group::kFader, "Fader", "ULine", OFF(Fader.ULine)},
    {Group::kFader, "Fader", "ShowFadePanelWithChat", OFF(Fader.ShowFadePanelWithChat)},
    {Group::kFader, "Fader", "FadeNumber",
     Number<std::int16_t>{FIELD(std::int16_t, Fader.FadeNumber), 2}},
    {Group::kFader, "Fader", "One", Number<std::int32_t>{FIELD(std::int32_t, Fader.One), 0}},
    {Group::kFader, "Fader", "Two", Number<std::int32_t>{FIELD(std::int32_t, Fader.Two), 0}},
    {Group::kFader, "Fader", "Three", Number<std::int32_t>{FIELD(std::int32_t, Fader.Three), 0}},
    {Group::kFader, "Fader", "Four", Number<std::int32_t>{FIELD(std::int32_t, Fader.Four), 0}},
    {Group::kFader, "Fader", "Five", Number<std::int32_t>{FIELD(std::int32_t, Fader.Five), 0}},
    {Group::kFader, "Fader", "Six", Number<std::int32_t>{FIELD(std::int32_t, Fader.Six), 0}},
    {Group::kFader, "Fader", "FadeWavOnly", OFF(Fader.FadeWavOnly)},
    {Group::kFader, "Fader", "SolidFade", WideFlag{FIELD(WideBoolean, Fader.SolidFade), false}},
};

#undef FIELD
#undef ON
#undef OFF

// One text applied to one field, by the kind of its key.
struct Apply {
  Settings& settings;
  const std::string& text;

  void operator()(const Flag& key) const {
    if (text.empty())
      key.field(settings) = key.byDefault;
    else if (text == key.on)
      key.field(settings) = true;
    else if (text == key.off)
      key.field(settings) = false;
  }
  void operator()(const WideFlag& key) const {
    if (text.empty())
      key.field(settings) = key.byDefault;
    else if (text == "True" || text == "False")
      key.field(settings) = text == "True";
  }
  void operator()(const TextKey& key) const {
    key.field(settings) = text.empty() ? std::string(key.byDefault) : text;
  }
  void operator()(const DigitNumber& key) const {
    if (text.empty())
      key.field(settings) = 0;
    else if (IsDigit('0', key.last))
      key.field(settings) = text[0] - '0';
  }
  void operator()(const DigitText& key) const {
    if (text.empty())
      key.field(settings) = std::string(1, key.first);
    else if (IsDigit(key.first, key.last))
      key.field(settings) = text;
  }
  template <typename T>
  void operator()(const Number<T>& key) const {
    if (text.empty())
      key.field(settings) = key.byDefault;
    else if (IsNumeric(text))
      SetInRange(key.field(settings), Val(text));
  }
  void operator()(const ForgivingNumber& key) const {
    key.field(settings) = IsNumeric(text) ? IntVal(text) : key.byDefault;
  }

  bool IsDigit(char first, char last) const {
    return text.size() == 1 && text[0] >= first && text[0] <= last;
  }
  template <typename T>
  static void SetInRange(T& field, double value) {
    if (value >= static_cast<double>(std::numeric_limits<T>::lowest()) &&
        value <= static_cast<double>(std::numeric_limits<T>::max()))
      field = static_cast<T>(value);
  }
};

void Load(Group group, const SettingsStore& store, Settings& settings) {
  for (const KeyRule& rule : kRules) {
    if (rule.group != group) continue;
    std::string text = store.ReadKey(rule.section, rule.key);
    if (rule.form & kTrim) text = Trim(text);
    if (rule.form & kLower) text = Lower(text);
    std::visit(Apply{settings, text}, rule.target);
  }
}

void LoadAccessMode(const SettingsStore& store, Globals& globals) {
  const std::string text = store.ReadKey("Toolbar", "MenuAccess");
  if (text.empty() || text == "Toolbar") globals.AccessMode = 0;
  if (text == "Tray") globals.AccessMode = 1;
  if (text == "Menu") globals.AccessMode = 2;
}

}  // namespace

void LoadUserColors(const SettingsStore& store, Settings& settings) {
  Load(Group::kColors, store, settings);
}

void LoadToolbarGroup(const SettingsStore& store, Settings& settings, Globals& globals) {
  LoadAccessMode(store, globals);
  Load(Group::kToolbar, store, settings);
}

void LoadWavListGroup(const SettingsStore& store, Settings& settings) {
  Load(Group::kWavList, store, settings);
}

void LoadEMailGroup(const SettingsStore& store, Settings& settings) {
  Load(Group::kEMail, store, settings);
}

void LoadWavScanGroup(const SettingsStore& store, Settings& settings) {
  Load(Group::kWavScan, store, settings);
}

void LoadHotWordsGroup(const SettingsStore& store, Settings& settings) {
  Load(Group::kHotWords, store, settings);
}

void LoadIMGroup(const SettingsStore& store, Settings& settings, bool canManageIMs) {
  Load(Group::kIM, store, settings);
  if (canManageIMs) {
    Load(Group::kIMManager, store, settings);
    return;
  }
  // Such a client's windows can't be taken into the manager, whatever the user once chose.
  auto& im = settings.IM;
  im.TabsOn = im.EnterSends = im.TabSwitches = im.MultipleRows = false;
}

void LoadSiblingKeys(const SettingsStore& store, Settings& settings) {
  Load(Group::kSibling, store, settings);
}

void LoadFaderGroup(const SettingsStore& store, Settings& settings) {
  Load(Group::kFader, store, settings);
}

}  // namespace corvel
