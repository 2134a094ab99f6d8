// The play of a scenario's commands; see play.h.
#include "tools/play.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvel::tools {
namespace {

Failure NotDone(const std::string& what, const std::string& why) {
  return "expected to " + what + ", got " + why;
}

}  // namespace

void Play::SleepFor(std::int64_t milliseconds) { wakeAt_ = stage.NowMs() + milliseconds; }

Failure Play::Await(const Deed& deed, const std::string& what, Outcome outcome) {
  if (!deed.refusal.empty()) return NotDone(what, deed.refusal);
  if (deed.over) awaited_.push_back({deed.over, what, std::move(outcome), answers.line});
  return {};
}

void Play::PlayLater(std::int64_t milliseconds, Step command) {
  const std::int64_t at = stage.NowMs() + milliseconds;
  const auto behind =
      std::find_if(due_.begin(), due_.end(), [at](const Due& one) { return one.at > at; });
  due_.insert(behind, {at, std::move(command), answers.line});
}

// To ask whether something is over may be what sets it going: in the order in which it was given.
void Play::DropOver(std::vector<Awaited>& list) {
  for (std::size_t i = 0; i < list.size();) {
    if (!list[i].over()) {
      ++i;
      continue;
    }
    const Awaited one = std::move(list[i]);
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
    const std::string why = one.outcome ? one.outcome() : "";
    if (!why.empty()) late_.push_back({NotDone(one.what, why), one.line});
  }
}

// What earlier commands have started, and the program's user holds up, stays as it is.
void Play::LetGo() {
  onlyBegins_ = false;
  const auto mine =
      std::stable_partition(awaited_.begin(), awaited_.end(),
                            [this](const auto& one) { return one.line != answers.line; });
  std::move(mine, awaited_.end(), std::back_inserter(begun_));
  awaited_.erase(mine, awaited_.end());
}

bool Play::IsSettled() {
  if (onlyBegins_ && steps_.empty()) LetGo();
  DropOver(begun_);
  DropOver(awaited_);
  if (stage.NowMs() < wakeAt_ || stage.HandIsBusy()) return false;
  // A dialog that has its answer is still to be taken down by the program.
  const auto& prompts = stage.Prompts();
  if (std::any_of(prompts.begin(), prompts.end(), [](const auto& p) { return p->answered; }))
    return false;
  return awaited_.empty() || stage.ProgramWaitsForUser();
}

Failure Play::RunStep() {
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  return step();
}

void Play::DropSteps() {
  steps_.clear();
  onlyBegins_ = false;
}

bool Play::RunDue() {
  if (due_.empty() || due_.front().at > stage.NowMs()) return false;
  const Due due = std::move(due_.front());
  due_.erase(due_.begin());
  // What it starts is nothing that the command under way would wait for.
  auto awaited = std::exchange(awaited_, {});
  const int line = std::exchange(answers.line, due.line);
  if (Failure failure = due.command(); !failure.empty())
    late_.push_back({std::move(failure), due.line});
  answers.line = line;
  std::swap(awaited, awaited_);
  std::move(awaited.begin(), awaited.end(), std::back_inserter(begun_));
  return true;
}

std::optional<std::int64_t> Play::NextDueAt() const {
  return due_.empty() ? std::nullopt : std::optional(due_.front().at);
}

bool Play::WaitForAll() {
  if (due_.empty() && begun_.empty()) return false;
  if (!due_.empty()) wakeAt_ = std::max(wakeAt_, due_.back().at);
  std::move(begun_.begin(), begun_.end(), std::back_inserter(awaited_));
  begun_.clear();
  return true;
}

std::optional<Play::Late> Play::TakeLate() {
  if (late_.empty()) return std::nullopt;
  Late late = std::move(late_.front());
  late_.pop_front();
  return late;
}

}  // namespace corvel::tools
