// The play of a scenario's commands; see play.h.
#include "tools/play.h"

#include <algorithm>

namespace corvel::tools {

void Play::SleepFor(std::int64_t milliseconds) { wakeAt_ = stage.NowMs() + milliseconds; }

Failure Play::Await(const Deed& deed, const std::string& what) {
  if (!deed.refusal.empty()) return "expected to " + what + ", got " + deed.refusal;
  if (deed.over) awaited_.push_back(deed.over);
  return {};
}

bool Play::IsSettled() {
  if (stage.NowMs() < wakeAt_ || stage.HandIsBusy()) return false;
  // A dialog that has its answer is still to be taken down by the program.
  const auto& prompts = stage.Prompts();
  if (std::any_of(prompts.begin(), prompts.end(), [](const auto& p) { return p->answered; }))
    return false;
  std::erase_if(awaited_, [](const auto& over) { return over(); });
  return awaited_.empty() || stage.ProgramWaitsForUser();
}

Failure Play::RunStep() {
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  return step();
}

}  // namespace corvel::tools
