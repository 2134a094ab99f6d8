// Menus of any process's windows, and pop-up menus of our own.
//
// A pop-up that we have put into another process's menu bar goes with our process at the latest.
//
// A menu handle that has died answers 0, -1, "" or false and takes no orders. On Windows every call
// on another process's menu is done by the library inside that process.
#pragma once

#include "platform/window_types.h"

#include <string>
#include <string_view>

namespace corvel {

class Menus {
 public:
  virtual ~Menus() = default;

  virtual MenuHandle MenuOf(Window window) = 0;  // its menu bar
  virtual int Count(MenuHandle menu) = 0;        // -1 for no menu
  virtual MenuHandle SubMenu(MenuHandle menu, int position) = 0;
  // The command id of a row; -1 (all bits) for a row with a sub-menu, 0 for a separator.
  virtual std::uint32_t IdAt(MenuHandle menu, int position) = 0;
  // The row's text with its "&" and, behind a TAB, its shortcut. "" for a separator.
  virtual std::string TextAt(MenuHandle menu, int position) = 0;
  virtual std::uint32_t StateAt(MenuHandle menu, int position) = 0;  // namespace menu_flag

  virtual MenuHandle CreatePopup() = 0;
  // Frees a menu with its sub-menus. One that is attached to another menu or a window is freed with
  // that, and must not be freed by hand.
  virtual void Destroy(MenuHandle menu) = 0;
  // Inserts before `at`, which is a position or an id by `flags`; position -1 appends. `sub` is
  // attached, and from then on owned by `menu`, if flags hold kPopup.
  virtual bool Insert(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
                      MenuHandle sub, std::string_view text) = 0;
  virtual bool Modify(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
                      std::string_view text) = 0;
  // Deletes a row and frees its sub-menu.
  virtual bool Delete(MenuHandle menu, int at, std::uint32_t flags) = 0;
  virtual void DrawBar(Window window) = 0;

  // Shows `menu` as a pop-up at the pointer, owned by `owner`, a window of ours, and waits, with
  // events going on, until the user has chosen: the row's id, or 0 for none.
  virtual std::uint32_t TrackPopup(MenuHandle menu, Window owner) = 0;
};

}  // namespace corvel
