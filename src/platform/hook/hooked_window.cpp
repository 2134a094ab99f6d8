// Hooked windows; see hooked_window.h.
#include "platform/hook/hooked_window.h"

#include "platform/hook/ask.h"

namespace corvel::hook {
namespace {

// Of the hooks that want a message, so many are asked.
constexpr std::uint32_t kMostAsked = 16;

// What is kept of a hook while others run that may remove it.
struct HookName {
  DWORD process, number;  // of its link
  std::uint32_t id;
};

HookName NameOf(const Hook& hook) { return {hook.link->process, hook.link->number, hook.id}; }

HookedWindow* FindWindowNode(const ThreadState& state, HWND window) {
  for (HookedWindow* node = state.windows; node; node = node->next)
    if (node->window == window) return node;
  return nullptr;
}

bool Lists(const Hook& hook, UINT message) {
  for (std::uint32_t i = 0; i < hook.count; ++i)
    if (hook.messages[i] == message) return true;
  return false;
}

std::uint32_t Wanting(const HookedWindow& node, UINT message, Listening listening,
                      HookName (&names)[kMostAsked]) {
  std::uint32_t count = 0;
  for (const Hook* hook = node.hooks; hook && count < kMostAsked; hook = hook->next)
    if (hook->listening == listening && Lists(*hook, message)) names[count++] = NameOf(*hook);
  return count;
}

// nullptr: it has been removed meanwhile, perhaps with its link.
const Hook* FindHook(const ThreadState& state, HWND window, const HookName& name) {
  const HookedWindow* node = FindWindowNode(state, window);
  for (const Hook* hook = node ? node->hooks : nullptr; hook; hook = hook->next)
    if (hook->id == name.id && hook->link->process == name.process &&
        hook->link->number == name.number)
      return hook;
  return nullptr;
}

// True if a hook consumed the message.
bool AskHooks(const ThreadState& state, const HookedWindow& node, const Passing& passing,
              LRESULT& result) {
  HookName names[kMostAsked];
  const std::uint32_t count = Wanting(node, passing.message, Listening::kAsked, names);
  for (std::uint32_t i = 0; i < count; ++i) {
    const Hook* hook = FindHook(state, passing.window, names[i]);
    if (hook && Ask(hook->link, hook->id, passing, result)) return true;
  }
  return false;
}

void TellHooks(const ThreadState& state, const Passing& passing) {
  const HookedWindow* node = FindWindowNode(state, passing.window);
  if (!node || !passing.text) return;
  HookName names[kMostAsked];
  const std::uint32_t count = Wanting(*node, passing.message, Listening::kTold, names);
  for (std::uint32_t i = 0; i < count; ++i)
    if (const Hook* hook = FindHook(state, passing.window, names[i]))
      TellText(hook->link, hook->id, passing.text);
}

LRESULT CALLBACK HookedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Gives the window its own procedure back. Not if someone has subclassed it after us: then ours
// stays in between and lets all pass.
bool Restore(const HookedWindow& node) {
  const LONG_PTR ours = reinterpret_cast<LONG_PTR>(HookedProcedure);
  if (!IsWindow(node.window)) return true;
  if (GetWindowLongPtrA(node.window, GWLP_WNDPROC) != ours) return false;
  SetWindowLongPtrA(node.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(node.previous));
  return true;
}

void Remove(ThreadState& state, HookedWindow* node) {
  for (HookedWindow** at = &state.windows; *at; at = &(*at)->next) {
    if (*at != node) continue;
    *at = node->next;
    break;
  }
  while (Hook* hook = node->hooks) {
    node->hooks = hook->next;
    Free(hook);
  }
  Free(node);
}

// The window dies: whoever hooked it is told, and nothing of it stays.
void Forget(ThreadState& state, HookedWindow* node) {
  Restore(*node);
  HookName names[kMostAsked];
  std::uint32_t count = 0;
  for (const Hook* hook = node->hooks; hook && count < kMostAsked; hook = hook->next)
    names[count++] = NameOf(*hook);
  Remove(state, node);
  for (std::uint32_t i = 0; i < count; ++i)
    if (Link* link = FindLink(names[i].process, names[i].number))
      Tell(link, Notice::kGone, static_cast<LPARAM>(names[i].id));
}

bool WantedByAny(const HookedWindow& node, UINT message) {
  for (const Hook* hook = node.hooks; hook; hook = hook->next)
    if (Lists(*hook, message)) return true;
  return false;
}

// A message that a hook has listed. Everything may have changed when the asking is over, the
// window's end included.
LRESULT PassListed(ThreadState& state, const HookedWindow& node, const Passing& passing) {
  const WNDPROC previous = node.previous;
  const bool last = passing.message == WM_NCDESTROY;
  LRESULT result = 0;
  if (AskHooks(state, node, passing, result) && !last) {
    // What nobody has painted is asked for again at once, for ever.
    if (passing.message == WM_PAINT) ValidateRect(passing.window, nullptr);
    return result;
  }
  if (!IsWindow(passing.window)) return 0;
  if (HookedWindow* still = last ? FindWindowNode(state, passing.window) : nullptr)
    Forget(state, still);
  result =
      CallWindowProcA(previous, passing.window, passing.message, passing.wParam, passing.lParam);
  if (!last) TellHooks(state, passing);
  return result;
}

LRESULT CALLBACK HookedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  ThreadState* state = StateOfThread();
  HookedWindow* node = state ? FindWindowNode(*state, window) : nullptr;
  if (!node) return DefWindowProcA(window, message, wParam, lParam);
  if (WantedByAny(*node, message))
    return PassListed(*state, *node, {window, message, wParam, lParam, TextOf(message, lParam)});
  const WNDPROC previous = node->previous;
  if (message == WM_NCDESTROY) Forget(*state, node);
  return CallWindowProcA(previous, window, message, wParam, lParam);
}

// The window's node, subclassing it if it isn't.
HookedWindow* Subclass(ThreadState& state, HWND window) {
  if (HookedWindow* node = FindWindowNode(state, window)) return node;
  if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return nullptr;
  auto* node = static_cast<HookedWindow*>(Allocate(sizeof(HookedWindow)));
  if (!node) return nullptr;
  node->window = window;
  node->previous = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC));
  node->next = state.windows;
  state.windows = node;
  if (node->previous &&
      SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(HookedProcedure)) != 0)
    return node;
  Remove(state, node);
  return nullptr;
}

void RestoreIfUnhooked(ThreadState& state, HookedWindow* node) {
  if (!node->hooks && Restore(*node)) Remove(state, node);
}

// Takes off the hooks of a link: one, or with id 0 all.
void TakeOff(ThreadState& state, HookedWindow* node, const Link& link, std::uint32_t id) {
  for (Hook** at = &node->hooks; *at;) {
    Hook* const hook = *at;
    if (hook->link == &link && (id == 0 || hook->id == id)) {
      *at = hook->next;
      Free(hook);
    } else {
      at = &hook->next;
    }
  }
  RestoreIfUnhooked(state, node);
}

void TakeOffEverywhere(ThreadState& state, const Link& link, std::uint32_t id) {
  for (HookedWindow* node = state.windows; node;) {
    HookedWindow* const next = node->next;
    TakeOff(state, node, link, id);
    node = next;
  }
}

}  // namespace

bool AddHook(Link* link, const Task& task) {
  const std::uint32_t count = task.textLength / sizeof(std::uint32_t);
  ThreadState* state = StateOfThread();
  if (!state || task.id == 0 || count > kMostMessages) return false;
  auto* hook = static_cast<Hook*>(Allocate(sizeof(Hook)));
  if (!hook) return false;
  HookedWindow* node = Subclass(*state, ToHandle<HWND>(task.handle));
  if (!node) {
    Free(hook);
    return false;
  }
  hook->link = link;
  hook->id = task.id;
  hook->listening = static_cast<Listening>(task.flags);
  hook->count = count;
  CopyMemory(hook->messages, task.text, count * sizeof(std::uint32_t));
  hook->next = node->hooks;
  node->hooks = hook;
  return true;
}

void RemoveHook(const Link& link, std::uint32_t id) {
  if (ThreadState* state = StateOfThread(); state && id != 0) TakeOffEverywhere(*state, link, id);
}

void UnhookAll(ThreadState& state, const Link& link) { TakeOffEverywhere(state, link, 0); }

void ForgetAll(ThreadState& state) {
  while (state.windows) Remove(state, state.windows);
}

}  // namespace corvel::hook
