// The message queue; see win32_event_loop.h.
#include "platform/win32/win32_event_loop.h"

#include "base/error.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <algorithm>

namespace corvel::win32 {
namespace {

// A round ends even if every message posts another one.
constexpr int kLongestRound = 64;
constexpr DWORD kLongestSleep = 10;
constexpr std::uint32_t kShortestInterval = 10;

void SleepUntilMessage(const Wait& wait) {
  DWORD milliseconds = kLongestSleep;
  if (wait.until) {
    const auto left = static_cast<std::int32_t>(*wait.until - GetTickCount());
    milliseconds =
        static_cast<DWORD>(std::clamp(left, 0, static_cast<std::int32_t>(kLongestSleep)));
  }
  MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds, QS_ALLINPUT);
}

}  // namespace

void Win32EventLoop::ThrowIfEnded() const {
  if (ended_) throw ProcessExit{};
}

void Win32EventLoop::Pump(const Wait& wait) {
  ThrowIfEnded();
  const bool any = DispatchWaiting() || (idle_ && idle_());
  ThrowIfEnded();
  if (!any) SleepUntilMessage(wait);
}

bool Win32EventLoop::DispatchWaiting() {
  int count = 0;
  for (MSG message; count < kLongestRound; ++count) {
    const bool found = PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;
    Callback::Rethrow();  // of a message that was sent to us meanwhile
    if (!found) break;
    if (message.message == WM_QUIT) ended_ = true;
    ThrowIfEnded();
    Dispatch(message);
  }
  return count > 0;
}

void Win32EventLoop::Dispatch(MSG& message) {
  if (!IsFiltered(message)) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  Callback::Rethrow();
}

bool Win32EventLoop::IsFiltered(MSG& message) {
  // A filter's work may add or remove filters.
  const std::vector<MessageFilter*> filters(filters_.rbegin(), filters_.rend());
  for (MessageFilter* filter : filters) {
    const bool stands = std::find(filters_.begin(), filters_.end(), filter) != filters_.end();
    if (stands && filter->Filter(message)) return true;
  }
  return false;
}

void Win32EventLoop::StartTimer(Window window, std::uintptr_t id, std::uint32_t milliseconds) {
  // Without a window the system would make a timer of the thread's, which nobody stops.
  if (IsWindow(ToHwnd(window)))
    SetTimer(ToHwnd(window), id, std::max(milliseconds, kShortestInterval), nullptr);
}

void Win32EventLoop::StopTimer(Window window, std::uintptr_t id) {
  if (IsWindow(ToHwnd(window))) KillTimer(ToHwnd(window), id);
}

}  // namespace corvel::win32
