// A setting: one named value of the settings tree, declared once, as a member of its section:
//
//   struct ClockSettings : SettingsSection {
//     explicit ClockSettings(SettingsTree& t) : SettingsSection{t, "Clock", LoadGroup::kToolbar} {}
//     FlagSetting Show{*this, "Show", true, "the clock floats"};
//   };
//
// That line says all there is to say: key, type, what "" stands for, meaning, how its text is read.
// From it come the value in memory (it reads like a plain one: `if (settings.Clock.Show)`), its
// load with its group, its row in docs/formats/settings.md, and Set, which changes value and key
// together, at that moment. There is no other way to a key, and a load writes none: a default
// stays in the code. A key that can't be written keeps its new value for this run.
//
// Before its load a word is false, 0 or the first of its enum, a text or number is its default. A
// stored text that is no value of the setting leaves it as it was. A setting can't be copied: say
// `const std::string style = settings.Garland.Current`, not `auto`.
#pragma once

#include "core/settings_store.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace corvel {

// When the start loads it, in this order; what is read where it is used isn't loaded.
enum class LoadGroup {
  kLook,
  kToolbar,
  kWavList,
  kEMail,
  kWavScan,
  kHotWords,
  kIM,
  kIMManager,
  kSiblings,
  kFader,
  kWhenUsed
};

// What is done to a stored text before it is looked at, and with one that is no value: kForgiving
// takes the default for it.
enum Reading : unsigned { kAsIs = 0, kTrim = 1, kLower = 2, kForgiving = 4 };

class Setting;

// All that is declared, in the order of declaration.
struct SettingsTree {
  struct FreeSection {
    const char* name;
    const char* meaning;
  };
  SettingsStore& store;
  int &uiMode, &accessMode;  // where the program keeps the values of two
  std::vector<Setting*> settings{};
  std::vector<FreeSection> freeSections{};
};

// Where settings lie, and when they are loaded.
struct SettingsSection {
  SettingsTree& tree;
  const char* name;  // "" is the root of the tree
  LoadGroup group;

  // The same section, for settings of it that are loaded with another group.
  SettingsSection LoadedWith(LoadGroup other) const { return {tree, name, other}; }
};

class Setting {
 public:
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

  void Load();
  bool IsStored() const;  // something but blanks is
  // The value as its key holds it.
  virtual std::string AsText() const = 0;
  // Sets the value that this text stands for, as a load would read it, but that "" isn't the
  // default; false, and nothing is changed, if it stands for none.
  bool SetText(std::string_view text);

  const SettingsSection& Section() const { return section_; }
  const char* Key() const { return key_; }
  const char* Meaning() const { return meaning_; }
  const std::string& DefaultText() const { return defaultText_; }
  unsigned HowRead() const { return reading_; }
  virtual std::string Kind() const = 0;  // for the reader of the page

 protected:
  Setting(const SettingsSection& section, const char* key, std::string defaultText,
          const char* meaning, unsigned reading);
  ~Setting() = default;
  // Takes the value of a text; false if it has none.
  virtual bool Take(const std::string& text) = 0;
  void Write() const;

 private:
  std::string Prepared(std::string_view text) const;

  const SettingsSection section_;
  const char* const key_;
  const char* const meaning_;
  const std::string defaultText_;
  const unsigned reading_;
};

// A setting with a value of type T, in itself or, where the program knows it by another name, in
// `*kept`.
template <typename T>
class SettingOf : public Setting {
 public:
  const T& Get() const { return *value_; }
  operator const T&() const { return *value_; }  // NOLINT: reads like the plain value
  void Set(T value) {
    *value_ = std::move(value);
    Write();
  }
  // One of the two alone.
  void SetForThisRun(T value) { *value_ = std::move(value); }
  void SetForNextStart(T value) {
    std::swap(*value_, value);
    Write();
    std::swap(*value_, value);
  }
  // What is stored now: for a setting that is read where it is used.
  const T& Read() {
    *value_ = beforeLoad_;
    Load();
    return *value_;
  }

 protected:
  SettingOf(const SettingsSection& section, const char* key, std::string defaultText,
            const char* meaning, unsigned reading, T beforeLoad, T* kept)
      : Setting(section, key, std::move(defaultText), meaning, reading),
        beforeLoad_(std::move(beforeLoad)),
        own_(beforeLoad_),
        value_(kept ? kept : &own_) {}
  ~SettingOf() = default;
  T& Value() { return *value_; }

 private:
  const T beforeLoad_;
  T own_;
  T* const value_;
};

class TextSetting final : public SettingOf<std::string> {
 public:
  TextSetting(const SettingsSection& section, const char* key, std::string_view byDefault,
              const char* meaning, unsigned reading = kAsIs)
      : SettingOf(section, key, std::string(byDefault), meaning, reading, std::string(byDefault),
                  nullptr) {}
  std::string AsText() const override { return Get(); }
  std::string Kind() const override { return "text"; }

 private:
  bool Take(const std::string& text) override { return Value() = text, true; }
};

template <typename T>
struct Word {
  std::string_view text;
  T value;
};

// "a", "b", "c": the words of a setting, as its page shows them.
std::string ListOfWords(const std::vector<std::string_view>& words);

// One of a set of words, each with its value: a boolean, a number or an enum.
template <typename T>
class WordSetting : public SettingOf<T> {
 public:
  WordSetting(const SettingsSection& section, const char* key, std::vector<Word<T>> words,
              T byDefault, const char* meaning, unsigned reading = kAsIs, T* kept = nullptr)
      : SettingOf<T>(section, key, TextOf(words, byDefault), meaning, reading, T{}, kept),
        words_(std::move(words)) {}
  std::string AsText() const final { return TextOf(words_, this->Get()); }
  std::string Kind() const override {
    std::vector<std::string_view> texts;
    for (const Word<T>& word : words_) texts.push_back(word.text);
    return ListOfWords(texts);
  }

 private:
  static std::string TextOf(const std::vector<Word<T>>& words, const T& value) {
    for (const Word<T>& word : words)
      if (word.value == value) return std::string(word.text);
    return {};
  }
  bool Take(const std::string& text) final {
    for (const Word<T>& word : words_)
      if (word.text == text) return this->Value() = word.value, true;
    return false;
  }

  const std::vector<Word<T>> words_;
};

// On or off, by these words.
struct OnOff {
  std::string_view on = "True", off = "False";
};

class FlagSetting final : public WordSetting<bool> {
 public:
  FlagSetting(const SettingsSection& section, const char* key, bool byDefault, const char* meaning,
              unsigned reading = kAsIs)
      : FlagSetting(section, key, OnOff{}, byDefault, meaning, reading) {}
  FlagSetting(const SettingsSection& section, const char* key, OnOff words, bool byDefault,
              const char* meaning, unsigned reading = kAsIs, bool* kept = nullptr)
      : WordSetting(section, key, {{words.on, true}, {words.off, false}}, byDefault, meaning,
                    reading, kept) {}
  // Kept there, where the default stands already.
  FlagSetting(const SettingsSection& section, const char* key, bool* kept, const char* meaning)
      : FlagSetting(section, key, OnOff{}, *kept, meaning, kAsIs, kept) {}
};

// The number of a text within these bounds; a forgiving reader holds it there. Nothing if it isn't
// a number, or not within them.
std::optional<double> NumberWithin(const std::string& text, double lowest, double highest,
                                   bool forgiving);
std::string NumberText(std::int32_t number);
std::string NumberText(float number);  // the shortest that reads as the same number

template <typename T>
class NumberSetting : public SettingOf<T> {
 public:
  NumberSetting(const SettingsSection& section, const char* key, T byDefault, const char* meaning,
                unsigned reading = kAsIs, T* kept = nullptr)
      : SettingOf<T>(section, key, NumberText(byDefault), meaning, reading, byDefault, kept) {}
  // Kept there, where the default stands already.
  NumberSetting(const SettingsSection& section, const char* key, T* kept, const char* meaning)
      : NumberSetting(section, key, *kept, meaning, kAsIs, kept) {}
  std::string AsText() const override { return NumberText(this->Get()); }
  std::string Kind() const override { return std::is_integral_v<T> ? "integer" : "single"; }

 private:
  bool Take(const std::string& text) override {
    using Limits = std::numeric_limits<T>;
    const auto number =
        NumberWithin(text, static_cast<double>(Limits::lowest()),
                     static_cast<double>(Limits::max()), (this->HowRead() & kForgiving) != 0);
    if (number) this->Value() = static_cast<T>(*number);
    return number.has_value();
  }
};

// A colour: red in the low byte; a system colour is a negative number.
class ColorSetting final : public NumberSetting<std::int32_t> {
 public:
  using NumberSetting::NumberSetting;
  std::string Kind() const override { return "colour"; }
};

// Where a window stood, in twips: the settings "Top" and "Left".
struct PlaceSetting {
  explicit PlaceSetting(const SettingsSection& in) : section{in.LoadedWith(LoadGroup::kWhenUsed)} {}
  SettingsSection section;
  NumberSetting<std::int32_t> Top{section, "Top", 0, "where its window stands, in twips",
                                  kTrim | kForgiving};
  NumberSetting<std::int32_t> Left{section, "Left", 0, "where its window stands, in twips",
                                   kTrim | kForgiving};
};

}  // namespace corvel
