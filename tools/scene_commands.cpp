// The commands that set the scene: the machine, its drive, the settings, the client to be.
#include "base/civil_time.h"
#include "base/text.h"
#include "core/settings_store.h"
#include "tools/scenario_commands.h"

#include <cmath>
#include <cstdio>
#include <optional>
#include <utility>

namespace corvel::tools {
namespace {

constexpr double kLongest = 1e8;  // seconds: three years

std::string CheckOnly(const Words& words) {
  return words.IsBare(1, "desk") || words.IsBare(1, "windows") ? "" : "it is desk or windows";
}

// A file for another home is never played; by hand one can say it on the wrong one.
Failure PlayOnly(Play& play, const Words& words) {
  const std::string home(play.stage.Home());
  return words[1] == home ? "" : "expected to be on " + words[1] + ", got " + home;
}

// --- The client and the machine ------------------------------------------------------------------

constexpr std::pair<const char*, practice::Locale> kLocales[] = {
    {"us", practice::Locale::kUs},
    {"uk", practice::Locale::kUk},
    {"ca", practice::Locale::kCanada},
    {"au", practice::Locale::kAustralia},
    {"de", practice::Locale::kGermany}};

std::optional<practice::Locale> ParseLocale(const std::string& word) {
  for (const auto& [name, locale] : kLocales)
    if (word == name) return locale;
  return std::nullopt;
}

std::string CheckClient(const Words& words) {
  if (!ParseLocale(words[2])) return "the locale is us, uk, ca, au or de";
  if (words.size() == 4 && words[3] != "not-running") return "the third word can be not-running";
  return {};
}

Failure PlayClient(Play& play, const Words& words) {
  play.stage.setup.version = words[1];
  play.stage.setup.locale = *ParseLocale(words[2]);
  play.stage.clientRuns = words.size() < 4;
  return {};
}

Failure PlayNames(Play& play, const Words& words) {
  practice::Setup& setup = play.stage.setup;
  const bool signedOn = !setup.signedOnAs.empty();
  setup.screenNames = words.From(1);
  if (signedOn) setup.signedOnAs = setup.screenNames.front();
  return {};
}

Failure PlaySignedOn(Play& play, const Words& words) {
  play.stage.setup.signedOnAs = words[1];
  return {};
}

Failure PlaySignedOff(Play& play, const Words&) {
  play.stage.setup.signedOnAs.clear();
  return {};
}

std::optional<CivilTime> ParseClock(const std::string& text) {
  CivilTime time;
  int end = 0;
  const int read = std::sscanf(text.c_str(), "%2d-%2d-%4d %2d:%2d:%2d%n", &time.month, &time.day,
                               &time.year, &time.hour, &time.minute, &time.second, &end);
  if (read != 6 || static_cast<std::size_t>(end) != text.size()) return std::nullopt;
  const bool inRange = time.year >= 1980 && time.month >= 1 && time.month <= 12 && time.day >= 1 &&
                       time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 &&
                       time.second >= 0 && time.second < 60;
  // A day that its month doesn't have comes back as another one.
  if (!inRange || CivilFromMilliseconds(MillisecondsFromCivil(time)) != time) return std::nullopt;
  return time;
}

std::string CheckClock(const Words& words) {
  return ParseClock(words[1]) ? "" : "the time reads \"MM-DD-YYYY HH:MM:SS\", from 1980 on";
}

Failure PlayClock(Play& play, const Words& words) {
  play.stage.SetWallClock(*ParseClock(words[1]));
  return {};
}

Failure PlayTimeZone(Play& play, const Words& words) {
  play.stage.SetTimeZone(words[1]);
  return {};
}

constexpr std::pair<const char*, int> kWindows[] = {{"95", 1}, {"98", 1}, {"nt", 2}};

std::string CheckWindows(const Words& words) {
  for (const auto& [name, platform] : kWindows)
    if (words[1] == name) return {};
  return "it is 95, 98 or nt";
}

Failure PlayWindows(Play& play, const Words& words) {
  for (const auto& [name, platform] : kWindows)
    if (words[1] == name) play.stage.SetWindowsPlatform(platform);
  return {};
}

struct DisplaySize {
  int bits = 0, width = 0, height = 0;
};

std::optional<DisplaySize> ParseDisplay(const Words& words) {
  DisplaySize size;
  const std::string text = words[1] + " " + words[2];
  int end = 0;
  const int read =
      std::sscanf(text.c_str(), "%2d %5dx%5d%n", &size.bits, &size.width, &size.height, &end);
  const bool good = read == 3 && static_cast<std::size_t>(end) == text.size() && size.bits > 0 &&
                    size.width > 0 && size.height > 0;
  return good ? std::optional(size) : std::nullopt;
}

std::string CheckDisplay(const Words& words) {
  return ParseDisplay(words) ? "" : "it reads like 16 800x600";
}

Failure PlayDisplay(Play& play, const Words& words) {
  const auto size = *ParseDisplay(words);
  play.stage.SetDisplay(size.bits, size.width, size.height);
  return {};
}

std::string CheckRuntimeFile(const Words& words) {
  return Stage::IsRuntimeFile(words[1]) ? "" : "no runtime file is called so";
}

Failure PlayWithoutFile(Play& play, const Words& words) {
  play.stage.RemoveRuntimeFile(words[1]);
  return {};
}

// --- Files, settings, chance ---------------------------------------------------------------------

std::string CheckPath(const Words& words) {
  const std::string& path = words[1];
  const bool whole = path.size() > 3 && path[1] == ':' && path[2] == '\\';
  return whole ? "" : "a whole path is wanted, like C:\\Corvel\\favwavs.dat";
}

std::string CheckWave(const Words& words) {
  if (words.size() == 3 && ParseSeconds(words[2], 600) < 0) return "the seconds are 0 to 600";
  return CheckPath(words);
}

Failure PlayWave(Play& play, const Words& words) {
  play.stage.PutWave(words[1], words.size() == 3 ? ParseSeconds(words[2], 600) : 1);
  return {};
}

Failure PlayFile(Play& play, const Words& words) {
  play.stage.PutFile(words[1], words[2]);
  return {};
}

Failure PlaySetting(Play& play, const Words& words) {
  SettingsStore(play.stage.registry()).WriteKey(words[1], words[2], words[3]);
  return {};
}

std::string CheckRandom(const Words& words) {
  for (const std::string& word : words.From(1)) {
    const double number = ParseSeconds(word, 1);
    if (number < 0 || number >= 1) return "each number lies in [0, 1)";
  }
  return {};
}

Failure PlayRandom(Play& play, const Words& words) {
  std::vector<double> draws;
  for (const std::string& word : words.From(1)) draws.push_back(ParseSeconds(word, 1));
  play.stage.NextDraws(draws);
  return {};
}

std::string CheckDelay(const Words& words) {
  return ParseSeconds(words[1], 600) < 0 ? "the seconds are 0 to 600" : "";
}

Failure PlayClientDelay(Play& play, const Words& words) {
  play.stage.setup.delayMs =
      static_cast<std::uint32_t>(std::lround(ParseSeconds(words[1], 600) * 1000));
  play.stage.ChangeClient();
  if (!play.stage.ClientRuns()) return {};
  return play.Await(play.stage.DoInClient(words.All(), std::make_shared<practice::Reply>()),
                    "slow the client down");
}

// --- Faults --------------------------------------------------------------------------------------

std::string CheckFailFile(const Words& words) {
  const bool numbers = ParseSeconds(words[1], 1e6) >= 1 && ParseSeconds(words[2], 1000) >= 1;
  return numbers ? "" : "it reads: fail-file CALL ERROR [\"PART OF PATH\"]";
}

Failure PlayFailFile(Play& play, const Words& words) {
  play.stage.FailFile(IntVal(words[1]), IntVal(words[2]), words.size() == 4 ? words[3] : "");
  return {};
}

std::string CheckFreeSpace(const Words& words) {
  return ParseSeconds(words[1], 1e15) < 0 ? "a number of bytes is wanted" : "";
}

Failure PlayFreeSpace(Play& play, const Words& words) {
  play.stage.SetFreeSpace(static_cast<std::int64_t>(ParseSeconds(words[1], 1e15)));
  return {};
}

std::string CheckOnOff(const Words& words, std::size_t at) {
  return words.IsBare(at, "on") || words.IsBare(at, "off") ? "" : "it is on or off";
}

std::string CheckLock(const Words& words) {
  const std::string error = CheckPath(words);
  return error.empty() ? CheckOnOff(words, 2) : error;
}

Failure PlayLock(Play& play, const Words& words) {
  play.stage.LockFile(words[1], words[2] == "on");
  return {};
}

std::string CheckSwitch(const Words& words) { return CheckOnOff(words, 1); }

Failure PlayTaskbar(Play& play, const Words& words) {
  play.stage.SetTaskbar(words[1] == "on");
  return {};
}

// --- The run -------------------------------------------------------------------------------------

Failure PlayStart(Play& play, const Words& words) {
  return play.Await(play.stage.Start(words.size() > 1 ? words[1] : ""), "start");
}

std::string CheckWait(const Words& words) {
  return ParseSeconds(words[1], kLongest) < 0 ? "a number of seconds is wanted" : "";
}

Failure PlayWait(Play& play, const Words& words) {
  play.SleepFor(std::llround(ParseSeconds(words[1], kLongest) * 1000));
  return {};
}

constexpr Command kSceneCommands[] = {
    {"only", "desk|windows \"REASON\"", 2, 2, When::kScene, PlayOnly, CheckOnly},
    {"client", "VERSION LOCALE [not-running]", 2, 3, When::kScene, PlayClient, CheckClient},
    {"names", "NAME...", 1, 7, When::kScene, PlayNames},
    {"signed-on", "NAME", 1, 1, When::kScene, PlaySignedOn},
    {"signed-off", "", 0, 0, When::kScene, PlaySignedOff},
    {"clock", "\"MM-DD-YYYY HH:MM:SS\"", 1, 1, When::kScene, PlayClock, CheckClock},
    {"timezone", "\"NAME\"", 1, 1, When::kScene, PlayTimeZone},
    {"windows", "95|98|nt", 1, 1, When::kScene, PlayWindows, CheckWindows},
    {"display", "BITS WIDTHxHEIGHT", 2, 2, When::kScene, PlayDisplay, CheckDisplay},
    {"without-file", "NAME", 1, 1, When::kScene, PlayWithoutFile, CheckRuntimeFile},
    {"wav", "PATH [SECONDS]", 1, 2, When::kAnyTime, PlayWave, CheckWave},
    {"file", "PATH \"CONTENT\"", 2, 2, When::kAnyTime, PlayFile, CheckPath},
    {"setting", "\"SECTION\" \"NAME\" \"VALUE\"", 3, 3, When::kAnyTime, PlaySetting},
    {"random", "NUMBER...", 1, kAnyNumber, When::kAnyTime, PlayRandom, CheckRandom},
    {"client-delay", "SECONDS", 1, 1, When::kAnyTime, PlayClientDelay, CheckDelay},
    {"taskbar", "on|off", 1, 1, When::kAnyTime, PlayTaskbar, CheckSwitch},
    {"fail-file", "CALL ERROR [\"PART OF PATH\"]", 2, 3, When::kAnyTime, PlayFailFile,
     CheckFailFile},
    {"free-space", "BYTES", 1, 1, When::kAnyTime, PlayFreeSpace, CheckFreeSpace},
    {"lock", "PATH on|off", 2, 2, When::kAnyTime, PlayLock, CheckLock},
    {"start", "[\"COMMAND LINE\"]", 0, 1, When::kRun, PlayStart},
    {"wait", "SECONDS", 1, 1, When::kRun, PlayWait, CheckWait},
};

}  // namespace

std::span<const Command> SceneCommands() { return kSceneCommands; }

}  // namespace corvel::tools
