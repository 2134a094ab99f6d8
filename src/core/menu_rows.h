// Short ways to write a menu as a table.
#pragma once

#include "core/not_built.h"
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

// A row whose look changes; `id` is of the window's own enum of such rows.
template <class Id>
forms::MenuRow MenuItem(Id id, std::string caption, std::function<void()> onClick) {
  forms::MenuRow row = MenuItem(std::move(caption), std::move(onClick));
  row.id = static_cast<int>(id);
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
