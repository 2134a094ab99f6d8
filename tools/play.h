// The play: what the commands of a scenario work on, and when one of them is settled.
//
// A command starts something (a task of a process, a wait) and comes back at once; the program goes
// on under the clock of its home. The next command comes when all of that is over, or the program
// waits for its user.
#pragma once

#include "tools/answers.h"
#include "tools/expectations.h"
#include "tools/user.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace corvel::tools {

class Play {
 public:
  explicit Play(Stage& home) : stage(home) {}

  Stage& stage;
  User user{stage};
  Answers answers{stage, user};
  Expectations expectations{stage, user, answers};

  // --- For commands ----------------------------------------------------------------------------
  void SleepFor(std::int64_t milliseconds);
  // A further step, once what was started before it is settled.
  using Step = std::function<Failure()>;
  void Then(Step step) { steps_.push_back(std::move(step)); }
  // The command isn't settled before this is over; or says why it can't be done.
  Failure Await(const Deed& deed, const std::string& what);

  // --- For whoever runs the commands -----------------------------------------------------------
  bool IsSettled();
  bool HasSteps() const { return !steps_.empty(); }
  Failure RunStep();
  void DropSteps() { steps_.clear(); }
  std::int64_t WakeAt() const { return wakeAt_; }

 private:
  std::vector<std::function<bool()>> awaited_;
  std::deque<Step> steps_;
  std::int64_t wakeAt_ = 0;
};

}  // namespace corvel::tools
