// What a hook costs the client: a key that is let pass, against the bare round trip of a message to
// our process and back, which nothing can undercut. And what a deed in the client costs us.
//
// A program with windows: it starts itself a second time as the client.
#include "platform/win32/handles.h"
#include "platform/win32/win32_hooks.h"
#include "platform/win32/win32_in_client.h"
#include "platform/win32/win32_menus.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace corvel {
namespace {

constexpr char kClass[] = "Hook Bench";
constexpr UINT kKeys = WM_APP + 1, kDone = WM_APP + 2;
constexpr UINT kUnlisted = WM_APP + 3, kBare = WM_APP + 4;
constexpr int kRounds = 5000;

double MicrosNow() {
  LARGE_INTEGER now, second;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&second);
  return static_cast<double>(now.QuadPart) * 1e6 / static_cast<double>(second.QuadPart);
}

template <class F>
double MicrosEach(F&& work) {
  const double start = MicrosNow();
  for (int i = 0; i < kRounds; ++i) work();
  return (MicrosNow() - start) / kRounds;
}

HWND MakeWindow(WNDPROC procedure) {
  WNDCLASSA info{};
  info.lpfnWndProc = procedure;
  info.hInstance = GetModuleHandleA(nullptr);
  info.lpszClassName = kClass;
  RegisterClassA(&info);
  const HMENU bar = CreateMenu();
  AppendMenuA(bar, MF_STRING, 1, "&File");
  return CreateWindowExA(0, kClass, "", WS_OVERLAPPEDWINDOW, 0, 0, 99, 99, nullptr, bar,
                         info.hInstance, nullptr);
}

// --- the client --------------------------------------------------------------------------------

LRESULT CALLBACK ClientProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CHAR || message == kUnlisted || message == WM_SETTEXT) return 0;
  if (message != kKeys) return DefWindowProcA(window, message, wParam, lParam);
  // wParam: which message; lParam: to whom, or 0 for ourselves.
  const auto to = lParam ? win32::ToHwnd({static_cast<std::uint32_t>(lParam)}) : window;
  const auto text = reinterpret_cast<LPARAM>("a line of forty characters, as they come");
  const double micros = MicrosEach(
      [&] { SendMessageA(to, static_cast<UINT>(wParam), 'a', wParam == WM_SETTEXT ? text : 0); });
  PostThreadMessageA(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(GetPropA(window, "Asker"))),
                     kDone, static_cast<WPARAM>(micros * 1000), 0);
  return 0;
}

int RunClient(DWORD asker) {
  const HWND window = MakeWindow(ClientProcedure);
  SetPropA(window, "Asker", reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(asker)));
  SetWindowTextA(window, "client");
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
  return 0;
}

// --- the program -------------------------------------------------------------------------------

class Passing : public HookHandler {
 public:
  void OnHookedMessage(HookedMessage&) override {}
};

HWND StartClient(PROCESS_INFORMATION& process) {
  char path[MAX_PATH], line[MAX_PATH + 40];
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  wsprintfA(line, "\"%s\" client %lu", path, GetCurrentThreadId());
  STARTUPINFOA start{};
  start.cb = sizeof start;
  if (!CreateProcessA(path, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
    return nullptr;
  HWND window = nullptr;
  for (int i = 0; i < 1000 && (window = FindWindowA(kClass, nullptr)) == nullptr; ++i) Sleep(10);
  Sleep(200);
  return window;
}

// The client sends, we pump; what one send took it.
double Timed(HWND client, UINT message, HWND to = nullptr) {
  PostMessageA(client, kKeys, message, static_cast<LPARAM>(win32::FromHwnd(to).value));
  MSG got;
  while (GetMessageA(&got, nullptr, 0, 0) > 0) {
    if (got.message == kDone && !got.hwnd) return static_cast<double>(got.wParam) / 1000;
    DispatchMessageA(&got);
  }
  return 0;
}

void Report(const char* what, double micros) { std::printf("%-44s %9.2f us\n", what, micros); }

void Measure(HWND client) {
  win32::HookChannel channel;
  win32::Win32Hooks hooks(channel);
  win32::Win32InClient inClient(channel);
  win32::Win32Menus menus(inClient);
  Passing handler;
  const HWND ours =
      CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  Timed(client, kBare, ours);  // both sides warm up
  Report("a message that isn't hooked", Timed(client, WM_CHAR));
  Report("bare round trip to our process", Timed(client, kBare, ours));
  constexpr MessageId kListed[] = {WM_CHAR, WM_SETTEXT};
  const HookId hook = hooks.Attach(win32::FromHwnd(client), kListed, handler);
  Report("hooked window, message not listed", Timed(client, kUnlisted));
  Report("hooked key, let pass", Timed(client, WM_CHAR));
  Report("hooked text of 40 characters, let pass", Timed(client, WM_SETTEXT));
  const auto bar = menus.MenuOf(win32::FromHwnd(client));
  Report("count of the client's menu", MicrosEach([&] { menus.Count(bar); }));
  Report("text of a row of the client's menu", MicrosEach([&] { menus.TextAt(bar, 0); }));
  hooks.Detach(hook);
}

}  // namespace
}  // namespace corvel

int main(int argc, char** argv) {
  if (argc > 2 && std::strcmp(argv[1], "client") == 0)
    return corvel::RunClient(static_cast<DWORD>(std::atol(argv[2])));
  PROCESS_INFORMATION process{};
  if (const HWND client = corvel::StartClient(process)) corvel::Measure(client);
  TerminateProcess(process.hProcess, 0);
  return 0;
}
