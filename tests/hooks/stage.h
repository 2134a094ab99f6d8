// What the processes of the hook tests have in common: one program file in several roles.
#pragma once

#include <string>
#include <windows.h>

namespace corvel::test {

// Of the client's frame. Sent unless told otherwise.
enum ClientOrder : UINT {
  kBox = WM_APP + 1,  // -> the edit box
  kRoom,              // -> a window with a RICHCNTL
  kType,              // posted; wParam characters are typed into the box, one a send
  kTyped,             // -> how many came back; lParam 1: the longest send in ms; 2: the last result
  kSay,               // posted; wParam lines are added to the room
  kSleep,             // posted; for wParam ms
  kSubclass,          // the client subclasses its own box
  kAskUser,           // posted; shows a modal dialog
  kDialog,            // -> the dialog
  kDialogResult,      // -> what it was ended with
  kOpenMenu,          // posted; what the system sends when the user opens a menu
  kMark,              // posted; counts
  kMarks,             // -> how many marks have come
};

inline constexpr char kFrameClass[] = "Test Frame";
inline constexpr UINT kTextAppended = 0x2803;

int RunClient();
// A second program, that hooks the client's box and passes everything until it is killed. With
// `busy` it never looks at its messages.
int RunStranger(HWND box, bool busy);
// A program whose library is missing or isn't one: 0 if it is refused in peace.
int RunWithoutLibrary(HWND box);

// Lets this thread's messages be handled until `done` or the time is over; true if done.
template <class F>
bool PumpUntil(DWORD ms, F&& done) {
  const DWORD start = GetTickCount();
  while (!done()) {
    if (GetTickCount() - start > ms) return false;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
  }
  return true;
}
inline void PumpFor(DWORD ms) {
  PumpUntil(ms, [] { return false; });
}

}  // namespace corvel::test
