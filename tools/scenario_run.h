// One run of a scenario on a fresh stage.
#pragma once

#include "tools/play.h"
#include "tools/scenario_commands.h"
#include "tools/scenario_file.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvel::tools {

// Where the commands come from, and who is told what goes wrong.
class ScenarioSource {
 public:
  virtual ~ScenarioSource() = default;
  // The next command, which CheckCommand has found good; nothing at the end. May block.
  virtual std::optional<ScenarioLine> Next() = 0;
  // Something was not as expected. True: go on with the next command.
  virtual bool Fail(int line, const Failure& failure) = 0;
};

class ScenarioRun : public Actor {
 public:
  ScenarioRun(ScenarioSource& source, Stage& stage) : source_(source), stage_(stage) {}

  // Plays until the source has no more commands or wants no more; ends all processes.
  void Run() { stage_.Run(*this); }

  bool Act() override;
  std::optional<std::int64_t> NextActAt() override;
  bool IsOver() override { return over_; }

 private:
  void ActNow();
  std::optional<ScenarioLine> NextLine();
  void Begin(const ScenarioLine& line);
  bool MakeReady(const Command& command);
  void CheckStuck();
  void Report(const Failure& failure, int line);
  void Finish();
  void End();

  ScenarioSource& source_;
  Stage& stage_;
  Play play_{stage_};
  std::optional<ScenarioLine> held_;  // a command that waits until the stage is ready for it
  int line_ = 0;
  std::int64_t begunAt_ = 0;
  bool acting_ = false, over_ = false;
  bool atEnd_ = false;  // the source has no more commands
  bool idle_ = false;   // the last Act had nothing to do
};

}  // namespace corvel::tools
