// The windows that the library has subclassed in a thread, and the hooks on them. A window is
// subclassed once, however many hooks of however many programs are on it.
#pragma once

#include "platform/hook/link.h"

namespace corvel::hook {

struct Hook {
  Hook* next = nullptr;
  Link* link = nullptr;
  std::uint32_t id = 0;
  Listening listening{};
  std::uint32_t count = 0;
  std::uint32_t messages[kMostMessages] = {};
};

struct HookedWindow {
  HookedWindow* next = nullptr;
  HWND window = nullptr;
  WNDPROC previous = nullptr;
  Hook* hooks = nullptr;  // newest first
};

// True if the window is hooked now; it must belong to this thread.
bool AddHook(Link* link, const Task& task);
void RemoveHook(const Link& link, std::uint32_t id);
void UnhookAll(ThreadState& state, const Link& link);
void ForgetAll(ThreadState& state);  // frees the memory, touches no window

}  // namespace corvel::hook
