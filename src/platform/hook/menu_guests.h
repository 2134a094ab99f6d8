// Pop-up menus that a program has put into the menu bar of a window here. The rows of one mean
// nothing once the program has gone, so it goes with the program's link.
#pragma once

#include "platform/hook/link.h"

namespace corvel::hook {

// Remembers the pop-up, if `menu` is a window's bar.
void NoteGuest(Link& link, HMENU menu, HMENU popup);
// Takes out those that are still there.
void RemoveGuests(Link& link);

}  // namespace corvel::hook
