#include "forms/menu.h"

#include <stdexcept>
#include <utility>

namespace corvel::forms {
namespace {

MenuRow* FindIn(std::vector<MenuRow>& rows, int id) {
  for (MenuRow& row : rows) {
    if (row.id == id && id != 0) return &row;
    if (MenuRow* const below = FindIn(row.rows, id)) return below;
  }
  return nullptr;
}

bool IsSeparator(const MenuRow& row) { return row.caption == "-"; }

// The rows that are shown: visible ones, with separators only between others.
std::vector<bool> ShownRows(const std::vector<MenuRow>& rows) {
  std::vector<bool> shown(rows.size());
  bool any = false;
  std::size_t waiting = rows.size();  // a separator that is shown if another row follows
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!rows[i].visible) continue;
    if (IsSeparator(rows[i])) {
      if (any && waiting == rows.size()) waiting = i;
      continue;
    }
    if (waiting < rows.size()) shown[std::exchange(waiting, rows.size())] = true;
    shown[i] = any = true;
  }
  return shown;
}

// A pop-up menu of the platform that frees itself unless it was given to another menu.
class OwnedPopup {
 public:
  explicit OwnedPopup(Menus& menus) : menus_(menus), menu_(menus.CreatePopup()) {}
  ~OwnedPopup() {
    if (menu_) menus_.Destroy(menu_);
  }
  OwnedPopup(const OwnedPopup&) = delete;
  OwnedPopup& operator=(const OwnedPopup&) = delete;
  MenuHandle Get() const { return menu_; }
  void GiveAway() { menu_ = {}; }

 private:
  Menus& menus_;
  MenuHandle menu_;
};

// Fills platform menus from rows. Every row, shown or not, has its place from top to bottom as its
// id, so that an id doesn't depend on what is hidden.
class Builder {
 public:
  explicit Builder(Menus& menus) : menus_(menus) {}

  void Fill(MenuHandle menu, const std::vector<MenuRow>& rows) {
    const std::vector<bool> shown = ShownRows(rows);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      actions_.emplace_back();
      const std::size_t id = actions_.size();
      if (shown[i])
        Add(menu, rows[i], static_cast<std::uint32_t>(id));
      else
        CountHidden(rows[i].rows);
    }
  }

  // What the row with this id does; nothing for 0.
  std::function<void()> Action(std::uint32_t id) const {
    return id >= 1 && id <= actions_.size() ? actions_[id - 1] : nullptr;
  }

 private:
  void CountHidden(const std::vector<MenuRow>& rows) {
    for (const MenuRow& row : rows) {
      actions_.emplace_back();
      CountHidden(row.rows);
    }
  }

  void Add(MenuHandle menu, const MenuRow& row, std::uint32_t id) {
    if (IsSeparator(row)) {
      menus_.Insert(menu, -1, menu_flag::kByPosition | menu_flag::kSeparator, 0, {}, "");
      return;
    }
    std::uint32_t flags = menu_flag::kByPosition;
    if (!row.enabled) flags |= menu_flag::kGrayed;
    if (row.checked) flags |= menu_flag::kChecked;
    if (!row.rows.empty()) {
      OwnedPopup sub(menus_);
      Fill(sub.Get(), row.rows);
      if (menus_.Insert(menu, -1, flags | menu_flag::kPopup, id, sub.Get(), row.caption))
        sub.GiveAway();
      return;
    }
    if (row.enabled) actions_[id - 1] = row.onClick;
    menus_.Insert(menu, -1, flags, id, {}, row.caption);
  }

  Menus& menus_;
  std::vector<std::function<void()>> actions_;  // by id - 1
};

}  // namespace

Menu::Menu(std::string name, std::string caption, std::vector<MenuRow> rows)
    : name_(std::move(name)), caption_(std::move(caption)), rows_(std::move(rows)) {}

MenuRow* Menu::Find(int id) { return FindIn(rows_, id); }

MenuRow& Menu::RowWith(int id) {
  if (MenuRow* const row = Find(id)) return *row;
  throw std::out_of_range(name_ + " has no row " + std::to_string(id));
}

void Menu::Popup(Menus& menus, Window owner) {
  std::function<void()> action;
  {
    OwnedPopup popup(menus);
    Builder builder(menus);
    builder.Fill(popup.Get(), rows_);
    action = builder.Action(menus.TrackPopup(popup.Get(), owner));
  }
  if (action) action();
}

}  // namespace corvel::forms
