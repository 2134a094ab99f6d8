// Scenarios by hand; see interactive.h.
#include "tools/desk/interactive.h"

#include "base/cp1252.h"
#include "tools/desk/desk_stage.h"
#include "tools/scenario_commands.h"
#include "tools/scenario_player.h"
#include "tools/scenario_run.h"
#include "tools/trace.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <string>

namespace corvel::tools {
namespace {

constexpr const char* kGreeting =
    "Corvel 32 on the desk: a client, the program, and you as their user, in virtual time.\n"
    "Try:  start   menu mnuWavs \"Wav List\"   room \"Lobby\" Ann Bob   wait 1   type \"hi\"   "
    "key enter\n"
    "`help` lists the commands, `quit` ends.\n";

class HandSource : public ScenarioSource {
 public:
  HandSource(std::istream& in, std::ostream& out, bool forPerson)
      : in_(in), out_(out), forPerson_(forPerson) {}

  std::optional<ScenarioLine> Next() override {
    std::string text;
    while (Ask(text)) {
      ++line_;
      std::string error;
      Words words = ParseScenarioLine(text, {}, error);
      if (error.empty() && words.IsBare(0, "quit")) return std::nullopt;
      if (error.empty() && words.IsBare(0, "help")) {
        out_ << CommandHelp();
        continue;
      }
      if (error.empty() && !words.empty()) error = CheckCommand(words);
      if (!error.empty()) Complain(line_, error, kUnreadable);
      if (error.empty() && !words.empty()) return Begin(std::move(words));
    }
    return std::nullopt;
  }

  bool Fail(int line, const Failure& failure) override {
    Complain(line, failure, kFailed);
    if (line == line_) told_.clear();
    return true;
  }

  int exitCode = kHeld;

 private:
  bool Ask(std::string& text) {
    if (!told_.empty()) out_ << told_;
    told_.clear();
    if (forPerson_) out_ << "> ";
    out_.flush();
    if (!std::getline(in_, text)) return false;
    if (text.ends_with('\r')) text.pop_back();
    return true;
  }
  void Complain(int line, const std::string& why, int code) {
    out_ << "line " << line << ": " << why << '\n';
    exitCode = std::max(exitCode, code);
  }
  ScenarioLine Begin(Words words) {
    told_ = words.IsBare(0, "expect") ? "        holds\n" : "        ok\n";
    return {line_, std::move(words), {}};
  }

  std::istream& in_;
  std::ostream& out_;
  const bool forPerson_;
  int line_ = 0;
  std::string told_;  // when the command under way is settled and nothing went wrong
};

}  // namespace

int PlayByHand(std::istream& in, std::ostream& out, bool forPerson, std::uint64_t seed) {
  out << kGreeting;
  HandSource source(in, out, forPerson);
  DeskStage stage(seed);
  ScenarioRun run(source, stage);
  stage.journal().Listen(
      [&out](const desk::JournalEntry& entry) { out << TraceLine(entry) << '\n'; });
  run.Run();
  return source.exitCode;
}

}  // namespace corvel::tools
