// The play of a scenario's commands; see play.h.
#include "tools/play.h"

#include <algorithm>

namespace corvel::tools {

Play::Play(std::uint64_t seed) : stage(seed) {}

void Play::Await(desk::TaskId task) {
  Await([this, task] { return !stage.desk().IsPending(task); });
}

void Play::Await(std::function<bool()> over) { awaited_.push_back(std::move(over)); }

void Play::SleepFor(std::int64_t milliseconds) { wakeAt_ = stage.desk().NowMs() + milliseconds; }

Failure Play::Did(const desk::DeskPeers::Done& done, const std::string& what) {
  if (!done.refusal.empty()) return "expected to " + what + ", got " + done.refusal;
  Await(done.task);
  return {};
}

bool Play::IsSettled() {
  if (stage.desk().NowMs() < wakeAt_) return false;
  // A dialog that has its answer is still to be taken down by the program.
  const auto& prompts = stage.desk().Prompts();
  if (std::any_of(prompts.begin(), prompts.end(), [](const auto& p) { return p->answered; }))
    return false;
  std::erase_if(awaited_, [](const auto& over) { return over(); });
  return awaited_.empty() || stage.AnyProgramWaitsForUser();
}

Failure Play::RunStep() {
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  return step();
}

}  // namespace corvel::tools
