// Controls: named objects with properties and event procedures, as the windows of the program are
// described in. The object holds the state; its peer, which exists while the form is loaded, shows
// it.
//
// Members beginning with `on` are notices, set by the form. A user's action reaches a control by
// the ControlEvents methods only, the same on both homes. Setting a property from code raises no
// event, except Rows::SetListIndex and CheckBox::SetValue, which raise onClick when the value
// changes, as the controls always did. No event is raised while the form isn't loaded.
//
// A row that isn't there is no error: questions about it answer empty, orders do nothing.
#pragma once

#include "platform/peers.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvel::forms {

class Form;

class Control : public ControlEvents {
 public:
  // Registers itself with the form, which must be the object that it is a member of.
  Control(Form& form, ControlKind kind, std::string name, int index = -1);
  ~Control() override;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& Owner() const { return form_; }
  const std::string& Name() const { return state_.name; }
  int Index() const { return state_.index; }
  const ControlState& State() const { return state_; }

  bool Enabled() const { return state_.enabled; }
  void SetEnabled(bool enabled);
  // As it shows: a control inside a hidden frame or container isn't visible. SetVisible sets its
  // own part in that, OwnVisible tells it.
  bool Visible() const { return state_.visible; }
  void SetVisible(bool visible);
  bool OwnVisible() const { return ownVisible_; }
  const std::string& ToolTip() const { return state_.toolTip; }
  void SetToolTip(std::string text);
  void SetAccessibleName(std::string text) { state_.accessibleName = std::move(text); }
  virtual void SetPlace(const Rect& place);  // in its container's pixels, else in the form's
  void SetFont(const FontStyle& font);
  void SetTabOrder(int order) { state_.tabOrder = order; }
  void TakeFocus();
  Window Handle() const;  // 0 while not loaded

  std::function<void()> onClick, onDblClick, onRightClick;
  std::function<bool(Key)> onKey;  // before the control's own use; true: used up

  void UserClick() override;
  void UserDoubleClick() override;
  void UserRightClick() override;
  void UserSelect(int row, bool alsoKeepMarked) override;
  void UserText(const std::string& text) override;
  // onKey first; then Space clicks a button, check or option, the arrows move the current row,
  // Enter presses the form's default button and Escape its cancel button.
  bool UserKey(Key key) override;
  void WindowPlaced(const Rect&) override {}  // of containers alone
  void WindowLost() override {}

 protected:
  void Show(Aspect aspect, int row = -1);
  // Runs an event procedure of this control; nothing may be touched behind it unless an EventScope
  // stands around, since the form can be gone.
  void Raise(const std::function<void()>& procedure, const char* event);
  bool TakesInput() const;       // loaded, enabled and visible, with all that it stands in
  virtual bool UseKey(Key key);  // the control's own use; true: used up
  ControlState state_;

 private:
  friend class Form;
  friend class Frame;
  friend class Container;
  void HideWith(Control& holder);
  void ApplyVisible();

  Form& form_;
  const WParam id_;
  Control* holder_ = nullptr;     // the frame or container that it hides with
  Control* container_ = nullptr;  // that it stands in
  bool ownVisible_ = true;
  std::unique_ptr<ControlPeer> peer_;
};

// A caption as it is read: "&&" is an ampersand, any other "&" only marks the access key.
std::string PlainCaption(std::string_view caption);

// Label, push button, flat button, frame: a caption with an access key behind "&".
class Captioned : public Control {
 public:
  const std::string& Caption() const { return state_.text; }
  void SetCaption(std::string_view caption);

 protected:
  Captioned(Form& form, ControlKind kind, std::string name, std::string_view caption, int index);
};

class Label : public Captioned {
 public:
  Label(Form& form, std::string name, std::string_view caption = {}, int index = -1);
  void SetWordWrap(bool wrap) { state_.wordWrap = wrap; }
  void SetCentered(bool centered) { state_.alignCenter = centered; }
  // Without it the text is data, and its "&" shows as it is.
  void SetMnemonic(bool mnemonic);
};

class Button : public Captioned {
 public:
  Button(Form& form, std::string name, std::string_view caption = {}, int index = -1);
  void SetDefault(bool isDefault);  // Enter presses it, and no other button of the form
  void SetCancel(bool isCancel);    // Escape presses it, and no other button of the form

 protected:
  bool UseKey(Key key) override;
  Button(Form& form, ControlKind kind, std::string name, std::string_view caption, int index);
};

class FlatButton : public Button {
 public:
  FlatButton(Form& form, std::string name, std::string_view caption = {}, int index = -1);
  void SetLook(const ButtonLook& look);
  void SetPopupArrow(bool arrow) { state_.popupArrow = arrow; }
};

class Frame : public Captioned {
 public:
  Frame(Form& form, std::string name, std::string_view caption = {}, int index = -1);
  // From now on the control is seen only while this frame is. Framed() of layout.h does it.
  void Hold(Control& control);
};

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, int index = -1);
  const std::string& Text() const { return state_.text; }
  void SetText(std::string_view text);
  void SetMultiLine(bool multiLine) { state_.multiLine = multiLine; }  // before the form loads
  // The user can't make the text longer than so many characters, 0 for any number; code can.
  void SetMaxLength(int characters);
  std::function<void()> onChange;  // the user has changed the text
  void UserText(const std::string& text) override;

 private:
  std::string HeldToLimit(const std::string& text) const;
};

class CheckBox : public Captioned {
 public:
  CheckBox(Form& form, std::string name, std::string_view caption = {}, int index = -1);
  int Value() const { return state_.value; }  // 0 or 1
  void SetValue(int value);
  void UserClick() override;  // turns it over, then onClick

 protected:
  bool UseKey(Key key) override;
};

// One of the option buttons of a form or of a group: choosing one clears the others of its group.
// A click raises onClick also if it was chosen already.
class OptionButton : public Captioned {
 public:
  OptionButton(Form& form, std::string name, std::string_view caption = {}, int group = 0);
  bool Value() const { return state_.value != 0; }
  void SetValue(bool value);
  void UserClick() override;
  int Group() const { return group_; }

 protected:
  bool UseKey(Key key) override;

 private:
  int group_;
};

class ProgressBar : public Control {
 public:
  ProgressBar(Form& form, std::string name);
  int Value() const { return state_.value; }
  int Maximum() const { return state_.maximum; }
  void SetMaximum(int maximum);  // at least 1; 100 to begin with. A larger value comes down to it
  // Held to 0 and the maximum. Seen at once, also by a user whose program is too busy to pump.
  void SetValue(int value);
};

// Rows of text with a current row; the common part of list box, combo, tab strip, list view.
class Rows : public Control {
 public:
  using Control::Control;
  int ListCount() const { return static_cast<int>(state_.items.size()); }
  const std::string& List(int row) const;  // "" for a row that isn't there
  const std::vector<std::string>& Items() const { return state_.items; }
  int ListIndex() const { return state_.selected; }
  void SetListIndex(int row);  // out of range: -1; raises onClick if it changes to a row
  std::string Text() const;    // of the current row, "" for none
  int NewIndex() const { return newIndex_; }
  // Adds at `at`, or at the end, or at its place if sorted (behind equal ones). O(rows).
  int AddItem(std::string_view text, int at = -1);
  // NewIndex is -1 behind these two.
  void RemoveItem(int row);
  void Clear();
  long ItemData(int row) const;
  void SetItemData(int row, long data);
  void SetItem(int row, std::string_view text);
  // A row_image, which goes with its row. Shown by list views and tab strips.
  int Image(int row) const;
  void SetImage(int row, int image);
  // Finds as CB_FINDSTRING does: the first row behind `after`, round to the start, that begins with
  // `text`, case ignored. -1: none.
  int FindString(int after, std::string_view text) const;
  int FindExact(std::string_view text) const;  // case counts; -1: none

  // Raises onClick also for the row that is current already, as a click there does.
  void UserSelect(int row, bool alsoKeepMarked) override;

 protected:
  bool UseKey(Key key) override;
  bool Has(int row) const { return row >= 0 && row < ListCount(); }
  // Puts rows and their data in this order: row i becomes what row order[i] was.
  void Permute(const std::vector<std::size_t>& order);
  void Replace(std::vector<std::string> items);  // all rows, no data, no current row

  bool multiSelect_ = false;
  std::vector<long> data_;
  int newIndex_ = -1;
};

class ListBox : public Rows {
 public:
  ListBox(Form& form, std::string name, bool sorted = false, bool multiSelect = false);
  // Replaces all rows in one step. If sorted, puts them in order, equal ones as they come, and
  // gives the order: answer[i] is the index in `items` of row i. O(n log n).
  std::vector<std::size_t> SetItems(std::vector<std::string> items);
  bool IsMultiSelect() const { return multiSelect_; }
  bool Selected(int row) const;  // marked; without multiple selection the current row
  void SetSelected(int row, bool selected);
  std::vector<int> SelectedRows() const;  // ascending
  // Removes all of these rows (ascending) in one step. O(rows).
  void RemoveRows(const std::vector<int>& rows);
  // With multiple selection: marks this row alone, or turns its mark over and keeps the others; -1
  // without keeping clears all marks.
  void UserSelect(int row, bool alsoKeepMarked) override;
};

class ComboBox : public Rows {
 public:
  ComboBox(Form& form, std::string name);
};

class TabStrip : public Rows {
 public:
  TabStrip(Form& form, std::string name);
};

// Report view; a row's columns are parted by TAB in its text.
class ListView : public Rows {
 public:
  ListView(Form& form, std::string name, std::vector<std::string> headings);
  std::string Cell(int row, int column) const;
  void Sort();  // by the whole row, case ignored; the current row stays current
  // Replaces all rows in one step, in the order given; the answer is that of ListBox::SetItems.
  std::vector<std::size_t> SetItems(std::vector<std::string> rows);
};

class PictureBox : public Control {
 public:
  PictureBox(Form& form, std::string name);
  void SetPicture(Picture picture);
  void SetRuns(std::vector<TextRun> runs);  // and picture kTextRuns
};

}  // namespace corvel::forms
