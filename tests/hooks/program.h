// The program of the hook tests, with its client and others beside it.
#pragma once

#include "platform/win32/handles.h"
#include "platform/win32/win32_hooks.h"
#include "platform/win32/win32_in_client.h"
#include "platform/win32/win32_menus.h"
#include "tests/hooks/stage.h"

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace corvel::test {

using win32::FromHwnd;

inline int failures = 0;

inline void Check(bool good, const char* what, int line, long long seen) {
  if (good) return;
  ++failures;
  std::printf("  line %d: %s (%lld)\n", line, what, seen);
}
#define CHECK(condition) Check(condition, #condition, __LINE__, 0)
#define CHECK_SEEN(condition, seen) \
  Check(condition, #condition, __LINE__, static_cast<long long>(seen))

inline std::string OwnPath() {
  char path[MAX_PATH];
  return {path, GetModuleFileNameA(nullptr, path, MAX_PATH)};
}

// Another process in a role; killed with the object.
class Process {
 public:
  explicit Process(const std::string& role, const std::string& path = OwnPath()) {
    std::string line = "\"" + path + "\" " + role;
    STARTUPINFOA start{};
    start.cb = sizeof start;
    CreateProcessA(path.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                   &info_);
  }
  ~Process() {
    Kill();
    CloseHandle(info_.hThread);
    CloseHandle(info_.hProcess);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  DWORD id() const { return info_.dwProcessId; }
  void Kill() {
    TerminateProcess(info_.hProcess, 1);
    WaitForSingleObject(info_.hProcess, 5000);
  }
  DWORD ExitCode() {
    PumpUntil(10000, [&] { return WaitForSingleObject(info_.hProcess, 0) == WAIT_OBJECT_0; });
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(info_.hProcess, &code);
    return code;
  }

 private:
  PROCESS_INFORMATION info_{};
};

class Client : public Process {
 public:
  Client() : Process("client") {
    PumpUntil(10000, [&] { return (frame = Find()) && Ask(kBox); });
    box = reinterpret_cast<HWND>(Ask(kBox));
    room = reinterpret_cast<HWND>(Ask(kRoom));
  }
  LRESULT Ask(UINT order, LPARAM which = 0) { return SendMessageA(frame, order, 0, which); }
  void Post(UINT order, WPARAM value = 0) { PostMessageA(frame, order, value, 0); }
  // The client types, and we let it.
  void Type(WPARAM count) {
    Post(kType, count);
    Settle();
  }
  // Until the client has come to the end of what was posted to it.
  void Settle() {
    const LRESULT last = ++marks_;
    Post(kMark);
    CHECK(PumpUntil(30000, [&] { return Ask(kMarks) == last; }));
  }
  std::string Text() {
    char text[1000];
    SendMessageA(box, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
  }
  HWND frame = nullptr, box = nullptr, room = nullptr;

 private:
  HWND Find() const {
    for (HWND at = nullptr; (at = FindWindowExA(nullptr, at, kFrameClass, nullptr)) != nullptr;) {
      DWORD process = 0;
      GetWindowThreadProcessId(at, &process);
      if (process == id()) return at;
    }
    return nullptr;
  }
  LRESULT marks_ = 0;
};

struct Handler : HookHandler {
  void OnHookedMessage(HookedMessage& message) override {
    ++count;
    text = message.text;
    if (act) act(message);
  }
  int count = 0;
  std::string text;
  std::function<void(HookedMessage&)> act;
};

struct Heard : ChatLineHandler {
  void OnChatLine(std::string_view sender, std::string_view text) override {
    lines.push_back(std::string(sender) + "|" + std::string(text));
    if (act) act();
  }
  std::vector<std::string> lines;
  std::function<void()> act;
};

inline constexpr MessageId kChar[] = {WM_CHAR};
inline constexpr MessageId kSetText[] = {WM_SETTEXT};

// A program with its client.
struct Program {
  HookId Hook(HWND window, Handler& handler, std::span<const MessageId> messages = kChar) {
    return hooks.Attach(FromHwnd(window), messages, handler);
  }
  Client client;
  win32::HookChannel channel;
  win32::Win32Hooks hooks{channel};
  win32::Win32InClient inClient{channel};
  win32::Win32Menus menus{inClient};
};

inline DWORD TimeOf(const std::function<void()>& work) {
  const DWORD start = GetTickCount();
  work();
  return GetTickCount() - start;
}

inline void WaitForStranger(HWND box) {
  CHECK(PumpUntil(10000, [&] { return GetPropA(box, "Stranger") != nullptr; }));
  RemovePropA(box, "Stranger");
}

inline std::string Number(HWND window) {
  return std::to_string(static_cast<long>(reinterpret_cast<LONG_PTR>(window)));
}

}  // namespace corvel::test
