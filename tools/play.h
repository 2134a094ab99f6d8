// The play: what the commands of a scenario work on, and when one of them is settled.
//
// A command starts something (a task of a process, a wait) and comes back at once; the program goes
// on under the clock of its home. The next command comes when all of that is over, or the program
// waits for its user. What a command only begins, and what is to be played later, goes on beside
// the commands that follow.
#pragma once

#include "tools/answers.h"
#include "tools/expectations.h"
#include "tools/user.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
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
  // The command isn't settled before this is over; or says why it can't be done. `outcome` is asked
  // when it is over: why it was not done after all, "" if it was.
  using Outcome = std::function<std::string()>;
  Failure Await(const Deed& deed, const std::string& what, Outcome outcome = {});
  // The command under way is settled when its last step has been run: what that has started is not
  // waited for.
  void OnlyBegin() { onlyBegins_ = true; }
  // Plays a command so much later, whatever is under way then.
  void PlayLater(std::int64_t milliseconds, Step command);

  // --- For whoever runs the commands -----------------------------------------------------------
  bool IsSettled();
  bool HasSteps() const { return !steps_.empty(); }
  Failure RunStep();
  void DropSteps();
  std::int64_t WakeAt() const { return wakeAt_; }
  // Plays the first command that is due, if any. True: it did.
  bool RunDue();
  std::optional<std::int64_t> NextDueAt() const;
  // From now on everything is waited for that has only been begun or is still to be played. True:
  // there was something.
  bool WaitForAll();
  // Told once: what has gone wrong beside the command under way, and the line that it belongs to.
  struct Late {
    Failure failure;
    int line = 0;
  };
  std::optional<Late> TakeLate();

 private:
  struct Awaited {
    std::function<bool()> over;
    std::string what;
    Outcome outcome;
    int line;
  };
  struct Due {
    std::int64_t at;
    Step command;
    int line;
  };
  void DropOver(std::vector<Awaited>& list);
  void LetGo();

  std::vector<Awaited> awaited_, begun_;
  std::deque<Step> steps_;
  std::vector<Due> due_;  // by time
  std::deque<Late> late_;
  std::int64_t wakeAt_ = 0;
  bool onlyBegins_ = false;
};

}  // namespace corvel::tools
