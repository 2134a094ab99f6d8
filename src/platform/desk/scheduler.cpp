// What happens when; see scheduler.h.
#include "platform/desk/scheduler.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace corvel::desk {
namespace {

constexpr std::int64_t kShortestInterval = 10;
// Far beyond what any program does: past these the desk would run for ever.
constexpr int kPassesWithoutTime = 100'000;
constexpr std::int64_t kLongestLoneWait = 600'000;

constexpr auto kLaterThan = [](const auto& a, const auto& b) {
  return a.due != b.due ? a.due > b.due : a.number > b.number;
};

// Sets a variable for the length of a block.
template <typename T>
class Restore {
 public:
  explicit Restore(T& variable) : variable_(variable), before_(variable) {}
  ~Restore() { variable_ = before_; }
  Restore(const Restore&) = delete;
  Restore& operator=(const Restore&) = delete;

 private:
  T& variable_;
  T before_;
};

}  // namespace

Scheduler::Scheduler(ProcessTable& processes, DeskClock& clock, MessageTaker& windows)
    : processes_(processes), clock_(clock), windows_(windows) {}

// --- Putting things in ---------------------------------------------------------------------------

void Scheduler::Post(Process& receiver, Window window, MessageId id, WParam wParam, LParam lParam) {
  queue_.push_back({.number = nextNumber_++,
                    .process = &receiver,
                    .window = window,
                    .message = {.id = id, .wParam = wParam, .lParam = lParam},
                    .task = nullptr});
}

void Scheduler::PostKey(MessageId id, int virtualKey, WParam character) {
  queue_.push_back({.number = nextNumber_++,
                    .process = &processes_.Outside(),
                    .message = {.id = id, .wParam = static_cast<WParam>(virtualKey)},
                    .isKey = true,
                    .character = character,
                    .task = nullptr});
}

TaskId Scheduler::PostTask(Process& process, std::function<void()> task) {
  const TaskId id = nextNumber_++;
  pending_.insert(id);
  queue_.push_back({.number = id, .process = &process, .taskId = id, .task = std::move(task)});
  return id;
}

void Scheduler::After(Process& process, std::int64_t ms, std::function<void()> task) {
  later_.push_back(
      {clock_.NowMs() + std::max<std::int64_t>(ms, 0), nextNumber_++, &process, std::move(task)});
  std::push_heap(later_.begin(), later_.end(), kLaterThan);
}

void Scheduler::StartTimer(Window window, std::uintptr_t id, std::uint32_t milliseconds) {
  Process* owner = windows_.OwnerOf(window);
  if (!owner) return;
  StopTimer(window, id);
  const std::int64_t interval = std::max<std::int64_t>(milliseconds, kShortestInterval);
  InsertTimer({clock_.NowMs() + interval, nextNumber_++, interval, window, id, owner});
}

void Scheduler::StopTimer(Window window, std::uintptr_t id) {
  std::erase_if(timers_, [&](const Timer& t) { return t.window == window && t.id == id; });
}

void Scheduler::InsertTimer(const Timer& timer) {
  timers_.insert(std::lower_bound(timers_.begin(), timers_.end(), timer, kLaterThan), timer);
}

// --- Taking things out ---------------------------------------------------------------------------

void Scheduler::ForgetWindow(Window window) {
  std::erase_if(timers_, [&](const Timer& t) { return t.window == window; });
}

void Scheduler::ForgetProcess(Process& process) {
  const auto isIts = [&](const auto& thing) { return thing.process == &process; };
  for (auto* events : {&queue_, &held_}) {
    for (const Event& event : *events)
      if (isIts(event)) pending_.erase(event.taskId);
    std::erase_if(*events, isIts);
  }
  std::erase_if(timers_, isIts);
  std::erase_if(later_, isIts);
  std::make_heap(later_.begin(), later_.end(), kLaterThan);
}

void Scheduler::ReleaseHeld(Process& process) {
  for (Event& event : held_)
    if (event.process == &process) {
      event.number = nextNumber_++;
      queue_.push_back(std::move(event));
      event.process = nullptr;
    }
  std::erase_if(held_, [](const Event& event) { return !event.process; });
}

std::vector<Window> Scheduler::TimersOf(const Process& process) const {
  std::vector<Window> windows;
  for (const Timer& timer : timers_)
    if (timer.process == &process) windows.push_back(timer.window);
  return windows;
}

// --- Running -------------------------------------------------------------------------------------

void Scheduler::QueueDueTasks() {
  while (!later_.empty() && later_.front().due <= clock_.NowMs()) {
    std::pop_heap(later_.begin(), later_.end(), kLaterThan);
    queue_.push_back({.number = nextNumber_++,
                      .process = later_.back().process,
                      .task = std::move(later_.back().task)});
    later_.pop_back();
  }
}

void Scheduler::DispatchKey(Event& event) {
  event.window = windows_.Focused();
  event.process = windows_.OwnerOf(event.window);
  if (!event.process) return;
  if (event.process->hung) return held_.push_back(std::move(event));
  if (event.character)
    queue_.push_front({.number = event.number,
                       .process = event.process,
                       .window = event.window,
                       .message = {.id = wm::kChar, .wParam = event.character},
                       .task = nullptr});
  windows_.Deliver(event.window, event.message);
}

void Scheduler::Dispatch(Event& event) {
  if (event.isKey) return DispatchKey(event);
  Process& process = *event.process;
  if (process.hung) return held_.push_back(std::move(event));
  if (!event.task) return windows_.Deliver(event.window, event.message);
  struct Done {
    std::unordered_set<TaskId>& pending;
    TaskId id;
    ~Done() { pending.erase(id); }
  } const done{pending_, event.taskId};
  if (process.TakesCalls()) processes_.Call(process, event.task);
}

bool Scheduler::RunQueued() {
  const std::uint64_t end = nextNumber_;
  bool any = false;
  while (!queue_.empty() && queue_.front().number < end && !processes_.CurrentHasEnded()) {
    Event event = std::move(queue_.front());
    queue_.pop_front();
    any = true;
    Dispatch(event);
  }
  return any;
}

bool Scheduler::RunTimers(std::int64_t now) {
  bool any = false;
  while (!timers_.empty() && timers_.back().due <= now && !processes_.CurrentHasEnded()) {
    Timer timer = timers_.back();
    timers_.pop_back();
    timer.due += timer.interval;
    if (timer.due <= clock_.NowMs()) timer.due = clock_.NowMs() + timer.interval;
    InsertTimer(timer);
    any = true;
    if (!timer.process->hung) windows_.Deliver(timer.window, {wm::kTimer, timer.id});
  }
  return any;
}

bool Scheduler::RunPass() {
  const std::int64_t now = clock_.NowMs();
  // A message to a process that hangs moves the clock too.
  if (std::exchange(instant_, now) != now) passesAtThisInstant_ = 0;
  if (++passesAtThisInstant_ > kPassesWithoutTime)
    throw std::logic_error("the desk runs in circles: time does not move on");
  QueueDueTasks();
  const bool queued = RunQueued();
  return RunTimers(now) || queued;
}

void Scheduler::LetWorldGoOn(std::int64_t limit) {
  Process& world = processes_.Outside();
  auto first = later_.end();
  for (auto at = later_.begin(); at != later_.end(); ++at)
    if (at->process == &world && (first == later_.end() || kLaterThan(*first, *at))) first = at;
  if (first == later_.end() || first->due > limit) return clock_.MoveTo(limit);
  clock_.MoveTo(std::max(clock_.NowMs(), first->due));
  const auto task = std::move(first->task);
  later_.erase(first);
  std::make_heap(later_.begin(), later_.end(), kLaterThan);
  processes_.Call(world, task);
}

bool Scheduler::LetAgentAct() {
  bool acted = false;
  if (agent_) processes_.Call(processes_.Outside(), [&] { acted = agent_->Act(); });
  return acted;
}

void Scheduler::MoveClock(std::int64_t limit) {
  const std::int64_t now = clock_.NowMs();
  std::int64_t next = std::numeric_limits<std::int64_t>::max();
  if (!timers_.empty()) next = std::min(next, timers_.back().due);
  if (!later_.empty()) next = std::min(next, later_.front().due);
  if (agent_)
    if (const auto at = agent_->NextActAt(); at && *at > now) next = std::min(next, *at);
  if (limit > now && limit < std::numeric_limits<std::int64_t>::max()) next = std::min(next, limit);
  if (next == std::numeric_limits<std::int64_t>::max()) next = now + 1;
  next = std::min(next, limit);
  if (next <= now) return;
  clock_.MoveTo(next);
}

void Scheduler::CheckProgress(const Wait& wait) const {
  if (agent_ || roundLimit_ < 0 || clock_.NowMs() <= roundLimit_ + kLongestLoneWait) return;
  throw std::logic_error(std::string("the desk is stuck: nobody ends the wait in ") + wait.name);
}

void Scheduler::Pump(const Wait& wait) {
  processes_.ThrowIfEnded();
  if (processes_.CurrentHasEnded()) return clock_.MoveTo(clock_.NowMs() + 1);
  CheckProgress(wait);
  std::int64_t limit = std::numeric_limits<std::int64_t>::max();
  if (wait.until) {
    const auto left = static_cast<std::int32_t>(*wait.until - clock_.TickCount());
    limit = clock_.NowMs() + std::max(left, 1);
  }
  {
    struct InProgress {
      std::vector<Desk::PumpInProgress>& pumps;
      ~InProgress() { pumps.pop_back(); }
    } const inProgress{pumps_};
    pumps_.push_back({processes_.Current().id, wait});
    if (!RunPass() && !LetAgentAct()) MoveClock(limit);
  }
  processes_.ThrowIfEnded();
}

void Scheduler::Round(std::int64_t limit) {
  const Restore restore(roundLimit_);
  if (roundLimit_ < 0) roundLimit_ = std::max(limit, clock_.NowMs());
  if (!RunPass() && !LetAgentAct()) MoveClock(limit);
}

void Scheduler::RunFor(std::int64_t ms) {
  const std::int64_t end = clock_.NowMs() + ms;
  while (clock_.NowMs() < end) Round(end);
  RunDue();
}

void Scheduler::RunDue() {
  const Restore restore(roundLimit_);
  const std::int64_t now = clock_.NowMs();
  if (roundLimit_ < 0) roundLimit_ = now;
  // A wait inside may have moved the clock to where a timer is due again, and so on for ever.
  while (clock_.NowMs() == now && (RunPass() || LetAgentAct())) {
  }
}

}  // namespace corvel::desk
