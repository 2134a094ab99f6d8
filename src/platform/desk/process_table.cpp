// The processes of the desk; see process_table.h.
#include "platform/desk/process_table.h"

namespace corvel::desk {

ProcessTable::ProcessTable(ProcessKeeper& keeper) : keeper_(keeper) {}

Process& ProcessTable::Add(std::string path, std::string commandLine, Desk::BodyFactory factory) {
  auto process = std::make_unique<Process>();
  process->id = static_cast<ProcessId>(processes_.size() + 1);
  process->path = std::move(path);
  process->commandLine = std::move(commandLine);
  process->factory = std::move(factory);
  processes_.push_back(std::move(process));
  return *processes_.back();
}

Process* ProcessTable::Find(ProcessId id) const {
  return id >= 1 && id <= processes_.size() ? processes_[id - 1].get() : nullptr;
}

Process* ProcessTable::Running(ProcessId id) const {
  Process* process = Find(id);
  return process && process->life == Life::kRunning ? process : nullptr;
}

void ProcessTable::ThrowIfEnded() const {
  // A destructor that runs while the process unwinds, or goes with its body, must come to its end.
  if (current_->life == Life::kEnded && std::uncaught_exceptions() == unwinding_)
    throw ProcessExit{};
}

void ProcessTable::Settle(Process& process, bool exited) {
  if (process.depth > 0 || process.id == 0) {
    if (exited) Kill(process);
    return;
  }
  if (process.life == Life::kEnded) return Release(process);
  if (process.life != Life::kRunning) return;
  if (exited || (process.body && process.body->Finished())) End(process);
}

void ProcessTable::Kill(Process& process) {
  if (process.life != Life::kRunning || process.id == 0) return;
  process.life = Life::kEnded;
  keeper_.TakeAway(process);
  if (process.depth == 0) Release(process);
}

void ProcessTable::End(Process& process) {
  if (process.life != Life::kRunning) return;
  Release(process);
  keeper_.TakeAway(process);
}

void ProcessTable::Release(Process& process) {
  process.life = Life::kReleasing;
  {
    const Visit visit(*this, process);
    process.body.reset();
  }
  keeper_.NoteLeftOpen(process);
  process.life = Life::kGone;
  process.factory = nullptr;
  process.memory.Clear();
}

}  // namespace corvel::desk
