// Lists of rows: list box, combo, tab strip, list view.
#include "base/cp1252.h"
#include "base/text.h"
#include "forms/control.h"
#include "forms/form.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace corvel::forms {
namespace {

// What a row is sorted by: its text in lower case, the first eight bytes also as one number, so
// that most comparisons are one of numbers.
struct SortEntry {
  std::uint64_t front;
  std::string_view lower;
  std::size_t index;

  friend bool operator<(const SortEntry& a, const SortEntry& b) {
    if (a.front != b.front) return a.front < b.front;
    const int order = a.lower.compare(b.lower);
    return order != 0 ? order < 0 : a.index < b.index;
  }
};

std::uint64_t FrontOf(std::string_view lower) {
  std::uint64_t front = 0;
  for (std::size_t i = 0; i < 8; ++i)
    front = front << 8 | (i < lower.size() ? static_cast<unsigned char>(lower[i]) : 0U);
  return front;
}

// The order of a sorted list: case ignored, equal ones as they come.
std::vector<std::size_t> SortedOrder(const std::vector<std::string>& items) {
  std::string lowered;  // of all rows, in one block
  for (const std::string& item : items) lowered += item;
  for (char& c : lowered) c = LowerChar(c);
  std::vector<SortEntry> entries;
  entries.reserve(items.size());
  std::string_view rest = lowered;
  for (const std::string& item : items) {
    const std::string_view lower = rest.substr(0, item.size());
    rest.remove_prefix(item.size());
    entries.push_back({FrontOf(lower), lower, entries.size()});
  }
  std::sort(entries.begin(), entries.end());
  std::vector<std::size_t> order;
  order.reserve(entries.size());
  for (const SortEntry& entry : entries) order.push_back(entry.index);
  return order;
}

std::vector<std::size_t> OrderAsItIs(std::size_t count) {
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  return order;
}

bool BeginsWithNoCase(std::string_view text, std::string_view beginning) {
  return EqualNoCase(text.substr(0, beginning.size()), beginning);
}

}  // namespace

const std::string& Rows::List(int row) const {
  static const std::string kNone;
  return Has(row) ? state_.items[static_cast<std::size_t>(row)] : kNone;
}

void Rows::SetListIndex(int row) {
  const int next = Has(row) ? row : -1;
  if (state_.selected == next) return;
  state_.selected = next;
  Show(Aspect::kSelection);
  if (next >= 0) Raise(onClick, "Click");
}

std::string Rows::Text() const { return List(state_.selected); }

int Rows::AddItem(std::string_view text, int at) {
  auto& items = state_.items;
  int row = ListCount();
  if (at >= 0)
    row = std::min(at, row);
  else if (state_.sorted)
    row = static_cast<int>(std::upper_bound(items.begin(), items.end(), text, LessNoCase) -
                           items.begin());
  items.emplace(items.begin() + row, text);
  data_.insert(data_.begin() + row, 0);
  if (multiSelect_) state_.marked.insert(state_.marked.begin() + row, false);
  if (!state_.images.empty()) state_.images.insert(state_.images.begin() + row, row_image::kNone);
  if (state_.selected >= row) ++state_.selected;
  newIndex_ = row;
  Show(Aspect::kItemInserted, row);
  return row;
}

void Rows::RemoveItem(int row) {
  if (!Has(row)) return;
  state_.items.erase(state_.items.begin() + row);
  data_.erase(data_.begin() + row);
  if (multiSelect_) state_.marked.erase(state_.marked.begin() + row);
  if (!state_.images.empty()) state_.images.erase(state_.images.begin() + row);
  if (state_.selected == row)
    state_.selected = -1;
  else if (state_.selected > row)
    --state_.selected;
  newIndex_ = -1;
  Show(Aspect::kItemRemoved, row);
}

void Rows::Clear() { Replace({}); }

void Rows::Replace(std::vector<std::string> items) {
  state_.items = std::move(items);
  data_.assign(state_.items.size(), 0);
  if (multiSelect_) state_.marked.assign(state_.items.size(), false);
  state_.images.clear();
  state_.selected = -1;
  newIndex_ = -1;
  Show(Aspect::kItems);
}

void Rows::Permute(const std::vector<std::size_t>& order) {
  std::vector<std::string> items;
  std::vector<long> data;
  std::vector<int> images;
  items.reserve(order.size());
  data.reserve(order.size());
  int selected = -1;
  for (const std::size_t from : order) {
    if (static_cast<int>(from) == state_.selected) selected = static_cast<int>(items.size());
    items.push_back(std::move(state_.items[from]));
    data.push_back(data_[from]);
    if (!state_.images.empty()) images.push_back(state_.images[from]);
  }
  state_.items = std::move(items);
  data_ = std::move(data);
  state_.images = std::move(images);
  state_.selected = selected;
  newIndex_ = -1;
  Show(Aspect::kItems);
}

long Rows::ItemData(int row) const { return Has(row) ? data_[static_cast<std::size_t>(row)] : 0; }

void Rows::SetItemData(int row, long data) {
  if (Has(row)) data_[static_cast<std::size_t>(row)] = data;
}

void Rows::SetItem(int row, std::string_view text) {
  if (!Has(row) || List(row) == text) return;
  state_.items[static_cast<std::size_t>(row)] = text;
  Show(Aspect::kItems, row);
}

int Rows::Image(int row) const {
  return Has(row) && !state_.images.empty() ? state_.images[static_cast<std::size_t>(row)]
                                            : row_image::kNone;
}

void Rows::SetImage(int row, int image) {
  if (image < 0 || image > row_image::kCount) image = row_image::kNone;
  if (!Has(row) || Image(row) == image) return;
  state_.images.resize(state_.items.size(), row_image::kNone);
  state_.images[static_cast<std::size_t>(row)] = image;
  Show(Aspect::kItems, row);
}

int Rows::FindString(int after, std::string_view text) const {
  if (text.empty()) return -1;
  const int count = ListCount();
  const int first = Has(after) ? after + 1 : 0;
  for (int step = 0; step < count; ++step) {
    const int row = first + step < count ? first + step : first + step - count;
    if (BeginsWithNoCase(List(row), text)) return row;
  }
  return -1;
}

int Rows::FindExact(std::string_view text) const {
  const auto hit = std::find(state_.items.begin(), state_.items.end(), text);
  return hit == state_.items.end() ? -1 : static_cast<int>(hit - state_.items.begin());
}

void Rows::UserSelect(int row, bool) {
  if (!TakesInput() || (row != -1 && !Has(row))) return;
  if (state_.selected != row) {
    state_.selected = row;
    Show(Aspect::kSelection);
  }
  if (row >= 0) Raise(onClick, "Click");
}

bool Rows::UseKey(Key key) {
  const bool strip = state_.kind == ControlKind::kTabStrip;
  const int last = ListCount() - 1;
  int row = state_.selected;
  if (key == (strip ? Key::kLeft : Key::kUp))
    row = std::max(row - 1, 0);
  else if (key == (strip ? Key::kRight : Key::kDown))
    row = std::min(row + 1, last);
  else if (key == Key::kHome)
    row = 0;
  else if (key == Key::kEnd)
    row = last;
  else
    return Control::UseKey(key);
  if (Has(row) && row != state_.selected) UserSelect(row, false);
  return true;
}

ListBox::ListBox(Form& form, std::string name, bool sorted, bool multiSelect)
    : Rows(form, ControlKind::kListBox, std::move(name)) {
  state_.sorted = sorted;
  multiSelect_ = state_.multiSelect = multiSelect;
}

std::vector<std::size_t> ListBox::SetItems(std::vector<std::string> items) {
  if (!state_.sorted) {
    Replace(std::move(items));
    return OrderAsItIs(state_.items.size());
  }
  std::vector<std::size_t> order = SortedOrder(items);
  std::vector<std::string> ordered;
  ordered.reserve(items.size());
  for (const std::size_t from : order) ordered.push_back(std::move(items[from]));
  Replace(std::move(ordered));
  return order;
}

bool ListBox::Selected(int row) const {
  if (!multiSelect_) return row >= 0 && row == state_.selected;
  return Has(row) && state_.marked[static_cast<std::size_t>(row)];
}

void ListBox::SetSelected(int row, bool selected) {
  if (!multiSelect_) {
    if (selected)
      SetListIndex(row);
    else if (Selected(row))
      SetListIndex(-1);
  } else if (Has(row) && Selected(row) != selected) {
    state_.marked[static_cast<std::size_t>(row)] = selected;
    Show(Aspect::kSelection, row);
  }
}

std::vector<int> ListBox::SelectedRows() const {
  std::vector<int> rows;
  if (!multiSelect_ && state_.selected >= 0) rows.push_back(state_.selected);
  for (std::size_t row = 0; row < state_.marked.size(); ++row)
    if (state_.marked[row]) rows.push_back(static_cast<int>(row));
  return rows;
}

void ListBox::RemoveRows(const std::vector<int>& rows) {
  std::vector<bool> gone(state_.items.size());
  for (const int row : rows)
    if (Has(row)) gone[static_cast<std::size_t>(row)] = true;
  std::size_t kept = 0;
  int selected = -1;
  for (std::size_t row = 0; row < gone.size(); ++row) {
    if (gone[row]) continue;
    if (static_cast<int>(row) == state_.selected) selected = static_cast<int>(kept);
    if (kept != row) {
      state_.items[kept] = std::move(state_.items[row]);
      data_[kept] = data_[row];
      if (multiSelect_) state_.marked[kept] = state_.marked[row];
      if (!state_.images.empty()) state_.images[kept] = state_.images[row];
    }
    ++kept;
  }
  if (kept == gone.size()) return;
  state_.items.resize(kept);
  data_.resize(kept);
  if (multiSelect_) state_.marked.resize(kept);
  if (!state_.images.empty()) state_.images.resize(kept);
  state_.selected = selected;
  newIndex_ = -1;
  Show(Aspect::kItems);
}

void ListBox::UserSelect(int row, bool alsoKeepMarked) {
  if (!multiSelect_) return Rows::UserSelect(row, alsoKeepMarked);
  if (!TakesInput() || (row != -1 && !Has(row))) return;
  if (!alsoKeepMarked) state_.marked.assign(state_.items.size(), false);
  if (row >= 0) state_.marked[static_cast<std::size_t>(row)].flip();
  state_.selected = row;
  Show(Aspect::kSelection);
  if (row >= 0) Raise(onClick, "Click");
}

ComboBox::ComboBox(Form& form, std::string name)
    : Rows(form, ControlKind::kComboBox, std::move(name)) {}

TabStrip::TabStrip(Form& form, std::string name)
    : Rows(form, ControlKind::kTabStrip, std::move(name)) {}

ListView::ListView(Form& form, std::string name, std::vector<std::string> headings)
    : Rows(form, ControlKind::kListView, std::move(name)) {
  state_.columns = std::move(headings);
}

std::string ListView::Cell(int row, int column) const {
  std::string_view rest = List(row);
  for (; column > 0; --column) {
    const auto tab = rest.find('\t');
    if (tab == rest.npos) return {};
    rest.remove_prefix(tab + 1);
  }
  return column < 0 ? std::string() : std::string(rest.substr(0, rest.find('\t')));
}

void ListView::Sort() { Permute(SortedOrder(state_.items)); }

std::vector<std::size_t> ListView::SetItems(std::vector<std::string> rows) {
  Replace(std::move(rows));
  return OrderAsItIs(state_.items.size());
}

}  // namespace corvel::forms
