#include "practice/settings.h"

#include "base/text.h"

#include <algorithm>
#include <optional>

namespace corvel::practice {
namespace {

constexpr std::string_view kSection = "client";
constexpr std::size_t kMostNames = 7, kLongestName = 16;
constexpr int kLongestDelay = 60000;

struct LocaleRow {
  std::string_view word;
  Locale locale;
};
constexpr LocaleRow kLocales[] = {{"us", Locale::kUs},
                                  {"uk", Locale::kUk},
                                  {"ca", Locale::kCanada},
                                  {"au", Locale::kAustralia},
                                  {"de", Locale::kGermany}};

std::vector<std::string> Parts(std::string_view list) {
  std::vector<std::string> parts;
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    if (const std::string part = Trim(list.substr(0, comma)); !part.empty()) parts.push_back(part);
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return parts;
}

// Each answers what is wrong with the value, "" if nothing.
std::string TakeVersion(Settings& settings, const std::string& value) {
  if (value.empty()) return "a version is missing";
  settings.setup.version = value;
  return "";
}

std::string TakeLocale(Settings& settings, const std::string& value) {
  for (const LocaleRow& row : kLocales) {
    if (!EqualNoCase(row.word, value)) continue;
    settings.setup.locale = row.locale;
    return "";
  }
  return "there is no locale \"" + value + "\" (us, uk, ca, au or de)";
}

std::string TakeNames(Settings& settings, const std::string& value) {
  const auto names = Parts(value);
  if (names.size() > kMostNames) return "an account has at most 7 names";
  for (const std::string& name : names)
    if (name.size() > kLongestName) return "the name \"" + name + "\" is longer than 16 characters";
  settings.setup.screenNames = names;
  return "";
}

std::string TakeSignedOn(Settings& settings, const std::string& value) {
  settings.setup.signedOnAs = EqualNoCase(value, "nobody") ? "" : value;
  return "";
}

std::string TakeDelay(Settings& settings, const std::string& value) {
  const double delay = IsNumeric(value) ? Val(value) : -1;
  if (delay < 0 || delay > kLongestDelay)
    return "the delay \"" + value + "\" is no number of milliseconds from 0 to 60000";
  settings.setup.delayMs = static_cast<std::uint32_t>(delay);
  return "";
}

std::string TakePeople(Settings& settings, const std::string& value) {
  settings.people = EqualNoCase(value, "on");
  return settings.people || EqualNoCase(value, "off") ? "" : "people can be on or off";
}

struct SettingRow {
  std::string_view name;
  std::string (*take)(Settings&, const std::string&);
};
constexpr SettingRow kSettings[] = {
    {"version", TakeVersion},    {"locale", TakeLocale}, {"names", TakeNames},
    {"signed-on", TakeSignedOn}, {"delay", TakeDelay},   {"people", TakePeople},
};

// The next word of a command line; quotes hold blanks in.
std::optional<std::string> TakeWord(std::string_view& line) {
  while (line.starts_with(' ')) line.remove_prefix(1);
  if (line.empty()) return std::nullopt;
  std::string word;
  bool quoted = false;
  while (!line.empty() && (quoted || line[0] != ' ')) {
    if (line[0] == '"')
      quoted = !quoted;
    else
      word += line[0];
    line.remove_prefix(1);
  }
  return word;
}

class Reader {
 public:
  void FromIni(Files& files, const std::string& path) {
    for (const SettingRow& row : kSettings) {
      const std::string value = files.ReadProfile(path, kSection, row.name);
      if (!value.empty()) Take(row, value);
    }
  }
  void FromCommandLine(std::string_view line) {
    constexpr std::string_view kTarget = "-s";
    while (line.starts_with(' ')) line.remove_prefix(1);
    while (!line.empty()) {
      // A target is all the rest: it may hold blanks.
      if (line.starts_with(kTarget)) {
        settings_.target = Trim(line.substr(kTarget.size()));
        return;
      }
      if (const auto word = TakeWord(line)) TakeAssignment(*word);
      while (line.starts_with(' ')) line.remove_prefix(1);
    }
  }
  Settings Finish() {
    auto& setup = settings_.setup;
    if (!signedOnGiven_)
      setup.signedOnAs = setup.screenNames.empty() ? "" : setup.screenNames.front();
    return settings_;
  }

 private:
  void TakeAssignment(const std::string& word) {
    const std::size_t equals = word.find('=');
    for (const SettingRow& row : kSettings)
      if (equals != std::string::npos && EqualNoCase(row.name, word.substr(0, equals)))
        return Take(row, word.substr(equals + 1));
    settings_.mistakes.push_back("\"" + word + "\" means nothing here");
  }
  void Take(const SettingRow& row, const std::string& value) {
    signedOnGiven_ |= row.take == TakeSignedOn;
    std::string mistake = row.take(settings_, value);
    if (!mistake.empty()) settings_.mistakes.push_back(std::move(mistake));
  }
  Settings settings_{};
  bool signedOnGiven_ = false;
};

}  // namespace

Settings ReadSettings(Files& files, const std::string& folder, std::string_view commandLine) {
  Reader reader;
  reader.FromIni(files, folder + "\\practice.ini");
  reader.FromCommandLine(commandLine);
  Settings settings = reader.Finish();
  settings.setup.folder = folder;
  return settings;
}

}  // namespace corvel::practice
