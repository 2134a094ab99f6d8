// The desk: an in-memory desktop with processes and a virtual clock, the second home of the
// program.
//
// One real thread. Processes are bodies whose code runs as calls: a sent message is a call into the
// receiver's window procedure with the current process switched, a pump is a nested round of the
// scheduler. So the depth of the real stack is the nesting that Windows would show, and every run
// is the same every time.
//
// What stands here beyond the seam is what tests, scenarios and the soak need to set the stage, to
// play the user, and to look at what came of it. Programs never see it.
#pragma once

#include "platform/desk/journal.h"
#include "platform/desk/prompt.h"
#include "platform/platform.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

class Desk;
class DeskClipboard;
class DeskFiles;
class DeskMenus;
class DeskPeers;
class DeskRegistry;
class DeskServices;
class DeskWindows;

// A program that can run on the desk. Made when its process starts, destroyed when that has ended
// and none of its calls is on the stack any more.
class ProcessBody {
 public:
  virtual ~ProcessBody() = default;
  // The whole of the program's start; afterwards it lives on events.
  virtual void Start(const std::string& commandLine) = 0;
  // Asked after each event: the program has ended by itself.
  virtual bool Finished() = 0;
};

// Whoever plays the user and the world. Called when nothing is due at this instant, also from
// inside a program's waits. True: it did something, so look for due things again before time moves.
class Agent {
 public:
  virtual ~Agent() = default;
  virtual bool Act() = 0;
  // The virtual time (milliseconds since the desk began) at which it wants to act next, if known;
  // the clock will not jump over it.
  virtual std::optional<std::int64_t> NextActAt() = 0;
};

using TaskId = std::uint64_t;

class Desk {
 public:
  Desk();
  ~Desk();  // ends every process first
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // The seam, as whichever process is running sees it.
  Platform& platform();

  // --- Time ----------------------------------------------------------------------------------
  std::int64_t NowMs() const;  // since the desk began
  void SetWallClock(const CivilTime& now);
  void SetTimeZone(std::string name);
  void SetTickCount(std::uint32_t now);  // to test the wrap
  void SetAgent(Agent* agent);
  // One round of the outermost loop: what is due; else the agent; else time moves, to the next due
  // thing or by one millisecond, never beyond `limit`.
  void Round(std::int64_t limit);
  // Rounds until `ms` have passed.
  void RunFor(std::int64_t ms);
  // Rounds, without letting time move, until nothing is due.
  void RunDue();

  // --- Processes -----------------------------------------------------------------------------
  using BodyFactory = std::function<std::unique_ptr<ProcessBody>(Desk&)>;
  // Puts a program "on the disk": the file comes to exist, and running it makes the body.
  void Install(std::string path, BodyFactory factory);
  // Starts an installed program as an event of the next round. 0: there is none at that path.
  ProcessId Spawn(std::string_view path, const std::string& commandLine);
  // Ends a process at once: its windows, hooks, timers and files are gone, and its calls unwind as
  // the stack comes back to them.
  void Kill(ProcessId process);
  bool IsRunning(ProcessId process) const;
  ProcessId Current() const;  // 0 outside all processes
  ProcessId FindProcess(
      std::string_view fileName) const;  // the oldest running one, e.g. "waol.exe"
  // The process's command line and program path; "" for a dead one.
  std::string CommandLineOf(ProcessId process) const;
  std::string PathOf(ProcessId process) const;
  // Runs `task` as an event of that process, in its queue behind what is there already.
  TaskId PostTask(ProcessId process, std::function<void()> task);
  // Runs `task` as that process right now, inside the caller.
  void RunAs(ProcessId process, const std::function<void()>& task);
  // Runs as that process at a later time (at least one round later, also for 0).
  void After(ProcessId process, std::int64_t ms, std::function<void()> task);
  // Not yet begun, or begun and not come back.
  bool IsPending(TaskId task) const;
  // The pumps in progress, outermost first, of every process; and whether `process`'s innermost one
  // waits for the user. A process with no pump in progress and no call on the stack is idle.
  struct PumpInProgress {
    ProcessId process;
    Wait wait;
  };
  const std::vector<PumpInProgress>& Pumps() const;
  bool WaitsForUser(ProcessId process) const;

  // --- Memory of processes ------------------------------------------------------------------
  std::uint32_t Allocate(ProcessId process, std::string_view bytes);  // its address
  void Poke(ProcessId process, std::uint32_t address, std::string_view bytes);
  void Free(ProcessId process, std::uint32_t address);

  // --- What the user sees and does ------------------------------------------------------------
  std::vector<std::shared_ptr<Prompt>>& Prompts();  // innermost last

  // --- Parts ---------------------------------------------------------------------------------
  Journal& journal();
  void Note(std::string_view kind, std::vector<std::string> words);  // in the journal, now
  DeskWindows& windows();
  DeskMenus& menus();
  DeskPeers& peers();
  DeskFiles& files();
  DeskRegistry& registry();
  DeskClipboard& clipboard();
  DeskServices& services();

  // What is still open of a process or, with 0, of all that have ended: windows, hooks, timers,
  // menus, opened processes, an open clipboard, tray icons, media devices, a lock on drawing. One
  // sentence each.
  std::vector<std::string> LeftOpen(ProcessId process);

  struct Impl;
  Impl& impl() { return *impl_; }

 private:
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::desk
