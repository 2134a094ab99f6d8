// Settings of the fader. Those that the engine takes keep their values in its plain input, whose
// own initial values are their defaults.
#pragma once

#include "core/fade_settings.h"
#include "core/free_names.h"
#include "core/setting.h"

#include <array>

namespace corvel {

struct FaderSettings : SettingsSection {
  explicit FaderSettings(SettingsTree& t) : SettingsSection{t, "Fader", LoadGroup::kFader} {}
  FadeSettings Fade;  // for the engine
  FlagSetting On{*this, "On", false, "typed lines are faded"};
  TextSetting Default{*this, "Default", "Cool Fade", "the current scheme"};
  FlagSetting ShowFadePanelWithChat{*this, "ShowFadePanelWithChat", false,
                                    "the panel comes with a room"};
  FlagSetting FadeWavOnly{*this, "FadeWavOnly", false, "only lines with a wav are faded"};
  WordSetting<WideBoolean> SolidFade{*this,
                                     "SolidFade",
                                     {{"True", true}, {"False", false}},
                                     Fade.SolidFade,
                                     "solid colours in turn instead of a gradient",
                                     kAsIs,
                                     &Fade.SolidFade};
  // What a scheme holds, too.
  NumberSetting<std::int16_t> FadeNumber{*this, "FadeNumber", &Fade.FadeNumber, "colours in use"};
  std::array<ColorSetting, 6> Colors{{{*this, "One", &Fade.One, "the first colour"},
                                      {*this, "Two", &Fade.Two, "the second"},
                                      {*this, "Three", &Fade.Three, "the third"},
                                      {*this, "Four", &Fade.Four, "the fourth"},
                                      {*this, "Five", &Fade.Five, "the fifth"},
                                      {*this, "Six", &Fade.Six, "the sixth"}}};
  FlagSetting Wavy{*this, "Wavy", &Fade.Wavy, "letters rise and fall"};
  FlagSetting Bold{*this, "Bold", &Fade.Bold, "bold"};
  FlagSetting Italic{*this, "Italic", &Fade.Italic, "italic"};
  FlagSetting ULine{*this, "ULine", &Fade.ULine, "underlined"};

  SettingsSection panel{LoadedWith(LoadGroup::kWhenUsed)};
  PlaceSetting Place{panel};
  FlagSetting Unfolded{panel, "State", {"Max", "Min"}, false, "the panel shows its options"};
  NamedSections Schemes{tree, "Fader\\Schemes",
                        "a sub-section a scheme: `FadeNumber`, `One` to `Six`, `Wavy`, `Bold`, "
                        "`Italic`, `ULine`"};
};

}  // namespace corvel
