// Guests in menu bars; see menu_guests.h.
#include "platform/hook/menu_guests.h"

namespace corvel::hook {
namespace {

struct BarSearch {
  HMENU bar;
  HWND found;
};

BOOL CALLBACK MatchBar(HWND window, LPARAM search) {
  auto* const wanted = reinterpret_cast<BarSearch*>(search);
  if (GetMenu(window) == wanted->bar) wanted->found = window;
  return wanted->found == nullptr;
}

HWND WindowOfBar(HMENU bar) {
  BarSearch search{bar, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), MatchBar, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void Remove(const MenuGuest& guest) {
  if (!IsWindow(guest.window)) return;
  const HMENU bar = GetMenu(guest.window);
  for (int at = GetMenuItemCount(bar) - 1; at >= 0; --at) {
    if (GetSubMenu(bar, at) != guest.popup) continue;
    DeleteMenu(bar, static_cast<UINT>(at), MF_BYPOSITION);
    DrawMenuBar(guest.window);
  }
}

}  // namespace

void NoteGuest(Link& link, HMENU menu, HMENU popup) {
  const HWND window = popup ? WindowOfBar(menu) : nullptr;
  if (!window) return;
  link.guests[link.guestCount++ % kMostGuests] = {window, popup};
}

void RemoveGuests(Link& link) {
  for (MenuGuest& guest : link.guests) {
    if (guest.popup) Remove(guest);
    guest = {};
  }
}

}  // namespace corvel::hook
