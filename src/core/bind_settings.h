// A control for a setting, in one line of a form's Form_Load:
//
//   Bind(chkScan, settings.WavScan.Active, {.enables = {&chkShowProp, &chkNoPrompt}});
//   Bind(settings.Toolbar.Vertical, {{&optHorz, false}, {&optVert, true}}, [this] {...});
//   Bind(cboLines, settings.ChatExtender.CharsInLine);
//
// It shows the value as it is now, which writes nothing. From then on what the user chooses sets
// value and key at once, and then what hangs on it happens. So do CheckBox::SetValue and
// Rows::SetListIndex from code behind that line, which raise a click, too. The setting outlives the
// form.
#pragma once

#include "core/setting.h"
#include "forms/control.h"

#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace corvel {

// What hangs on a control: others that are enabled while a box is checked, from the start on; and
// what happens behind each change by the user. The form may be gone when that comes back.
struct HangsOn {
  std::vector<forms::Control*> enables{};
  std::function<void()> then{};
};

void Bind(forms::CheckBox& box, FlagSetting& setting, HangsOn hangs = {});

// Shows the first row that begins with the text of the value, fill the rows before. A value that no
// row holds shows nothing, and stays until the user chooses a row.
void Bind(forms::ComboBox& combo, Setting& setting, std::function<void()> then = {});

template <typename T>
struct OptionFor {
  forms::OptionButton* button;
  T value;
};

// A value that no option stands for leaves all of them unchosen.
template <typename T>
void Bind(WordSetting<T>& setting, const std::type_identity_t<std::vector<OptionFor<T>>>& options,
          const std::function<void()>& then = {}) {
  for (const OptionFor<T>& option : options) {
    option.button->SetValue(setting == option.value);
    option.button->onClick = [&setting, value = option.value, then] {
      setting.Set(value);
      if (then) then();
    };
  }
}

// A text is taken when the form says so, not with each key.
void ShowText(forms::TextBox& box, const TextSetting& setting);
void StoreText(const forms::TextBox& box, TextSetting& setting);

}  // namespace corvel
