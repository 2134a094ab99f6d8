// What must hold at every step of a soak; see soak_checks.h.
#include "tools/desk/soak_checks.h"

#include "base/text.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tools/scenario_file.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace corvel::tools {
namespace {

constexpr std::int64_t kLongestWaitMs = 10 * 60 * 1000;

// These waits have no limit: they are for a window of the client that its user can close first.
constexpr std::string_view kUnlimited[] = {"StartAOL", "AOLCursor", "AOLGetProfile", "IsAOLOnline"};

bool HasLimit(std::string_view wait) {
  return std::find(std::begin(kUnlimited), std::end(kUnlimited), wait) == std::end(kUnlimited);
}

bool EveryLineHas(std::string_view bytes, char mark) {
  const auto lines = Lines(bytes);
  return std::all_of(lines.begin(), lines.end(), [mark](std::string_view line) {
    return line.find(mark) != std::string_view::npos || line == "[Data]" || line.empty();
  });
}

// A data file that the program rewrites must at any time be a whole version of it.
struct DataFile {
  const char* path;
  char mark;  // that every row has
};
constexpr DataFile kDataFiles[] = {{"C:\\Corvel\\favwavs.dat", '\t'},
                                   {"C:\\Corvel\\data\\desc1.dat", '='},
                                   {"C:\\Corvel\\data\\desc2.dat", '='}};

// The user's Yes to these, or a name typed there, moves or deletes one wave file.
constexpr const char* kVanishWords[] = {"Windows Recycle Bin?", "rename the selected wav to"};

}  // namespace

void SoakChecks::Hear(const desk::JournalEntry& entry) {
  const bool isQuestion = entry.kind == "message" || entry.kind == "input-box";
  if (isQuestion)
    asked_ += std::any_of(std::begin(kVanishWords), std::end(kVanishWords), [&](const char* words) {
      return entry.words[0].find(words) != std::string::npos;
    });
  // The first button tried may be one that the box doesn't have; then another follows, perhaps
  // behind the answers to other boxes that have come in front of it.
  const std::string answer = isQuestion || entry.kind == "answer" ? entry.words.back() : "Cancel";
  if (asked_ > 0 && answer != "No" && answer != "Cancel") {
    --asked_;
    ++mayVanish_;
  }
  // The box of the move can be left by its button or by Enter.
  for (const std::string& word : entry.words)
    if (entry.kind == "user" && word.starts_with("frmSendTo.")) ++mayVanish_;
}

std::string SoakChecks::CheckProgress() {
  const auto& pumps = stage_.desk().Pumps();
  const std::int64_t now = stage_.desk().NowMs();
  const bool mayLast = pumps.empty() || pumps.back().wait.whom == WaitFor::kUser ||
                       !HasLimit(pumps.back().wait.name);
  if (mayLast || pumps.size() != waitDepth_ || pumps.back().wait.name != waitName_) {
    waitDepth_ = pumps.size();
    waitName_ = pumps.empty() ? "" : pumps.back().wait.name;
    waitSince_ = now;
  }
  if (now - waitSince_ <= kLongestWaitMs) return {};
  return "the wait " + waitName_ + " has lasted for ten minutes";
}

std::string SoakChecks::Check() {
  for (const auto check :
       {&SoakChecks::CheckHooks, &SoakChecks::CheckClient, &SoakChecks::CheckWaves,
        &SoakChecks::CheckDataFiles, &SoakChecks::CheckLeftOpen}) {
    std::string failure = (this->*check)();
    if (!failure.empty()) return failure;
  }
  return {};
}

std::string SoakChecks::CheckHooks() {
  desk::DeskWindows& windows = stage_.desk().windows();
  const auto hooked = windows.HookedWindows();
  if (!hooked.empty() && stage_.Program() == 0) return "a window is hooked by nobody";
  const bool allThere =
      std::all_of(hooked.begin(), hooked.end(), [&](Window w) { return windows.Exists(w); });
  return allThere ? "" : "a window that has gone is still hooked";
}

// Start-up keeps the client disabled until it has ended; after that a user who is asked for
// something must be able to go to the client first.
std::string SoakChecks::CheckClient() {
  desk::Desk& desk = stage_.desk();
  const ProcessId program = stage_.Program();
  practice::PracticeClient* const client = stage_.Client();
  if (!client || !stage_.HasStarted(program)) return {};
  const auto& pumps = desk.Pumps();
  const bool idle = std::none_of(pumps.begin(), pumps.end(),
                                 [&](const auto& pump) { return pump.process == program; });
  const bool waits = idle || desk.WaitsForUser(program);
  desk::DeskWindows& windows = desk.windows();
  // The client's own modal windows lock it too.
  const bool usable = windows.IsEnabled(client->Frame()) || !windows.Exists(client->Frame()) ||
                      windows.Find("_AOL_MODAL", std::nullopt);
  return waits && !usable ? "the program waits for its user, and the client is disabled" : "";
}

std::string SoakChecks::CheckWaves() {
  std::set<std::string> now;
  for (const std::string& path : stage_.desk().files().AllPaths())
    if (Lower(path).ends_with(".wav")) now.insert(Lower(path));
  std::string lost;
  for (const std::string& path : waves_)
    if (!now.contains(path) && --mayVanish_ < 0) lost = path;
  waves_ = std::move(now);
  return lost.empty() ? "" : lost + " has gone, and the user did not say so";
}

std::string SoakChecks::CheckDataFiles() {
  for (const DataFile& file : kDataFiles) {
    const auto bytes = stage_.desk().files().Peek(file.path);
    if (!bytes || bytes->empty()) continue;
    if (!bytes->ends_with("\r\n") || !EveryLineHas(*bytes, file.mark))
      return std::string(file.path) + " is no whole version: " + Quoted(*bytes);
  }
  const auto start = stage_.desk().files().Peek("C:\\AUTOEXEC.BAT");
  if (!start || !start->starts_with(kAutoexec)) return "AUTOEXEC.BAT has lost its lines";
  return {};
}

std::string SoakChecks::CheckLeftOpen() {
  if (stage_.Program() != 0) return {};
  const auto left = stage_.desk().LeftOpen(0);
  return left.empty() ? "" : "left open: " + left.front();
}

}  // namespace corvel::tools
