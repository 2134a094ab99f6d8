// One run of a scenario; see scenario_run.h.
#include "tools/scenario_run.h"

#include <algorithm>
#include <utility>

namespace corvel::tools {
namespace {

// A command may ask the client, and the client may let events happen: no command begins inside.
class ActingScope {
 public:
  explicit ActingScope(bool& acting) : acting_(acting) { acting_ = true; }
  ~ActingScope() { acting_ = false; }
  ActingScope(const ActingScope&) = delete;

 private:
  bool& acting_;
};

}  // namespace

bool ScenarioRun::Act() {
  if (over_ || acting_) return false;
  const ActingScope scope(acting_);
  idle_ = false;
  ActNow();
  return !idle_;
}

std::optional<std::int64_t> ScenarioRun::NextActAt() {
  if (over_) return std::nullopt;
  const std::int64_t wake = play_.WakeAt();
  const std::int64_t own = wake > stage_.NowMs() ? wake : begunAt_ + stage_.StuckAfterMs() + 1;
  return std::min(own, play_.NextDueAt().value_or(own));
}

void ScenarioRun::ActNow() {
  if (const std::string why = stage_.TakeHandFailure(); !why.empty()) {
    Report("expected to do it by hand, got " + why, line_);
  } else if (play_.RunDue()) {
    return;
  } else if (play_.answers.Act()) {
    Report(play_.answers.TakeFailure(), line_);
  } else if (const bool settled = play_.IsSettled(); const auto late = play_.TakeLate()) {
    Report(late->failure, late->line);
  } else if (!settled) {
    idle_ = true;
    CheckStuck();
  } else if (play_.HasSteps()) {
    begunAt_ = stage_.NowMs();
    Report(play_.RunStep(), line_);
  } else if (auto line = NextLine()) {
    Begin(*line);
  } else if (play_.WaitForAll()) {
    begunAt_ = stage_.NowMs();
  } else {
    Finish();
  }
}

std::optional<ScenarioLine> ScenarioRun::NextLine() {
  if (held_) return std::exchange(held_, std::nullopt);
  auto line = atEnd_ ? std::nullopt : source_.Next();
  atEnd_ = !line;
  return line;
}

void ScenarioRun::Begin(const ScenarioLine& line) {
  line_ = play_.answers.line = line.number;
  begunAt_ = stage_.NowMs();
  const Command& command = *FindCommand(line.words[0]);
  if (!MakeReady(*CommandGiven(line.words)))
    held_ = line;
  else if (command.when == When::kScene && stage_.HasClient())
    Report("expected " + line.words[0] + " before the start, got it behind", line_);
  else
    Report(command.play(play_, line.words), line_);
}

// False: the command has to wait for what has been set going here.
bool ScenarioRun::MakeReady(const Command& command) {
  if (command.when == When::kRun && !stage_.HasClient()) {
    stage_.PutClient();
    play_.SleepFor(stage_.StandMs());
    return false;
  }
  if (command.keepsPopup || !play_.user.OpenPopup()) return true;
  play_.user.DismissPopup();
  return false;
}

void ScenarioRun::CheckStuck() {
  const std::int64_t now = stage_.NowMs();
  if (now < play_.WakeAt() || now - begunAt_ <= stage_.StuckAfterMs()) return;
  const std::string wait = stage_.InnermostWait();
  const std::string where = wait.empty() ? "no wait of the program" : "the wait " + wait;
  source_.Fail(line_, "stuck in " + where);
  End();
}

void ScenarioRun::Report(const Failure& failure, int line) {
  if (failure.empty()) return;
  if (line == line_) play_.DropSteps();
  if (!source_.Fail(line, failure)) End();
}

void ScenarioRun::Finish() {
  const auto verdict = play_.expectations.AtEnd();
  if (!verdict.failure.empty())
    source_.Fail(verdict.line != 0 ? verdict.line : line_, verdict.failure);
  End();
}

// Calls that still stand on the stack unwind when they come back to a wait. What the end of the
// processes brings about is no effect of the scenario's.
void ScenarioRun::End() {
  over_ = true;
  stage_.journal().Listen(nullptr);
  stage_.EndAll();
}

}  // namespace corvel::tools
