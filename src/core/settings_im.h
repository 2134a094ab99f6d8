// Settings of IMs: the answerer, the manager, the logs.
#pragma once

#include "core/setting.h"

namespace corvel {

// A frame of the IM manager, in pixels: the keys "...Bottom" and "...Right" hold its height and
// width, whatever they say.
struct FrameSetting {
  NumberSetting<std::int32_t> Top, Left, Height, Width;
};

struct IMSettings : SettingsSection {
  explicit IMSettings(SettingsTree& t) : SettingsSection{t, "IM", LoadGroup::kIM} {}
  WordSetting<int> IMAnswerMode{*this,
                                "IMAnswerMode",
                                {{"0", 0}, {"1", 1}, {"2", 2}, {"3", 3}, {"4", 4}, {"5", 5}},
                                0,
                                "who is answered"};
  FlagSetting RepeatAnswer{*this, "RepeatAnswer", true,
                           "each message is answered, not the first only"};
  FlagSetting ShowAnswerWin{*this, "ShowAnswerWin", true, "the answer window shows"};
  FlagSetting IMWavsEnabled{*this, "IMWavsEnabled", true, "sound codes of IMs are played"};
  FlagSetting LogIMs{*this, "LogIMs", true, "IMs are logged", kTrim};
  FlagSetting LogCountNotify{*this, "LogCountNotify", false, "too many logs are told", kTrim};
  NumberSetting<std::int32_t> MaxLogs{*this, "MaxLogs", 30, "how many are not too many", kTrim};
  FlagSetting AutoAcceptAIM{*this, "AutoAcceptAIM", true, "IMs from outside are accepted", kTrim};
  FlagSetting CloseIMsOnExit{*this, "CloseIMsOnExit", false, "IMs close with the program", kTrim};
  FlagSetting TabExtraBtns{*this, "TabExtraBtns", true, "more buttons at tabs", kTrim};
  FlagSetting ListExtraBtns{*this, "ListExtraBtns", true, "more buttons at the list", kTrim};
  FlagSetting ClickGraysArrow{*this, "ClickGraysArrow", false, "a click greys the arrow", kTrim};
  FlagSetting StyleTabs{*this, "Style", {"tabs", "buttons"}, true, "tab look", kLower};
  FlagSetting PositionTop{*this, "Position", {"top", "bottom"}, true, "tab place", kLower};

  // Of the manager alone, which AOL 3.0 can't have.
  SettingsSection manager{LoadedWith(LoadGroup::kIMManager)};
  FlagSetting TabsOn{manager, "TabsOn", true, "the IM manager is on", kTrim};
  FlagSetting EnterSends{manager, "EnterSends", true, "Enter sends", kTrim};
  FlagSetting TabSwitches{manager, "TabSwitches", true, "Tab goes to the next IM", kTrim};
  FlagSetting MultipleRows{manager, "MultipleRows", true, "tabs stand in several rows", kTrim};

  SettingsSection used{LoadedWith(LoadGroup::kWhenUsed)};
  NumberSetting<std::int32_t> Message{used, "Message", 1, "number of the answer; 0 counts as 1"};
  FrameSetting TabFrame{{used, "TabTop", 0, "frame of the manager with tabs, in pixels"},
                        {used, "TabLeft", 0, "frame of the manager with tabs"},
                        {used, "TabBottom", 320, "its height"},
                        {used, "TabRight", 315, "its width"}};
  FrameSetting ListFrame{{used, "ListTop", 0, "frame of the manager with a list, in pixels"},
                         {used, "ListLeft", 0, "frame of the manager with a list"},
                         {used, "ListBottom", 243, "its height"},
                         {used, "ListRight", 390, "its width"}};

  SettingsSection mode{tree, "Mode", LoadGroup::kIM};
  WordSetting<int> ManagerUIMode{
      mode, "UIMode", {{"0", 0}, {"1", 1}}, 0, "IM manager: 0 tabs, 1 list"};
};

struct AnswerWindowSettings : SettingsSection {
  explicit AnswerWindowSettings(SettingsTree& t)
      : SettingsSection{t, "AnswerWindow", LoadGroup::kWhenUsed} {}
  PlaceSetting Place{*this};
};

}  // namespace corvel
