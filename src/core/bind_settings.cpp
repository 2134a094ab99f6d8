#include "core/bind_settings.h"

namespace corvel {

void Bind(forms::CheckBox& box, FlagSetting& setting, HangsOn hangs) {
  const auto enable = [controls = std::move(hangs.enables)](bool on) {
    for (forms::Control* const control : controls) control->SetEnabled(on);
  };
  box.SetValue(setting ? 1 : 0);
  enable(setting);
  box.onClick = [&box, &setting, enable, then = std::move(hangs.then)] {
    setting.Set(box.Value() != 0);
    enable(setting);
    if (then) then();
  };
}

void Bind(forms::ComboBox& combo, Setting& setting, std::function<void()> then) {
  combo.SetListIndex(combo.FindString(-1, setting.AsText()));
  combo.onClick = [&combo, &setting, then = std::move(then)] {
    if (combo.ListIndex() < 0 || !setting.SetText(combo.Text())) return;
    if (then) then();
  };
}

void ShowText(forms::TextBox& box, const TextSetting& setting) { box.SetText(setting.Get()); }

void StoreText(const forms::TextBox& box, TextSetting& setting) { setting.Set(box.Text()); }

}  // namespace corvel
