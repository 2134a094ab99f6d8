// Menus of the program's own forms: trees of rows, shown as pop-ups.
#pragma once

#include "platform/menus.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::forms {

struct MenuRow {
  std::string caption;  // "-" is a separator
  int id = 0;           // what the row does, in its owner's numbering; 0: nobody asks for it
  bool enabled = true, visible = true, checked = false;
  std::string tip;  // says why a greyed row is greyed
  std::function<void()> onClick;
  std::vector<MenuRow> rows;  // a sub-menu
};

// A named menu. Rows are found by what they do, never by where they stand.
class Menu {
 public:
  Menu(std::string name, std::string caption, std::vector<MenuRow> rows);
  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  std::vector<MenuRow>& Rows() { return rows_; }
  // The row with this id, sub-menus included; nullptr: there is none.
  MenuRow* Find(int id);
  // One that is there: std::out_of_range if it isn't.
  template <class Id>
  MenuRow& Row(Id id) {
    return RowWith(static_cast<int>(id));
  }

  // Shows the visible rows at the pointer, waits, and runs the chosen row's onClick. Separators at
  // the edges or doubled by hidden rows are left out.
  void Popup(Menus& menus, Window owner);

 private:
  MenuRow& RowWith(int id);

  std::string name_, caption_;
  std::vector<MenuRow> rows_;
};

}  // namespace corvel::forms
