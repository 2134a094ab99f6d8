// Menus on the desk: trees of rows, of any process's windows.
#pragma once

#include "platform/desk/desk.h"
#include "platform/menus.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvel::desk {

class DeskMenus : public Menus {
 public:
  explicit DeskMenus(Desk& desk);

  MenuHandle MenuOf(Window window) override;
  int Count(MenuHandle menu) override;
  MenuHandle SubMenu(MenuHandle menu, int position) override;
  std::uint32_t IdAt(MenuHandle menu, int position) override;
  std::string TextAt(MenuHandle menu, int position) override;
  std::uint32_t StateAt(MenuHandle menu, int position) override;
  MenuHandle CreatePopup() override;
  void Destroy(MenuHandle menu) override;
  bool Insert(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id, MenuHandle sub,
              std::string_view text) override;
  bool Modify(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
              std::string_view text) override;
  bool Delete(MenuHandle menu, int at, std::uint32_t flags) override;
  void DrawBar(Window) override {}  // nothing is drawn here
  std::uint32_t TrackPopup(MenuHandle menu, Window owner) override;

  void MarkAttached(MenuHandle menu);  // to a window, with which it will be freed
  void FreeBar(MenuHandle menu) { Free(menu); }
  // Menus of a process that hang on nothing and wait for Destroy; and frees them.
  int LooseMenus(ProcessId process) const;
  void Drop(ProcessId process);

 private:
  struct Row {
    std::uint32_t id = 0, flags = 0;
    MenuHandle sub{};
    std::string text;
  };
  struct Menu {
    ProcessId process = 0;
    bool attached = false;
    std::vector<Row> rows;
  };
  struct Place {
    Menu* menu = nullptr;  // nullptr: there is no such row
    std::size_t position = 0;
  };
  Menu* Find(MenuHandle menu);
  Menu* Reach(MenuHandle menu);
  const Row* RowAt(MenuHandle menu, int position);
  // By position in `menu`, or by the first row with that id in it or its sub-menus.
  Place Locate(MenuHandle menu, int at, std::uint32_t flags);
  Place LocateCommand(MenuHandle menu, std::uint32_t id);
  bool Holds(MenuHandle menu, MenuHandle part);
  void Free(MenuHandle menu);

  Desk& desk_;
  std::uint32_t next_ = 0x20001;
  std::unordered_map<std::uint32_t, Menu> menus_;
};

}  // namespace corvel::desk
