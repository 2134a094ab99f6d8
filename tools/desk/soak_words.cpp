// Made-up words; see soak_words.h.
#include "tools/desk/soak_words.h"

#include <algorithm>
#include <vector>

namespace corvel::tools {
namespace {

// --- What stands for the words in capitals -------------------------------------------------------

constexpr const char* kLongTalk =
    "a very long line of talk that goes on and on, as people do who have an evening before them "
    "and nobody who stops them, until the room has had enough of it and says so";
constexpr const char* kTexts[] = {"",
                                  " ",
                                  "hi all",
                                  "a",
                                  "wavlist",
                                  "/fadeon",
                                  "/wavlist",
                                  "{S boing",
                                  "{S boing}",
                                  "{%}",
                                  "<b>bold</b> & more",
                                  "100% sure",
                                  "7",
                                  "-99999",
                                  "two\twords",
                                  "name=text",
                                  "[Data]",
                                  "~B~CRred",
                                  "\xE4\xF6\xFC \x80 \x95\xA4\x95",
                                  "C:\\AOL",
                                  "C:\\nowhere\\at all",
                                  "con",
                                  kLongTalk};
constexpr const char* kPeople[] = {"Ann", "Bob Two", "xXCarlXx", "Dee4", "Host NH", "practice one"};
constexpr const char* kNames[] = {"Lobby", "Town Square", "a"};
constexpr const char* kAccounts[] = {"PracticeOne", "PracticeOne", "Practice Two"};
constexpr const char* kStates[] = {"offline", "online", "private", "no-ims", "unknown"};
constexpr const char* kTargets[] = {"aol://2719:2-2-Lobby", "welcome", "http://corvel.example/"};
constexpr const char* kKeys[] = {"enter", "tab",  "escape", "delete",     "up",
                                 "down",  "left", "space",  "ctrl+enter", "backspace"};
constexpr const char* kSeconds[] = {"1", "3", "9", "20", "60"};
constexpr const char* kTries[] = {"0", "1", "3"};
constexpr const char* kPixels[] = {"-200", "-3", "0", "40"};
constexpr const char* kWaves[] = {"C:\\AOL\\boing.wav", "C:\\AOL\\welcome.wav",
                                  "C:\\WINDOWS\\ding.wav", "C:\\Wavs\\my song.wav",
                                  "C:\\Wavs\\b.wav"};
constexpr const char* kFiles[] = {"C:\\Corvel\\favwavs.dat", "C:\\Corvel\\data\\desc1.dat",
                                  "C:\\AOL\\boing.wav", "C:\\AUTOEXEC.BAT"};
constexpr const char* kFolders[] = {"C:\\AOL", "C:\\AOL", "C:\\Wavs"};
constexpr const char* kCalls[] = {"1", "2", "3", "4", "5"};
constexpr const char* kErrors[] = {"53", "61", "70", "71", "75", "76"};
constexpr const char* kBytes[] = {"0",          "20",         "60",         "180",
                                  "1000000000", "1000000000", "1000000000", "1000000000"};

struct Stock {
  std::string_view placeholder;
  std::span<const char* const> words;
};
constexpr Stock kStock[] = {{"TEXT", kTexts},      {"TITLE", kTexts},    {"BODY", kTexts},
                            {"PERSON", kPeople},   {"NAME", kNames},     {"ACCOUNT", kAccounts},
                            {"STATE", kStates},    {"TARGET", kTargets}, {"KEY", kKeys},
                            {"SECONDS", kSeconds}, {"AFTER", kSeconds},  {"TRIES", kTries},
                            {"DX", kPixels},       {"DY", kPixels},      {"WAVE", kWaves},
                            {"PATH", kFiles},      {"FOLDER", kFolders}, {"CALL", kCalls},
                            {"ERROR", kErrors},    {"BYTES", kBytes},    {"PART OF PATH", kFiles}};

// --- How often, and where less is meant than a line could say ------------------------------------

constexpr int kUsualWeight = 2;

struct Rule {
  std::string_view word;
  int weight;
  const char* form = nullptr;  // instead of the command's own
};
// None of the last ones: they would break what must hold, or are found on the screen instead.
constexpr Rule kRules[] = {{"room", 8},
                           {"leave-room", 3},
                           {"enter", 4},
                           {"leave", 4},
                           {"right-click", 4},
                           {"say", 4},
                           {"type", 8},
                           {"key", 8, "enter|enter|enter|KEY"},
                           {"send-icon", 4},
                           {"member", 2, "PERSON STATE"},
                           {"sign-on", 4, "ACCOUNT"},
                           {"sign-off", 1},
                           {"client-delay", 1, "6|0.05|0.05|0.05|0.05"},
                           {"client-hung", 2, "off|off|SECONDS"},
                           {"client-close", 1},
                           {"client-crash", 1},
                           {"upload", 1, "on|off|off|off"},
                           {"taskbar", 1, "on|on|off"},
                           {"wav", 8, "WAVE 0.01"},
                           {"free-space", 5},
                           {"lock", 6, "PATH on|off|off"},
                           {"client-menu", 0},
                           {"close-window", 0},
                           {"file", 0},
                           {"setting", 0},
                           {"random", 0}};

const Rule* FindRule(std::string_view word) {
  const auto rule = std::find_if(std::begin(kRules), std::end(kRules),
                                 [&](const Rule& one) { return one.word == word; });
  return rule == std::end(kRules) ? nullptr : rule;
}

// --- Forms ---------------------------------------------------------------------------------------

// Parts at a mark, which counts for nothing inside quotes.
std::vector<std::string_view> Split(std::string_view text, char mark) {
  std::vector<std::string_view> parts;
  std::size_t begin = 0;
  bool quoted = false;
  for (std::size_t at = 0; at <= text.size(); ++at) {
    if (at < text.size() && text[at] == '"') quoted = !quoted;
    if (at < text.size() && (quoted || text[at] != mark)) continue;
    if (at > begin) parts.push_back(text.substr(begin, at - begin));
    begin = at + 1;
  }
  return parts;
}

bool Take(std::string_view& part, std::string_view front, std::string_view back) {
  const bool there =
      part.size() >= front.size() + back.size() && part.starts_with(front) && part.ends_with(back);
  if (there) part = part.substr(front.size(), part.size() - front.size() - back.size());
  return there;
}

bool IsPlaceholder(std::string_view word) {
  return std::all_of(word.begin(), word.end(),
                     [](char c) { return (c >= 'A' && c <= 'Z') || c == ' '; });
}

}  // namespace

int WeightOf(const Command& command) {
  const Rule* const rule = FindRule(command.word);
  return rule ? rule->weight : kUsualWeight;
}

std::optional<std::string> SoakWords::Some(std::string_view placeholder) {
  for (const Stock& stock : kStock)
    if (stock.placeholder == placeholder) return dice_.OneOf(stock.words);
  return std::nullopt;
}

std::optional<Words> SoakWords::LineOf(const Command& command) {
  const Rule* const rule = FindRule(command.word);
  Words words;
  words.Add(command.word, false);
  for (const std::string_view part : Split(rule && rule->form ? rule->form : command.form, ' '))
    if (!Add(words, part)) return std::nullopt;
  return words;
}

// False: it has a word in capitals that nobody knows.
bool SoakWords::Add(Words& words, std::string_view part) {
  const bool optional = Take(part, "[", "]"), repeated = Take(part, "", "...");
  int times = repeated ? dice_.Below(4) : optional ? dice_.Below(2) : 1;
  auto choices = Split(part, '|');
  std::string_view chosen = dice_.OneOf(choices);
  const bool quoted = Take(chosen, "\"", "\"");
  while (times-- > 0) {
    const auto text = IsPlaceholder(chosen) ? Some(chosen) : std::optional(std::string(chosen));
    if (!text) return false;
    words.Add(*text, quoted);
  }
  return true;
}

}  // namespace corvel::tools
