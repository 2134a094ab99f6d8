#include "platform/win32/win32_processes.h"

#include "base/text.h"
#include "platform/win32/process_list.h"

#include <algorithm>

namespace corvel::win32 {
namespace {

class OpenedProcess : public ProcessMemory {
 public:
  explicit OpenedProcess(OwnedHandle process) : process_(std::move(process)) {}

  std::optional<std::string> Read(std::uint32_t address, std::size_t size) override {
    std::string bytes(size, '\0');
    SIZE_T read = 0;
    const void* const from = reinterpret_cast<const void*>(static_cast<std::uintptr_t>(address));
    if (!ReadProcessMemory(process_.Get(), from, bytes.data(), size, &read) || read != size)
      return std::nullopt;
    return bytes;
  }

 private:
  OwnedHandle process_;
};

// The name of the mark that an instance of this program sets: made of the program's path, whose end
// tells most, without the backslashes that mean something in such a name.
std::string MarkName() {
  constexpr std::size_t kLongest = 200;
  char path[MAX_PATH];
  std::string name = Lower({path, GetModuleFileNameA(nullptr, path, sizeof path)});
  std::replace(name.begin(), name.end(), '\\', '/');
  return name.substr(name.size() - std::min(name.size(), kLongest));
}

}  // namespace

Win32Processes::Win32Processes() : mark_(CreateMutexA(nullptr, FALSE, MarkName().c_str())) {
  hasPrevious_ = GetLastError() == ERROR_ALREADY_EXISTS;
}

// Windows 95 and 98 give a process with its path, later systems by its name only.
std::optional<std::vector<ProcessEntry>> Win32Processes::Snapshot() {
  auto processes = ListProcesses();
  if (!processes) return std::nullopt;
  for (ProcessEntry& process : *processes)
    if (process.path.find('\\') == std::string::npos)
      if (std::string path = ModulePath(process.id, process.path); !path.empty())
        process.path = std::move(path);
  return processes;
}

std::unique_ptr<ProcessMemory> Win32Processes::Open(ProcessId id) {
  OwnedHandle process(OpenProcess(PROCESS_VM_READ, FALSE, id));
  if (!process) return nullptr;
  return std::make_unique<OpenedProcess>(std::move(process));
}

std::string Win32Processes::ModulePath(ProcessId id, std::string_view module) {
  return PathOfModule(id, module);
}

bool Win32Processes::Run(std::string_view commandLine, int showCommand) {
  std::string line = CutAtNul(commandLine);  // the system writes into it
  STARTUPINFOA start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = static_cast<WORD>(showCommand);
  PROCESS_INFORMATION started{};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &started))
    return false;
  const OwnedHandle process(started.hProcess), thread(started.hThread);
  return true;
}

}  // namespace corvel::win32
