// Instant Messages: the manager that gathers them, the answerer, the ignore lists, the logs.
#pragma once

#include "core/features/hook_events.h"

#include <string>

namespace corvel {

class InstantMessages {
 public:
  virtual ~InstantMessages() = default;
  // --- At the end of the start: on AOL 4.0 and 5.0, if TabsOn; and always.
  virtual void Initialize_IM_Manager() = 0;
  virtual void LogCountCheck() = 0;

  // --- The hooks of the central window, and those of the manager's own.
  virtual HookEvents& View() = 0;       // sbcMDI: the view of an IM
  virtual HookEvents& MdiClient() = 0;  // sbcRealMDI: a document window is being made
  // Each tick of Timer1: what a client that hung has not let be hooked is hooked now.
  virtual void RenewHooks() = 0;

  // --- Timers, every second.
  virtual void AnswererTick() = 0;
  virtual void WavTick() = 0;
  // Each tick of Timer1 while the user is signed off.
  virtual void TidyAfterSignOff() = 0;
  // Whether one of the ignore lists holds the name.
  virtual bool IsIgnored(const std::string& name) = 0;

  // --- The way down, if TabsOn. Both may come twice.
  virtual void UnhookManaged() = 0;  // the hooks of the manager's pages
  virtual void GiveBack() = 0;       // every IM goes back to the client, before anything else goes
};

}  // namespace corvel
