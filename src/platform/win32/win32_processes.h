// Other processes of this machine.
#pragma once

#include "platform/processes.h"
#include "platform/win32/owned.h"

namespace corvel::win32 {

class Win32Processes : public Processes {
 public:
  Win32Processes();
  std::optional<std::vector<ProcessEntry>> Snapshot() override;
  std::unique_ptr<ProcessMemory> Open(ProcessId id) override;
  std::string ModulePath(ProcessId id, std::string_view module) override;
  bool Run(std::string_view commandLine, int showCommand) override;
  bool PreviousInstance() override { return hasPrevious_; }

 private:
  OwnedHandle mark_;  // stands for as long as this instance runs
  bool hasPrevious_;
};

}  // namespace corvel::win32
