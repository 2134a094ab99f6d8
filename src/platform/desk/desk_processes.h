// Other processes, as a process of the desk sees them; and what programs are installed.
#pragma once

#include "platform/desk/process_table.h"
#include "platform/processes.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

class DeskProcesses : public Processes {
 public:
  explicit DeskProcesses(Desk& desk) : desk_(desk) {}

  std::optional<std::vector<ProcessEntry>> Snapshot() override;
  std::unique_ptr<ProcessMemory> Open(ProcessId id) override;
  std::string ModulePath(ProcessId id, std::string_view module) override;
  bool Run(std::string_view commandLine, int showCommand) override;
  bool PreviousInstance() override;

  void Install(std::string path, Desk::BodyFactory factory);
  ProcessId Spawn(std::string_view path, const std::string& commandLine);

 private:
  struct Program {
    std::string path;
    Desk::BodyFactory factory;
  };
  const Program* FindProgram(std::string_view path) const;
  // Where the system looks for a program that is named without a folder.
  const Program* Search(std::string_view name) const;
  ProcessId Start(const Program& program, const std::string& commandLine);

  Desk& desk_;
  std::vector<Program> programs_;
};

}  // namespace corvel::desk
