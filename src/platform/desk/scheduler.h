// What happens when: the queue of posted things, tasks for later, timers, and the clock.
//
// A round runs what is due at this instant: first what was queued when the round began, in order of
// posting, then the timers that are due, earliest first. A thing that comes up meanwhile waits for
// the next round, so that a round always ends. With nothing due the agent may act; if it does not,
// the clock moves.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/desk_clock.h"
#include "platform/desk/process_table.h"
#include "platform/event_loop.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <unordered_set>
#include <vector>

namespace corvel::desk {

// Takes a message to its window; asked by the scheduler, answered by the windows.
class MessageTaker {
 public:
  virtual ~MessageTaker() = default;
  virtual void Deliver(Window window, const Message& message) = 0;
  virtual Process* OwnerOf(Window window) = 0;  // nullptr for a dead window
  virtual Window Focused() = 0;
};

class Scheduler : public EventLoop {
 public:
  Scheduler(ProcessTable& processes, DeskClock& clock, MessageTaker& windows);

  void Pump(const Wait& wait) override;
  void StartTimer(Window window, std::uintptr_t id, std::uint32_t milliseconds) override;
  void StopTimer(Window window, std::uintptr_t id) override;

  void Post(Process& receiver, Window window, MessageId id, WParam wParam, LParam lParam);
  // A key going down or up, for whatever window has the focus when it is taken out of the queue.
  // The character that it types, if any, follows at once to the same window.
  void PostKey(MessageId id, int virtualKey, WParam character = 0);
  TaskId PostTask(Process& process, std::function<void()> task);
  void After(Process& process, std::int64_t ms, std::function<void()> task);
  bool IsPending(TaskId task) const { return pending_.count(task) != 0; }

  void SetAgent(Agent* agent) { agent_ = agent; }
  void Round(std::int64_t limit);
  void RunFor(std::int64_t ms);
  void RunDue();
  // For a process that is held up: time passes, and of all that is due only the world's own tasks
  // for later happen. Until the first of these has run, or the limit.
  void LetWorldGoOn(std::int64_t limit);
  const std::vector<Desk::PumpInProgress>& Pumps() const { return pumps_; }

  void ForgetWindow(Window window);      // its timers
  void ForgetProcess(Process& process);  // all that waits for it
  void ReleaseHeld(Process& process);    // what came while it hung goes to the end of the queue
  std::vector<Window> TimersOf(const Process& process) const;

 private:
  struct Event {
    std::uint64_t number = 0;
    Process* process = nullptr;
    Window window{};
    Message message{};
    bool isKey = false;
    WParam character = 0;
    TaskId taskId = 0;
    std::function<void()> task;
  };
  struct Later {
    std::int64_t due = 0;
    std::uint64_t number = 0;
    Process* process = nullptr;
    std::function<void()> task;
  };
  struct Timer {
    std::int64_t due = 0;
    std::uint64_t number = 0;  // order of creation, which settles ties
    std::int64_t interval = 0;
    Window window{};
    std::uintptr_t id = 0;
    Process* process = nullptr;
  };

  bool RunPass();
  bool RunQueued();
  bool RunTimers(std::int64_t now);
  void QueueDueTasks();
  void Dispatch(Event& event);
  void DispatchKey(Event& event);
  void InsertTimer(const Timer& timer);
  bool LetAgentAct();
  void MoveClock(std::int64_t limit);
  void CheckProgress(const Wait& wait) const;

  ProcessTable& processes_;
  DeskClock& clock_;
  MessageTaker& windows_;
  Agent* agent_ = nullptr;
  std::uint64_t nextNumber_ = 1;
  std::deque<Event> queue_;
  std::deque<Event> held_;     // for processes that hang
  std::vector<Later> later_;   // a heap, the earliest on top
  std::vector<Timer> timers_;  // the earliest last
  std::unordered_set<TaskId> pending_;
  std::vector<Desk::PumpInProgress> pumps_;
  std::int64_t roundLimit_ = -1;  // of the outermost round; -1 outside
  std::int64_t instant_ = -1;
  int passesAtThisInstant_ = 0;
};

}  // namespace corvel::desk
