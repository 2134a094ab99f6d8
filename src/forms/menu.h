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
  bool enabled = true, visible = true, checked = false;
  std::string tip;  // says why a greyed row is greyed
  std::function<void()> onClick;
  std::vector<MenuRow> rows;  // a sub-menu
};

// A named menu whose rows share one name and an index: mnuWavItem(6).
class Menu {
 public:
  Menu(std::string name, std::string caption, std::vector<MenuRow> rows);
  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  std::vector<MenuRow>& Rows() { return rows_; }
  MenuRow& operator()(int index);              // std::out_of_range for a row that isn't there
  MenuRow* FindRow(std::string_view caption);  // top level, case and "&" ignored

  // Shows the visible rows at the pointer, waits, and runs the chosen row's onClick. Separators at
  // the edges or doubled by hidden rows are left out.
  void Popup(Menus& menus, Window owner);

 private:
  std::string name_, caption_;
  std::vector<MenuRow> rows_;
};

}  // namespace corvel::forms
