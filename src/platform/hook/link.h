// A link: one program's hold on one thread of the client, inside the library. All that it has
// hooked there hangs on it, and goes with it.
//
// Whatever happens, a link is only touched by its own thread, so nothing here is locked.
#pragma once

#include "platform/hook/shared_layout.h"

namespace corvel::hook {

struct MenuGuest {
  HWND window;
  HMENU popup;
};
// The newest of a program's pop-ups in menu bars; it has one at a time.
inline constexpr std::uint32_t kMostGuests = 4;

struct Link {
  Link* next = nullptr;
  DWORD process = 0, number = 0;  // what the section is named by
  HANDLE mapping = nullptr;
  Section* section = nullptr;
  HWND agent = nullptr, owner = nullptr;
  HWND disabled = nullptr;  // by the program, and to be enabled again if it dies
  DWORD ownerThread = 0;
  std::uint32_t lastSequence = 0;
  std::uint32_t asks = 0;  // that wait right now, one inside the other
  std::uint32_t uses = 0;  // asks and deeds that are going on
  std::uint32_t guestCount = 0;
  MenuGuest guests[kMostGuests] = {};
  bool released = false;  // freed when the last use has ended
};

struct HookedWindow;

// What the library keeps of a thread.
struct ThreadState {
  Link* links = nullptr;
  HookedWindow* windows = nullptr;
};

// Set up by DllMain.
extern HINSTANCE libraryInstance;
bool OpenThreadStates();
ThreadState* StateOfThread();  // nullptr only without memory
void CloseThreadState();       // the thread ends
void CloseThreadStates();      // the library is unloaded

// Zeroed memory of the process; nullptr if there is none.
void* Allocate(SIZE_T size);
void Free(void* memory);

// Enters the calling thread for a program, unless it is in already.
void EnterThread(DWORD process, DWORD number);
Link* FindLink(DWORD process, DWORD number);  // nullptr once released
bool OwnerLives(const Link& link);
// Unhooks what the link has hooked and lets it go. The client goes on as if we had never been.
void Release(Link* link);
// Frees the link if it was released meanwhile and nothing waits with it. Don't touch it after.
void FreeIfDone(Link* link);
// Posts a notice; a program that is no longer there releases the link.
void Tell(Link* link, Notice notice, LPARAM value);

}  // namespace corvel::hook
