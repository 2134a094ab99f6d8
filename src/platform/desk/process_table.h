// The processes of the desk, and whose code is running.
//
// A call into a process is a visit: it makes the process the current one and counts as one of its
// frames on the stack. A process that ends by itself at its outermost frame is taken down in good
// order (its body first, while its windows still stand). One that is killed, or ends while other
// frames of it lie below, loses its windows at once, and its frames unwind as the stack comes back
// to them; its body goes with the last of them.
#pragma once

#include "base/error.h"
#include "platform/desk/desk.h"
#include "platform/desk/process_arena.h"

#include <exception>
#include <memory>
#include <string>
#include <vector>

namespace corvel::desk {

enum class Life {
  kRunning,
  kEnded,      // killed; frames of it may still be on the stack
  kReleasing,  // its body is being destroyed
  kGone
};

struct Process {
  ProcessId id = 0;
  std::string path, commandLine;
  Desk::BodyFactory factory;
  std::unique_ptr<ProcessBody> body;
  Life life = Life::kRunning;
  int depth = 0;  // of its visits on the stack
  bool hung = false;
  std::int64_t hungSince = 0;
  ProcessArena memory;
  int openedProcesses = 0;            // by it, for reading
  std::vector<std::string> leftOpen;  // what it had not released when it was gone

  bool TakesCalls() const { return life == Life::kRunning; }
};

// Told at the two points at which the rest of the desk lets go of a process.
class ProcessKeeper {
 public:
  virtual ~ProcessKeeper() = default;
  // Its body has been destroyed: note what that left open.
  virtual void NoteLeftOpen(Process& process) = 0;
  // Take away its windows, timers, hooks and queue.
  virtual void TakeAway(Process& process) = 0;
};

class ProcessTable {
 public:
  explicit ProcessTable(ProcessKeeper& keeper);

  Process& Add(std::string path, std::string commandLine, Desk::BodyFactory factory);
  Process* Find(ProcessId id) const;  // also one that has ended; nullptr for a number never given
  Process* Running(ProcessId id) const;  // nullptr unless it runs
  const std::vector<std::unique_ptr<Process>>& All() const { return processes_; }
  Process& Current() const { return *current_; }  // number 0 outside all processes
  Process& Outside() { return outside_; }

  // Calls `f` as `process`, which must take calls. ProcessExit out of it ends the process, and the
  // caller goes on.
  template <typename F>
  void Call(Process& process, F&& f);
  // To be called when control comes back to the current process from a call that could end it.
  void ThrowIfEnded() const;
  bool CurrentHasEnded() const { return current_->life != Life::kRunning; }

  void Kill(Process& process);
  // Ends a process without frames on the stack in good order.
  void End(Process& process);

 private:
  class Visit;
  void Settle(Process& process, bool exited);
  void Release(Process& process);

  ProcessKeeper& keeper_;
  Process outside_;
  Process* current_ = &outside_;
  int unwinding_ = 0;  // exceptions that were in flight when the current visit began
  std::vector<std::unique_ptr<Process>> processes_;
};

class ProcessTable::Visit {
 public:
  Visit(ProcessTable& table, Process& process)
      : table_(table), before_(table.current_), unwindingBefore_(table.unwinding_) {
    table.current_ = &process;
    table.unwinding_ = std::uncaught_exceptions();
    ++process.depth;
  }
  ~Visit() {
    --table_.current_->depth;
    table_.current_ = before_;
    table_.unwinding_ = unwindingBefore_;
  }
  Visit(const Visit&) = delete;
  Visit& operator=(const Visit&) = delete;

 private:
  ProcessTable& table_;
  Process* before_;
  int unwindingBefore_;
};

template <typename F>
void ProcessTable::Call(Process& process, F&& f) {
  if (&process == current_) return f();
  bool exited = false;
  {
    const Visit visit(*this, process);
    try {
      f();
    } catch (const ProcessExit&) {
      exited = true;
    }
  }
  Settle(process, exited);
}

}  // namespace corvel::desk
