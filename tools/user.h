// The user's hand on the program's windows: finds controls, rows and pop-up rows by the names that
// a scenario gives them.
#pragma once

#include "tools/stage.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tools {

// "frmMsg.Command1(1)"; an empty control names the form itself.
struct ControlName {
  std::string form, control;
  int index = -1;
};
// Nothing if it isn't of this form.
std::optional<ControlName> ParseControlName(std::string_view text);

// Takes "ctrl+" off the front of a key's name; true if it stood there.
bool TakeControl(std::string_view& key);
// A key by its scenario word ("ctrl+enter").
std::optional<Key> ParseKey(std::string_view word);

// A caption as the user reads it: without "&", and without the shortcut behind a TAB.
std::string PlainCaption(std::string_view caption);

// What a control says: its caption, text, current row, check state or bar value.
std::string ValueOf(const ControlState& state);

class User {
 public:
  explicit User(Stage& stage) : stage_(stage) {}

  // The newest of that name, case ignored.
  std::optional<FormView> FindForm(const std::string& name) const;
  // Nothing, and why, if it isn't there.
  std::optional<ControlView> FindControl(const std::string& name, std::string& why) const;
  // By its bare name on that form; -1 is the index of a control that stands alone.
  std::optional<ControlView> FindControl(Window form, std::string_view name, int index) const;
  // The row that reads so (of a list view, also by its first column), or -1.
  static int FindRow(const ControlState& state, const std::string& item);
  // The row whose caption reads so, "&" and shortcut left out, or -1.
  static int FindCaption(const ControlState& state, const std::string& caption);

  // The innermost open pop-up menu, or nullptr.
  desk::Prompt* OpenPopup() const;
  // Chooses the row at the end of `path`, through sub-menus. Why it can't be done, or "".
  std::string Choose(const std::vector<std::string>& path) const;
  // The captions of the rows of the open pop-up, separators left out.
  std::vector<std::string> PopupRows() const;
  // Of the open pop-up: whether its row that reads so can't be chosen; nothing if it has none.
  std::optional<bool> IsGreyed(const std::string& caption) const;
  void DismissPopup() const;

 private:
  int FindMenuRow(MenuHandle menu, const std::string& caption) const;
  Stage& stage_;
};

}  // namespace corvel::tools
