// Short ways to write a menu as a table.
#pragma once

#include "core/toolbar_menus.h"
#include "forms/menu.h"

#include <functional>
#include <string>
#include <utility>

namespace corvel {

inline forms::MenuRow MenuItem(std::string caption, std::function<void()> onClick) {
  forms::MenuRow row;
  row.caption = std::move(caption);
  row.onClick = std::move(onClick);
  return row;
}

inline forms::MenuRow Separator() { return MenuItem("-", {}); }

// A row whose feature is still to come.
inline forms::MenuRow GreyedItem(std::string caption) {
  forms::MenuRow row = MenuItem(std::move(caption), {});
  row.enabled = false;
  row.tip = kNotBuiltTip;
  return row;
}

}  // namespace corvel
