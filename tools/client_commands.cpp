// The commands for the client: its user, the service and the people in it. The practice client
// knows what they do; here stands how they read.
#include "tools/scenario_commands.h"

#include <cmath>
#include <memory>

namespace corvel::tools {
namespace {

Failure PlayInClient(Play& play, const Words& words) {
  const std::string what = "do " + words[0];
  const auto reply = std::make_shared<practice::Reply>();
  return play.Await(play.stage.DoInClient(words.All(), reply), what,
                    [reply] { return reply->error; });
}

// --- Its deaths ----------------------------------------------------------------------------------

constexpr double kLongestHang = 60;

std::int64_t Milliseconds(const std::string& seconds) {
  return std::llround(ParseSeconds(seconds, kLongestHang) * 1000);
}

bool IsHangTime(const Words& words, std::size_t at) {
  return at >= words.size() || ParseSeconds(words[at], kLongestHang) >= 0;
}

std::string CheckHang(const Words& words) {
  const bool isSwitch = words.IsBare(1, "on") || words.IsBare(1, "off");
  if (isSwitch && words.size() == 2) return {};
  return !isSwitch && IsHangTime(words, 1) && IsHangTime(words, 2)
             ? ""
             : "it is on, off, or a number of seconds (0 to 60) and after how many";
}

Failure PlayHang(Play& play, const Words& words) {
  if (words[1] == "off") {
    play.stage.ReleaseClient();
    return {};
  }
  Stage::Hang hang;
  if (words[1] != "on") hang.forMs = Milliseconds(words[1]);
  if (words.size() > 2) hang.afterMs = Milliseconds(words[2]);
  return play.Await(play.stage.HangClient(hang), "let the client hang");
}

std::string CheckCrash(const Words& words) {
  return IsHangTime(words, 1) ? "" : "a number of seconds is wanted (0 to 60)";
}

Failure PlayCrash(Play& play, const Words& words) {
  if (!play.stage.ClientRuns()) return "expected to crash the client, got it is not running";
  if (words.size() == 1) {
    play.stage.CrashClient();
    return {};
  }
  return play.Await(play.stage.HangClient({.forMs = Milliseconds(words[1]), .thenCrashes = true}),
                    "crash the client");
}

// --- Its user's keys and the people --------------------------------------------------------------

constexpr const char* kClientKeys[] = {"enter",  "tab", "backspace", "escape",
                                       "delete", "up",  "down"};

std::string CheckKeyAt(const Words& words, std::size_t at) {
  std::string_view name = words[at];
  const bool control = TakeControl(name);
  for (const char* key : kClientKeys)
    if (name == key) return {};
  if (control && name.size() == 1 && name[0] >= 'a' && name[0] <= 'z') return {};
  return "the keys are enter, tab, backspace, escape, delete, up and down, each also with ctrl+, "
         "and ctrl+ with a letter";
}

std::string CheckKey(const Words& words) { return CheckKeyAt(words, 1); }
std::string CheckImKey(const Words& words) { return CheckKeyAt(words, 2); }

std::string CheckTries(const Words& words) {
  return ParseSeconds(words[2], 1e6) < 0 ? "a number of tries is wanted" : "";
}

std::string CheckMember(const Words& words) {
  for (const char* state : {"offline", "online", "private", "no-ims", "unknown"})
    if (words.IsBare(2, state) && words.size() == 3) return {};
  for (const char* state : {"room", "conference"})
    if (words.IsBare(2, state) && words.size() == 4) return {};
  return "the state is offline, online, private, no-ims, unknown, "
         "room \"NAME\" or conference \"NAME\"";
}

constexpr Command kClientCommands[] = {
    {"client-close", "", 0, 0, When::kRun, PlayInClient},
    {"client-crash", "[SECONDS]", 0, 1, When::kRun, PlayCrash, CheckCrash},
    {"client-hung", "on|off|SECONDS [AFTER]", 1, 2, When::kRun, PlayHang, CheckHang},
    {"sign-on", "NAME", 1, 1, When::kRun, PlayInClient},
    {"sign-off", "", 0, 0, When::kRun, PlayInClient},
    {"room", "\"NAME\" PERSON...", 1, kAnyNumber, When::kRun, PlayInClient},
    {"leave-room", "", 0, 0, When::kRun, PlayInClient},
    {"say", "PERSON \"TEXT\"", 2, 2, When::kRun, PlayInClient},
    {"enter", "PERSON", 1, 1, When::kRun, PlayInClient},
    {"leave", "PERSON", 1, 1, When::kRun, PlayInClient},
    {"type", "\"TEXT\"", 1, 1, When::kRun, PlayInClient},
    {"key", "KEY", 1, 1, When::kRun, PlayInClient, CheckKey},
    {"send-icon", "", 0, 0, When::kRun, PlayInClient},
    {"right-click", "PERSON", 1, 1, When::kRun, PlayInClient},
    {"im", "PERSON \"TEXT\"", 2, 2, When::kRun, PlayInClient},
    {"im-internet", "PERSON \"TEXT\"", 2, 2, When::kRun, PlayInClient},
    {"im-type", "PERSON \"TEXT\"", 2, 2, When::kRun, PlayInClient},
    {"im-key", "PERSON KEY", 2, 2, When::kRun, PlayInClient, CheckImKey},
    {"im-close", "PERSON", 1, 1, When::kRun, PlayInClient},
    {"im-to", "PERSON \"TEXT\"", 2, 2, When::kRun, PlayInClient},
    {"write-mail", "", 0, 0, When::kRun, PlayInClient},
    {"read-mail", "\"TITLE\" \"BODY\"", 2, 2, When::kRun, PlayInClient},
    {"mail-select", "\"TEXT\"", 1, 1, When::kRun, PlayInClient},
    {"mail-close", "", 0, 0, When::kRun, PlayInClient},
    {"close-window", "\"CAPTION\"", 1, 1, When::kRun, PlayInClient},
    {"keyword", "\"TARGET\"", 1, 1, When::kRun, PlayInClient},
    {"client-menu", "\"CAPTION\"", 1, 1, When::kRun, PlayInClient},
    {"refuse-next-line", "", 0, 0, When::kRun, PlayInClient},
    {"room-full", "\"NAME\" TRIES", 2, 2, When::kRun, PlayInClient, CheckTries},
    {"member", "NAME STATE", 2, 3, When::kRun, PlayInClient, CheckMember},
    {"invite", "PERSON", 1, 1, When::kRun, PlayInClient},
    {"upload", "on|off", 1, 1, When::kRun, PlayInClient},
    {"hourglass", "on", 1, 1, When::kRun, PlayInClient},
};

}  // namespace

std::span<const Command> ClientCommands() { return kClientCommands; }

}  // namespace corvel::tools
