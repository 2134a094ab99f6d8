// List boxes and combos. The order of their rows is the toolkit's, also where they are sorted.
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_form_peer.h"

#include <algorithm>

namespace corvel::win32 {
namespace {

// The same orders, by their numbers at the two classes.
struct ListMessages {
  UINT reset, add, insert, remove, count, setCurrent, current, initStorage;
};
constexpr ListMessages kListBox{LB_RESETCONTENT, LB_ADDSTRING, LB_INSERTSTRING, LB_DELETESTRING,
                                LB_GETCOUNT,     LB_SETCURSEL, LB_GETCURSEL,    LB_INITSTORAGE};
constexpr ListMessages kComboBox{CB_RESETCONTENT, CB_ADDSTRING, CB_INSERTSTRING, CB_DELETESTRING,
                                 CB_GETCOUNT,     CB_SETCURSEL, CB_GETCURSEL,    CB_INITSTORAGE};

constexpr std::size_t kGrouped = 16;  // changes from which on the window isn't redrawn for each

// No drawing until the end of the scope; then all of it.
class DrawnOnce {
 public:
  explicit DrawnOnce(HWND window) : window_(window) {
    SendMessageA(window_, WM_SETREDRAW, FALSE, 0);
  }
  ~DrawnOnce() {
    SendMessageA(window_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, TRUE);
  }
  DrawnOnce(const DrawnOnce&) = delete;
  DrawnOnce& operator=(const DrawnOnce&) = delete;

 private:
  HWND window_;
};

// Windows 98 holds 32,767 rows in a list. It shows the first ones then, and more of them when some
// go.
class ListControl : public Win32Control {
 public:
  ListControl(Win32Form& form, const ControlState& state, ControlEvents& events,
              const ListMessages& messages)
      : Win32Control(form, state, events), messages_(messages) {}

 protected:
  void Show(Aspect aspect, int row) override {
    switch (aspect) {
      case Aspect::kAll:
      case Aspect::kItems:
        row >= 0 ? ReplaceRow(row) : Refill();
        break;
      case Aspect::kItemInserted:
        InsertRow(row);
        break;
      case Aspect::kItemRemoved:
        Send(messages_.remove, static_cast<WPARAM>(row));
        AddRest();
        break;
      case Aspect::kSelection:
        return ShowSelection(row);
      default:
        break;
    }
    Win32Control::Show(aspect, row);
    if (aspect == Aspect::kItemInserted || aspect == Aspect::kItemRemoved) ShowCurrent();
  }

  virtual void ShowSelection(int row) {
    (void)row;
    ShowCurrent();
  }
  virtual void ShowCurrent() {
    if (Current() != State().selected)
      Send(messages_.setCurrent, static_cast<WPARAM>(State().selected));
  }
  int Current() const { return static_cast<int>(Send(messages_.current)); }

 private:
  std::size_t Count() const { return static_cast<std::size_t>(Send(messages_.count)); }

  void Refill() {
    const DrawnOnce once(Hwnd());
    Send(messages_.reset);
    std::size_t bytes = 0;
    for (const std::string& item : State().items) bytes += item.size() + 1;
    Send(messages_.initStorage, State().items.size(), static_cast<LPARAM>(bytes));
    AddRest();
    ShowSelection(-1);
  }
  // Rows from the end of what the window holds, until it refuses one.
  void AddRest() {
    const auto& items = State().items;
    for (std::size_t row = Count(); row < items.size(); ++row)
      if (Send(messages_.add, 0, reinterpret_cast<LPARAM>(items[row].c_str())) < 0) return;
  }
  void InsertRow(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (at > Count()) return;
    Send(messages_.insert, at, reinterpret_cast<LPARAM>(State().items[at].c_str()));
  }
  void ReplaceRow(int row) {
    if (static_cast<std::size_t>(row) >= Count()) return;
    const DrawnOnce once(Hwnd());
    Send(messages_.remove, static_cast<WPARAM>(row));
    InsertRow(row);
    ShowSelection(row);
    ShowCurrent();
  }

  const ListMessages& messages_;
};

class ListBox : public ListControl {
 public:
  ListBox(Win32Form& form, const ControlState& state, ControlEvents& events)
      : ListControl(form, state, events, kListBox) {}

  void OnCommand(int code) override {
    if (!IsUpdating() && (code == LBN_SELCHANGE || code == LBN_DBLCLK)) PostNotice(code);
  }
  // With Shift or Control the system's list extends the marks itself.
  bool KeepsKey(Key key) const override {
    const bool extends = GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0;
    return State().multiSelect && (key == Key::kSpace || (extends && key != Key::kTab));
  }

 protected:
  WindowKind Kind() const override {
    const DWORD several = State().multiSelect ? LBS_EXTENDEDSEL : 0;
    return {"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | several, WS_EX_CLIENTEDGE};
  }

  void ShowSelection(int row) override {
    if (selecting_) return;
    if (State().multiSelect) row >= 0 ? ShowMark(static_cast<std::size_t>(row)) : ShowMarks();
    ShowCurrent();
  }
  // The caret of a list with several marks; setting it marks nothing.
  void ShowCurrent() override {
    if (!State().multiSelect) return ListControl::ShowCurrent();
    const int row = State().selected;
    if (row >= 0 && row != Send(LB_GETCARETINDEX)) Send(LB_SETCARETINDEX, static_cast<WPARAM>(row));
  }

  void OnNotice(int code) override {
    if (code == LBN_DBLCLK)
      Calls([](ControlEvents& events) { events.UserDoubleClick(); });
    else if (State().multiSelect)
      TellMarks();
    else
      Calls([row = Current()](ControlEvents& events) { events.UserSelect(row, false); });
  }

  // The right button makes the row under it the current one, so that the menu is about that row.
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override {
    if (id != WM_RBUTTONDOWN) return ListControl::OnMessage(id, wParam, lParam);
    const auto height = std::max<LRESULT>(Send(LB_GETITEMHEIGHT), 1);
    const int row = static_cast<int>(Send(LB_GETTOPINDEX) + HIWORD(lParam) / height);
    if (row >= Send(LB_GETCOUNT) || IsMarked(row)) return std::nullopt;
    Calls([row](ControlEvents& events) { events.UserSelect(row, false); });
    return 0;
  }

 private:
  bool IsMarked(int row) const {
    if (!State().multiSelect) return row == State().selected;
    const auto at = static_cast<std::size_t>(row);
    return at < State().marked.size() && State().marked[at];
  }
  void ShowMark(std::size_t row) {
    if (row < State().marked.size()) Send(LB_SETSEL, State().marked[row], static_cast<LPARAM>(row));
  }
  void ShowMarks() {
    std::vector<std::size_t> others;
    for (std::size_t row = 0; row < State().marked.size(); ++row)
      if ((Send(LB_GETSEL, row) > 0) != State().marked[row]) others.push_back(row);
    std::optional<DrawnOnce> once;
    if (others.size() > kGrouped) once.emplace(Hwnd());
    for (const std::size_t row : others) ShowMark(row);
  }

  std::vector<int> MarkedRows() const {
    std::vector<int> rows(static_cast<std::size_t>(std::max<LRESULT>(Send(LB_GETSELCOUNT), 0)));
    Send(LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
    return rows;
  }
  // Rows whose mark differs from the toolkit's.
  std::vector<int> TurnedRows(const std::vector<int>& marked) const {
    std::vector<int> before, turned;
    for (std::size_t row = 0; row < State().marked.size(); ++row)
      if (State().marked[row]) before.push_back(static_cast<int>(row));
    std::set_symmetric_difference(before.begin(), before.end(), marked.begin(), marked.end(),
                                  std::back_inserter(turned));
    return turned;
  }

  // Tells the toolkit in its own words: one row alone, one turned over, or one after the other.
  void TellMarks() {
    const std::vector<int> marked = MarkedRows(), turned = TurnedRows(marked);
    if (marked.empty()) return Select({-1}, false);
    // A click with Control leaves the caret at the row that it has turned over; a plain click on
    // one of two marked rows turns over the other one.
    const auto caret = static_cast<int>(Send(LB_GETCARETINDEX));
    const bool one = turned.size() == 1 && turned[0] == caret;
    if (one && (marked.size() > 1 || turned != marked)) return Select(turned, true);
    std::vector<int> order = marked;
    const auto last = std::find(order.begin(), order.end(), caret);
    if (last != order.end()) std::rotate(last, last + 1, order.end());
    if (!turned.empty() || marked.size() == 1) Select(order, false);
  }
  void Select(const std::vector<int>& rows, bool keepMarked) {
    selecting_ = true;
    for (const int row : rows) {
      if (!Calls([&](ControlEvents& events) { events.UserSelect(row, keepMarked); })) return;
      keepMarked = true;
    }
    selecting_ = false;
    Changed(Aspect::kSelection, -1);
  }

  bool selecting_ = false;  // the window shows already what the toolkit is being told
};

class ComboBox : public ListControl {
 public:
  ComboBox(Win32Form& form, const ControlState& state, ControlEvents& events)
      : ListControl(form, state, events, kComboBox) {}

  void OnCommand(int code) override {
    if (code == CBN_SELCHANGE && !IsUpdating()) PostNotice(code);
  }
  bool KeepsKey(Key) const override { return Send(CB_GETDROPPEDSTATE) != 0; }

 protected:
  WindowKind Kind() const override { return {"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL}; }
  // The height of such a window is the one that it has when it is open.
  Rect WindowPlace() const override {
    constexpr int kRowsShown = 12, kListEdge = 2;
    Rect place = ListControl::WindowPlace();
    place.height += kRowsShown * static_cast<int>(Send(CB_GETITEMHEIGHT, 0)) + kListEdge;
    return place;
  }
  void OnNotice(int) override {
    Calls([row = Current()](ControlEvents& events) { events.UserSelect(row, false); });
  }
};

}  // namespace

std::unique_ptr<Win32Control> MakeListBox(Win32Form& form, const ControlState& state,
                                          ControlEvents& events) {
  return std::make_unique<ListBox>(form, state, events);
}

std::unique_ptr<Win32Control> MakeComboBox(Win32Form& form, const ControlState& state,
                                           ControlEvents& events) {
  return std::make_unique<ComboBox>(form, state, events);
}

}  // namespace corvel::win32
