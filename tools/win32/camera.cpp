// Asks for pictures; see camera.h.
#include "tools/win32/camera.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <windows.h>

namespace corvel::tools {
namespace {

// What has been drawn takes so long to the screen at most.
constexpr std::uint32_t kShowsMs = 150;

BOOL CALLBACK Draw(HWND window, LPARAM) {
  if (IsWindowVisible(window))
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  return TRUE;
}

}  // namespace

bool Camera::Rest() {
  if (!wanted_) return false;
  if (!waiting_) {
    waiting_ = true;
    EnumWindows(Draw, 0);
    dueAt_ = GetTickCount() + kShowsMs;
  }
  if (static_cast<std::int32_t>(GetTickCount() - dueAt_) < 0) return true;
  Ask();
  return false;
}

void Camera::TakeNow() {
  EnumWindows(Draw, 0);
  MsgWaitForMultipleObjects(0, nullptr, FALSE, kShowsMs, 0);
  Ask();
}

void Camera::Ask() {
  wanted_ = waiting_ = false;
  POINT pointer{};
  GetCursorPos(&pointer);
  char line[48];
  std::snprintf(line, sizeof line, "picture %02d %ld %ld", ++number_, pointer.x, pointer.y);
  std::cout << line << std::endl;
  std::string answer;
  std::getline(std::cin, answer);
}

}  // namespace corvel::tools
