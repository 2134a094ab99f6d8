// corvelhk.dll: what must run inside the client's process. docs/hooks.md tells how it works.
//
// It lives in a process that isn't ours, so it is small, has no C++ runtime, takes what memory it
// needs from the process's heap, and never waits for us longer than it must.
#include "platform/hook/agent.h"
#include "platform/hook/link.h"

namespace corvel::hook {
namespace {

// The system calls it in the client's thread, for the one message that the program sends to be let
// in. The hook is taken off as soon as that has come back.
LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) {
  const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && sent->message == EnterMessage())
    EnterThread(static_cast<DWORD>(sent->wParam), static_cast<DWORD>(sent->lParam));
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace
}  // namespace corvel::hook

extern "C" {

__declspec(dllexport) std::uint32_t CALLBACK CorvelHookVersion() {
  return corvel::hook::kLayoutVersion;
}

__declspec(dllexport) LRESULT CALLBACK CorvelHookMessage(int code, WPARAM wParam, LPARAM lParam) {
  return corvel::hook::OnMessage(code, wParam, lParam);
}

__declspec(dllexport) void CALLBACK CorvelHookEnter(DWORD process, DWORD link) {
  corvel::hook::EnterThread(process, link);
}

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID processEnds) {
  if (reason == DLL_PROCESS_ATTACH) {
    corvel::hook::libraryInstance = instance;
    return corvel::hook::OpenThreadStates();
  }
  if (reason == DLL_THREAD_DETACH) corvel::hook::CloseThreadState();
  if (reason == DLL_PROCESS_DETACH && !processEnds) corvel::hook::CloseThreadStates();
  return TRUE;
}

}  // extern "C"
