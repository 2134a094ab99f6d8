#include "core/setting.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace corvel {

Setting::Setting(const SettingsSection& section, const char* key, std::string defaultText,
                 const char* meaning, unsigned reading)
    : section_(section),
      key_(key),
      meaning_(meaning),
      defaultText_(std::move(defaultText)),
      reading_(reading) {
  section_.tree.settings.push_back(this);
}

std::string Setting::Prepared(std::string_view text) const {
  std::string prepared = reading_ & kTrim ? Trim(text) : std::string(text);
  return reading_ & kLower ? Lower(prepared) : prepared;
}

void Setting::Load() {
  const std::string text = Prepared(section_.tree.store.ReadKey(section_.name, key_));
  if (text.empty() || (!Take(text) && (reading_ & kForgiving))) Take(defaultText_);
}

bool Setting::IsStored() const {
  return !Trim(section_.tree.store.ReadKey(section_.name, key_)).empty();
}

bool Setting::SetText(std::string_view text) {
  if (!Take(Prepared(text))) return false;
  Write();
  return true;
}

void Setting::Write() const { section_.tree.store.WriteKey(section_.name, key_, AsText()); }

std::string ListOfWords(const std::vector<std::string_view>& words) {
  if (words == std::vector<std::string_view>{"True", "False"}) return "boolean";
  std::string list;
  for (const std::string_view word : words)
    list.append(list.empty() ? "\"" : ", \"").append(word).append("\"");
  return list;
}

std::optional<double> NumberWithin(const std::string& text, double lowest, double highest,
                                   bool forgiving) {
  if (!IsNumeric(text)) return std::nullopt;
  const double number = Val(text);
  if (forgiving) return std::clamp(number, lowest, highest);
  if (number < lowest || number > highest) return std::nullopt;
  return number;
}

std::string NumberText(std::int32_t number) { return std::to_string(number); }

std::string NumberText(float number) {
  char text[32];
  return {text, std::to_chars(std::begin(text), std::end(text), number).ptr};
}

}  // namespace corvel
