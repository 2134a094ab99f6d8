// Links; see link.h.
#include "platform/hook/link.h"

#include "platform/hook/agent.h"
#include "platform/hook/hooked_window.h"
#include "platform/hook/menu_guests.h"

namespace corvel::hook {
namespace {

DWORD threadSlot = TLS_OUT_OF_INDEXES;

// Once in, the library stays: a window that someone else has subclassed after us may call our
// procedure for as long as the process lives.
void StayLoaded() {
  static bool stays = false;
  char path[MAX_PATH];
  if (stays || !GetModuleFileNameA(libraryInstance, path, MAX_PATH)) return;
  stays = LoadLibraryA(path) != nullptr;
}

bool MapSection(Link& link) {
  char name[64];
  wsprintfA(name, kSectionName, link.process, link.number);
  link.mapping = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, name);
  if (!link.mapping) return false;
  link.section = static_cast<Section*>(MapViewOfFile(link.mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0));
  return link.section && link.section->version == kLayoutVersion &&
         link.section->size == sizeof(Section);
}

void FreeLink(Link* link) {
  if (link->section) UnmapViewOfFile(link->section);
  if (link->mapping) CloseHandle(link->mapping);
  Free(link);
}

bool Open(Link& link) {
  if (!MapSection(link)) return false;
  link.owner = ToHandle<HWND>(link.section->owner);
  link.ownerThread = link.section->ownerThread;
  link.agent = OwnerLives(link) ? CreateAgent(&link) : nullptr;
  return link.agent != nullptr;
}

// Programs that have died since without our being asked anything.
void ReleaseTheDead(ThreadState& state) {
  for (Link* link = state.links; link;) {
    Link* const next = link->next;
    if (!OwnerLives(*link)) Release(link);
    link = next;
  }
}

}  // namespace

HINSTANCE libraryInstance = nullptr;

bool OpenThreadStates() {
  threadSlot = TlsAlloc();
  return threadSlot != TLS_OUT_OF_INDEXES;
}

ThreadState* StateOfThread() {
  auto* state = static_cast<ThreadState*>(TlsGetValue(threadSlot));
  if (state) return state;
  state = static_cast<ThreadState*>(Allocate(sizeof(ThreadState)));
  if (state) TlsSetValue(threadSlot, state);
  return state;
}

void CloseThreadState() {
  // Its windows have gone with the thread; what is left of them is memory.
  auto* state = static_cast<ThreadState*>(TlsGetValue(threadSlot));
  if (!state) return;
  ForgetAll(*state);
  while (Link* link = state->links) {
    state->links = link->next;
    FreeLink(link);
  }
  TlsSetValue(threadSlot, nullptr);
  Free(state);
}

void CloseThreadStates() {
  CloseThreadState();
  TlsFree(threadSlot);
}

void* Allocate(SIZE_T size) { return HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size); }
void Free(void* memory) { HeapFree(GetProcessHeap(), 0, memory); }

Link* FindLink(DWORD process, DWORD number) {
  ThreadState* state = StateOfThread();
  for (Link* link = state ? state->links : nullptr; link; link = link->next)
    if (link->process == process && link->number == number) return link;
  return nullptr;
}

void EnterThread(DWORD process, DWORD number) {
  ThreadState* state = StateOfThread();
  if (!state || FindLink(process, number)) return;
  ReleaseTheDead(*state);
  auto* link = static_cast<Link*>(Allocate(sizeof(Link)));
  if (!link) return;
  link->process = process;
  link->number = number;
  if (!Open(*link)) return FreeLink(link);
  link->next = state->links;
  state->links = link;
  StayLoaded();
  Set(link->section->agent, ToValue(link->agent));
}

bool OwnerLives(const Link& link) {
  DWORD process = 0;
  return GetWindowThreadProcessId(link.owner, &process) == link.ownerThread &&
         process == link.process;
}

void Release(Link* link) {
  if (link->released) return;
  link->released = true;
  ThreadState* state = StateOfThread();
  for (Link** at = &state->links; *at; at = &(*at)->next) {
    if (*at != link) continue;
    *at = link->next;
    break;
  }
  UnhookAll(*state, *link);
  RemoveGuests(*link);
  if (link->disabled) EnableWindow(link->disabled, TRUE);
  DestroyWindow(link->agent);
  FreeIfDone(link);
}

void FreeIfDone(Link* link) {
  if (link->released && link->uses == 0) FreeLink(link);
}

void Tell(Link* link, Notice notice, LPARAM value) {
  const WPARAM which = link->number << kSlotBits | static_cast<WPARAM>(notice);
  if (PostMessageA(link->owner, NoticeMessage(), which, value)) return;
  if (!OwnerLives(*link)) Release(link);
}

}  // namespace corvel::hook
