// The commands for the client: its user, the service and the people in it. The practice client
// knows what they do; here stands how they read.
#include "tools/scenario_commands.h"

#include <memory>

namespace corvel::tools {
namespace {

Failure PlayInClient(Play& play, const Words& words) {
  const std::string what = "do " + words[0];
  const auto reply = std::make_shared<practice::Reply>();
  play.Then([&play, reply, what] { return play.Await({.refusal = reply->error}, what); });
  return play.Await(play.stage.DoInClient(words.All(), reply), what);
}

Failure PlayCrash(Play& play, const Words&) {
  if (!play.stage.ClientRuns()) return "expected to crash the client, got it is not running";
  play.stage.CrashClient();
  return {};
}

constexpr const char* kClientKeys[] = {"enter",  "ctrl+enter", "tab", "backspace",
                                       "escape", "delete",     "up",  "down"};

std::string CheckKeyAt(const Words& words, std::size_t at) {
  for (const char* key : kClientKeys)
    if (words[at] == key) return {};
  return "the keys are enter, ctrl+enter, tab, backspace, escape, delete, up and down";
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
    {"client-crash", "", 0, 0, When::kRun, PlayCrash},
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
