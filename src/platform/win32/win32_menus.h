// Menus. Those of our own process are reached by plain calls, those of a client by the library in
// it: a menu's handle says nothing of its window, so we remember where each one was found.
//
// A pop-up made here and inserted into a client's menu is built anew in that process, for a menu
// can't change its process. It keeps its handle towards our callers: ours then only stands for the
// other.
#pragma once

#include "platform/menus.h"
#include "platform/win32/in_client.h"

#include <map>
#include <optional>
#include <set>
#include <windows.h>

namespace corvel::win32 {

class Win32Menus : public Menus {
 public:
  explicit Win32Menus(InClient& inClient) : inClient_(inClient) {}
  ~Win32Menus() override;
  Win32Menus(const Win32Menus&) = delete;
  Win32Menus& operator=(const Win32Menus&) = delete;

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
  void DrawBar(Window window) override;
  std::uint32_t TrackPopup(MenuHandle menu, Window owner) override;

 private:
  // A menu of another process: a window in whose thread it can be reached, and its handle there.
  struct Foreign {
    HWND window = nullptr;
    std::uint32_t real = 0;
  };
  const Foreign* FindForeign(MenuHandle menu) const;
  // Does it where the menu lives; nothing if that can't be reached.
  std::optional<DeedReply> Do(MenuHandle menu, DeedRequest request);
  std::int64_t Value(MenuHandle menu, const DeedRequest& request, std::int64_t otherwise);
  MenuHandle NameOf(HWND window, std::uint32_t real);
  void ForgetTheDead();
  bool MayInsert(MenuHandle menu, MenuHandle sub);
  bool Holds(MenuHandle menu, MenuHandle part);
  // Builds the menu anew in the process of `window`; false if it couldn't be.
  bool Move(MenuHandle menu, HWND window);
  bool CopyRow(MenuHandle from, int position, HWND window, std::uint32_t to);

  InClient& inClient_;
  std::map<MenuHandle, Foreign> foreign_;
  std::map<std::uint32_t, MenuHandle> moved_;  // the real handle, and ours that stands for it
  std::set<MenuHandle> attached_;              // of our process, to another menu
};

}  // namespace corvel::win32
