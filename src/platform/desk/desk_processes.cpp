// Other processes; see desk_processes.h.
#include "platform/desk/desk_processes.h"

#include "base/text.h"
#include "platform/desk/desk_core.h"

namespace corvel::desk {
namespace {

class OpenedProcess : public ProcessMemory {
 public:
  OpenedProcess(Process& opener, const Process& opened) : opener_(opener), opened_(opened) {
    ++opener_.openedProcesses;
  }
  ~OpenedProcess() override { --opener_.openedProcesses; }
  OpenedProcess(const OpenedProcess&) = delete;
  OpenedProcess& operator=(const OpenedProcess&) = delete;
  std::optional<std::string> Read(std::uint32_t address, std::size_t size) override {
    if (opened_.life != Life::kRunning) return std::nullopt;
    return opened_.memory.Read(address, size);
  }

 private:
  Process& opener_;
  const Process& opened_;
};

// "C:\a b.exe" rest, or word rest.
struct CommandParts {
  std::string_view program, rest;
};
CommandParts Split(std::string_view commandLine, std::size_t from) {
  const std::size_t blank = std::min(commandLine.find(' ', from), commandLine.size());
  return {commandLine.substr(0, blank),
          commandLine.substr(std::min(blank + 1, commandLine.size()))};
}

}  // namespace

std::optional<std::vector<ProcessEntry>> DeskProcesses::Snapshot() {
  std::vector<ProcessEntry> entries;
  for (const auto& process : desk_.impl().processes.All())
    if (process->life == Life::kRunning) entries.push_back({process->id, process->path});
  return entries;
}

std::unique_ptr<ProcessMemory> DeskProcesses::Open(ProcessId id) {
  ProcessTable& processes = desk_.impl().processes;
  const Process* opened = processes.Running(id);
  if (!opened) return nullptr;
  return std::make_unique<OpenedProcess>(processes.Current(), *opened);
}

std::string DeskProcesses::ModulePath(ProcessId id, std::string_view module) {
  const Process* process = desk_.impl().processes.Running(id);
  if (!process || process->hung || !EqualNoCase(FileNameOf(process->path), module)) return {};
  return process->path;
}

bool DeskProcesses::Run(std::string_view commandLine, int) {
  if (commandLine.substr(0, 1) == "\"") {
    const std::size_t end = std::min(commandLine.find('"', 1), commandLine.size());
    const Program* program = Search(commandLine.substr(1, end - 1));
    const std::string_view rest = commandLine.substr(std::min(end + 1, commandLine.size()));
    return program && Start(*program, Trim(rest)) != 0;
  }
  // A path may hold blanks: the shortest beginning that names a program is meant.
  for (std::size_t from = 0; from < commandLine.size();) {
    const CommandParts parts = Split(commandLine, from);
    if (const Program* program = Search(parts.program))
      return Start(*program, Trim(parts.rest)) != 0;
    from = parts.program.size() + 1;
  }
  return false;
}

bool DeskProcesses::PreviousInstance() {
  const Process& current = desk_.impl().processes.Current();
  for (const auto& process : desk_.impl().processes.All())
    if (process.get() != &current && process->life == Life::kRunning &&
        EqualNoCase(process->path, current.path))
      return true;
  return false;
}

const DeskProcesses::Program* DeskProcesses::FindProgram(std::string_view path) const {
  for (const Program& program : programs_)
    if (EqualNoCase(program.path, path)) return desk_.files().Exists(path) ? &program : nullptr;
  return nullptr;
}

const DeskProcesses::Program* DeskProcesses::Search(std::string_view name) const {
  std::string file(name);
  if (FileNameOf(file).find('.') == std::string::npos) file += ".exe";
  if (file.find('\\') != std::string::npos) return FindProgram(file);
  const std::string own = FolderOf(desk_.impl().processes.Current().path);
  for (const std::string& folder :
       {own, std::string("C:\\WINDOWS\\SYSTEM"), std::string("C:\\WINDOWS")})
    if (const Program* program = FindProgram(folder + "\\" + file)) return program;
  return nullptr;
}

void DeskProcesses::Install(std::string path, Desk::BodyFactory factory) {
  desk_.files().Put(path, "MZ");
  for (Program& program : programs_)
    if (EqualNoCase(program.path, path)) {
      program.factory = std::move(factory);
      return;
    }
  programs_.push_back({std::move(path), std::move(factory)});
}

ProcessId DeskProcesses::Spawn(std::string_view path, const std::string& commandLine) {
  const Program* program = FindProgram(path);
  return program ? Start(*program, commandLine) : 0;
}

ProcessId DeskProcesses::Start(const Program& program, const std::string& commandLine) {
  Process& process = desk_.impl().processes.Add(program.path, commandLine, program.factory);
  desk_.PostTask(process.id, [&desk = desk_, &process] {
    process.body = process.factory(desk);
    if (process.body) process.body->Start(process.commandLine);
  });
  return process.id;
}

}  // namespace corvel::desk
