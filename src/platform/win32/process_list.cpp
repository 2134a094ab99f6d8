#include "platform/win32/process_list.h"

#include "base/text.h"
#include "platform/win32/owned.h"

#include <windows.h>
// After the system's own.
#include <tlhelp32.h>

namespace corvel::win32 {
namespace {

template <class F>
F Find(const char* name) {
  const FARPROC address = GetProcAddress(GetModuleHandleA("kernel32.dll"), name);
  return reinterpret_cast<F>(reinterpret_cast<void*>(address));
}

// The calls are looked up, since a program that imported them wouldn't load on NT 4.
struct ToolHelp {
  HANDLE(WINAPI* snapshot)(DWORD, DWORD) = Find<decltype(snapshot)>("CreateToolhelp32Snapshot");
  BOOL(WINAPI* firstProcess)
  (HANDLE, PROCESSENTRY32*) = Find<decltype(firstProcess)>("Process32First");
  BOOL(WINAPI* nextProcess)(HANDLE, PROCESSENTRY32*) = Find<decltype(nextProcess)>("Process32Next");
  BOOL(WINAPI* firstModule)(HANDLE, MODULEENTRY32*) = Find<decltype(firstModule)>("Module32First");
  BOOL(WINAPI* nextModule)(HANDLE, MODULEENTRY32*) = Find<decltype(nextModule)>("Module32Next");

  bool IsThere() const {
    return snapshot && firstProcess && nextProcess && firstModule && nextModule;
  }
  OwnedHandle Take(DWORD what, ProcessId id) const {
    return OwnedHandle(IsThere() ? snapshot(what, id) : nullptr);
  }
};

const ToolHelp& Calls() {
  static const ToolHelp kCalls;
  return kCalls;
}

}  // namespace

std::optional<std::vector<ProcessEntry>> ListProcesses() {
  const OwnedHandle snapshot = Calls().Take(TH32CS_SNAPPROCESS, 0);
  if (!snapshot) return std::nullopt;
  std::vector<ProcessEntry> processes;
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (bool more = Calls().firstProcess(snapshot.Get(), &entry); more;
       more = Calls().nextProcess(snapshot.Get(), &entry))
    processes.push_back({static_cast<ProcessId>(entry.th32ProcessID), entry.szExeFile});
  return processes;
}

std::string PathOfModule(ProcessId id, std::string_view module) {
  // For 0 the system would tell of ourselves.
  const OwnedHandle snapshot = id ? Calls().Take(TH32CS_SNAPMODULE, id) : OwnedHandle();
  if (!snapshot) return {};
  MODULEENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (bool more = Calls().firstModule(snapshot.Get(), &entry); more;
       more = Calls().nextModule(snapshot.Get(), &entry))
    if (EqualNoCase(entry.szModule, module)) return entry.szExePath;
  return {};
}

}  // namespace corvel::win32
