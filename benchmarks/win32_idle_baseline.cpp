// What the program's idle hour is measured against: bare timers of 10 and 300 ms that do the same
// finds with nothing around them.
#include <windows.h>

namespace {

constexpr UINT_PTR kQuick = 1, kSlow = 2;

BOOL CALLBACK LookAt(HWND child, LPARAM) {
  char text[64];
  GetClassNameA(child, text, sizeof text);
  return TRUE;
}

// As the program's quick timer: is the client there, does its message box stand.
void QuickFinds() {
  FindWindowA("AOL Frame25", nullptr);
  FindWindowA("#32770", "America Online");
}

// As its slow one: a walk through the client's windows, in search of a room.
void SlowFinds() {
  const HWND client = FindWindowA("AOL Frame25", nullptr);
  const HWND documents = FindWindowExA(client, nullptr, "MDIClient", nullptr);
  EnumChildWindows(documents, LookAt, 0);
  FindWindowExA(documents, nullptr, "AOL Child", nullptr);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER) wParam == kQuick ? QuickFinds() : SlowFinds();
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  WNDCLASSA info{};
  info.lpfnWndProc = Procedure;
  info.hInstance = instance;
  info.lpszClassName = "Idle Baseline";
  RegisterClassA(&info);
  const HWND window =
      CreateWindowA("Idle Baseline", "", 0, 0, 0, 0, 0, nullptr, nullptr, instance, nullptr);
  SetTimer(window, kQuick, 10, nullptr);
  SetTimer(window, kSlow, 300, nullptr);
  for (MSG message; GetMessageA(&message, nullptr, 0, 0) > 0;) DispatchMessageA(&message);
  return 0;
}
