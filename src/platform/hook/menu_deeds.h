// What is done to menus, by plain calls. The library runs it in the client's process for the
// client's menus, the program in its own for its own: so both behave alike.
#pragma once

#include "platform/hook/shared_layout.h"

namespace corvel::hook {

inline constexpr UINT kMenuFlagsKept = MF_GRAYED | MF_CHECKED | MF_POPUP | MF_SEPARATOR;
// MENUITEMINFOA as Windows 95 knows it; the bitmap at its end came later.
inline constexpr UINT kMenuItemInfoSize = offsetof(MENUITEMINFOA, hbmpItem);

inline HMENU MenuOfTask(const Task& task) { return ToHandle<HMENU>(task.handle); }

inline UINT MenuState(HMENU menu, UINT at, UINT flags) {
  const UINT state = GetMenuState(menu, at, flags);
  return state == static_cast<UINT>(-1) ? state : state & kMenuFlagsKept;
}

inline void DoMenuOf(Task& task) {
  // Where others keep their menu, a child keeps its number.
  const HWND window = ToHandle<HWND>(task.handle);
  const bool child = GetWindowLongA(window, GWL_STYLE) & WS_CHILD;
  task.value = child ? 0 : ToValue(GetMenu(window));
}

inline void DoMenuCount(Task& task) { task.value = GetMenuItemCount(MenuOfTask(task)); }

inline void DoSubMenu(Task& task) {
  task.value = ToValue(GetSubMenu(MenuOfTask(task), task.number));
}

inline void DoMenuIdAt(Task& task) {
  const UINT state = MenuState(MenuOfTask(task), static_cast<UINT>(task.number), MF_BYPOSITION);
  const bool separator = state != static_cast<UINT>(-1) && (state & MF_SEPARATOR);
  task.value = separator ? 0 : GetMenuItemID(MenuOfTask(task), task.number);
}

inline void DoMenuTextAt(Task& task) {
  task.answer[0] = 0;
  GetMenuStringA(MenuOfTask(task), static_cast<UINT>(task.number), task.answer,
                 static_cast<int>(task.room), MF_BYPOSITION);
}

inline void DoMenuStateAt(Task& task) {
  task.value = MenuState(MenuOfTask(task), static_cast<UINT>(task.number), MF_BYPOSITION);
}

inline void DoMenuInsert(Task& task) {
  const bool popup = task.flags & MF_POPUP;
  const HMENU sub = ToHandle<HMENU>(task.sub);
  if (popup && !IsMenu(sub)) return;
  const UINT_PTR id = popup ? reinterpret_cast<UINT_PTR>(sub) : task.id;
  task.value =
      InsertMenuA(MenuOfTask(task), static_cast<UINT>(task.number),
                  task.flags | (task.number == -1 ? MF_BYPOSITION : 0U), id, task.text) != 0;
}

// A row keeps its sub-menu if it is to stay a pop-up; ModifyMenu would free it.
inline bool ModifyKeepingSub(const Task& task) {
  MENUITEMINFOA info{};
  info.cbSize = kMenuItemInfoSize;
  info.fMask = MIIM_SUBMENU;
  const UINT at = static_cast<UINT>(task.number);
  const BOOL byPosition = (task.flags & MF_BYPOSITION) != 0;
  if (!GetMenuItemInfoA(MenuOfTask(task), at, byPosition, &info) || !info.hSubMenu) return false;
  info.fMask = MIIM_TYPE | MIIM_ID | MIIM_STATE;
  info.fType = MFT_STRING;
  info.fState = task.flags & (MF_GRAYED | MF_CHECKED);
  info.wID = task.id;
  info.dwTypeData = const_cast<char*>(task.text);
  return SetMenuItemInfoA(MenuOfTask(task), at, byPosition, &info);
}

inline void DoMenuModify(Task& task) {
  const bool popup = task.flags & MF_POPUP;
  task.value = (popup && ModifyKeepingSub(task)) ||
               ModifyMenuA(MenuOfTask(task), static_cast<UINT>(task.number),
                           task.flags & ~static_cast<UINT>(MF_POPUP), task.id, task.text);
}

inline void DoMenuDelete(Task& task) {
  task.value = DeleteMenu(MenuOfTask(task), static_cast<UINT>(task.number), task.flags) != 0;
}

inline void DoMenuCreate(Task& task) { task.value = ToValue(CreatePopupMenu()); }
inline void DoMenuDestroy(Task& task) { DestroyMenu(MenuOfTask(task)); }
inline void DoMenuDrawBar(Task& task) { DrawMenuBar(ToHandle<HWND>(task.handle)); }

struct DeedRow {
  Deed deed;
  void (*act)(Task&);
};

inline constexpr DeedRow kMenuDeeds[] = {
    {Deed::kMenuOf, DoMenuOf},           {Deed::kMenuCount, DoMenuCount},
    {Deed::kSubMenu, DoSubMenu},         {Deed::kMenuIdAt, DoMenuIdAt},
    {Deed::kMenuTextAt, DoMenuTextAt},   {Deed::kMenuStateAt, DoMenuStateAt},
    {Deed::kMenuInsert, DoMenuInsert},   {Deed::kMenuModify, DoMenuModify},
    {Deed::kMenuDelete, DoMenuDelete},   {Deed::kMenuCreate, DoMenuCreate},
    {Deed::kMenuDestroy, DoMenuDestroy}, {Deed::kMenuDrawBar, DoMenuDrawBar},
};

// Does the deed if the table has it.
template <unsigned n>
bool DoByTable(const DeedRow (&table)[n], Task& task) {
  for (const DeedRow& row : table) {
    if (row.deed != task.deed) continue;
    row.act(task);
    return true;
  }
  return false;
}

}  // namespace corvel::hook
