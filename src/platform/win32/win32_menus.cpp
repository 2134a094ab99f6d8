// Menus; see win32_menus.h.
#include "platform/win32/win32_menus.h"

#include "platform/hook/menu_deeds.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_window_system.h"

#include <vector>

namespace corvel::win32 {
namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF;

// The same as the library does, here.
DeedReply DoHere(const DeedRequest& request) {
  const std::string text(request.text);
  std::vector<char> answer(request.deed == Deed::kMenuTextAt ? hook::kDeedText : 1);
  hook::Task task{.deed = request.deed,
                  .handle = request.handle,
                  .number = request.number,
                  .flags = request.flags,
                  .id = request.id,
                  .sub = request.sub,
                  .text = text.c_str(),
                  .textLength = static_cast<std::uint32_t>(text.size()),
                  .value = 0,
                  .answer = answer.data(),
                  .room = static_cast<std::uint32_t>(answer.size())};
  hook::DoByTable(hook::kMenuDeeds, task);
  return {task.value, answer.data()};
}

// Takes the menu off the screen. Windows 95 has no call for it, but knows the key.
void EndMenuMode(HWND owner) {
  using Function = BOOL(WINAPI*)();
  const HMODULE user = GetModuleHandleA("user32.dll");
  const auto end =
      reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(user, "EndMenu")));
  if (end) {
    end();
  } else {
    PostMessageA(owner, WM_KEYDOWN, VK_ESCAPE, 0);
  }
}

// While a menu is up: when an exception waits to go on its way, the menu must end for it.
class MenuWatch {
 public:
  explicit MenuWatch(HWND owner) : timer_(SetTimer(nullptr, 0, 50, Tick)) { owner_ = owner; }
  ~MenuWatch() { KillTimer(nullptr, timer_); }
  MenuWatch(const MenuWatch&) = delete;
  MenuWatch& operator=(const MenuWatch&) = delete;

 private:
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (Callback::IsThrown()) EndMenuMode(owner_);
  }
  static inline HWND owner_ = nullptr;
  UINT_PTR timer_;
};

}  // namespace

Win32Menus::~Win32Menus() {
  for (const auto& [real, name] : moved_) DestroyMenu(ToHmenu(name));
}

const Win32Menus::Foreign* Win32Menus::FindForeign(MenuHandle menu) const {
  const auto it = foreign_.find(menu);
  return it == foreign_.end() ? nullptr : &it->second;
}

std::optional<DeedReply> Win32Menus::Do(MenuHandle menu, DeedRequest request) {
  const Foreign* foreign = FindForeign(menu);
  request.handle = foreign ? foreign->real : menu.value;
  if (!foreign) return DoHere(request);
  return inClient_.Ask(foreign->window, request);
}

std::int64_t Win32Menus::Value(MenuHandle menu, const DeedRequest& request,
                               std::int64_t otherwise) {
  const auto reply = Do(menu, request);
  return reply ? reply->value : otherwise;
}

MenuHandle Win32Menus::NameOf(HWND window, std::uint32_t real) {
  if (real == 0) return {};
  if (const auto it = moved_.find(real); it != moved_.end()) return it->second;
  foreign_[{real}] = {window, real};
  return {real};
}

void Win32Menus::ForgetTheDead() {
  std::erase_if(moved_, [this](const auto& entry) {
    const Foreign* foreign = FindForeign(entry.second);
    if (foreign && IsWindow(foreign->window)) return false;
    DestroyMenu(ToHmenu(entry.second));
    return true;
  });
  std::erase_if(foreign_, [](const auto& entry) { return !IsWindow(entry.second.window); });
}

MenuHandle Win32Menus::MenuOf(Window window) {
  ForgetTheDead();
  const HWND hwnd = ToHwnd(window);
  if (!hwnd || !IsWindow(hwnd)) return {};
  const DeedRequest request{.deed = Deed::kMenuOf, .handle = window.value};
  if (IsOurs(hwnd)) return {static_cast<std::uint32_t>(DoHere(request).value)};
  const auto reply = inClient_.Ask(hwnd, request);
  return reply ? NameOf(hwnd, static_cast<std::uint32_t>(reply->value)) : MenuHandle{};
}

int Win32Menus::Count(MenuHandle menu) {
  return static_cast<int>(Value(menu, {.deed = Deed::kMenuCount}, -1));
}

MenuHandle Win32Menus::SubMenu(MenuHandle menu, int position) {
  const auto sub =
      static_cast<std::uint32_t>(Value(menu, {.deed = Deed::kSubMenu, .number = position}, 0));
  const Foreign* foreign = FindForeign(menu);
  return foreign ? NameOf(foreign->window, sub) : MenuHandle{sub};
}

std::uint32_t Win32Menus::IdAt(MenuHandle menu, int position) {
  return static_cast<std::uint32_t>(
      Value(menu, {.deed = Deed::kMenuIdAt, .number = position}, kNone));
}

std::string Win32Menus::TextAt(MenuHandle menu, int position) {
  const auto reply = Do(menu, {.deed = Deed::kMenuTextAt, .number = position});
  return reply ? reply->text : std::string();
}

std::uint32_t Win32Menus::StateAt(MenuHandle menu, int position) {
  return static_cast<std::uint32_t>(
      Value(menu, {.deed = Deed::kMenuStateAt, .number = position}, kNone));
}

MenuHandle Win32Menus::CreatePopup() {
  const MenuHandle menu = FromHmenu(CreatePopupMenu());
  attached_.erase(menu);  // the handle of a menu that has died may come again
  foreign_.erase(menu);
  return menu;
}

void Win32Menus::Destroy(MenuHandle menu) {
  if (FindForeign(menu) || attached_.count(menu)) return;
  DestroyMenu(ToHmenu(menu));
}

bool Win32Menus::Holds(MenuHandle menu, MenuHandle part) {
  if (menu == part) return true;
  for (int i = Count(menu) - 1; i >= 0; --i)
    if (const MenuHandle sub = SubMenu(menu, i); sub && Holds(sub, part)) return true;
  return false;
}

// A sub-menu must be one of ours that hangs on nothing yet, and not hold what it is hung on.
bool Win32Menus::MayInsert(MenuHandle menu, MenuHandle sub) {
  if (FindForeign(sub) || !IsMenu(ToHmenu(sub))) return false;
  if (attached_.count(sub)) return false;
  return FindForeign(menu) || !Holds(sub, menu);
}

bool Win32Menus::CopyRow(MenuHandle from, int position, HWND window, std::uint32_t to) {
  const MenuHandle sub = SubMenu(from, position);
  if (sub && !Move(sub, window)) return false;
  const std::string text = TextAt(from, position);
  const auto reply = inClient_.Ask(window, {.deed = Deed::kMenuInsert,
                                            .handle = to,
                                            .number = -1,
                                            .flags = StateAt(from, position) | MF_BYPOSITION,
                                            .id = sub ? 0 : IdAt(from, position),
                                            .sub = sub ? FindForeign(sub)->real : 0,
                                            .text = text});
  return reply && reply->value;
}

bool Win32Menus::Move(MenuHandle menu, HWND window) {
  const auto made = inClient_.Ask(window, {.deed = Deed::kMenuCreate});
  const auto real = made ? static_cast<std::uint32_t>(made->value) : 0;
  if (real == 0) return false;
  const int rows = Count(menu);
  for (int i = 0; i < rows; ++i) {
    if (CopyRow(menu, i, window, real)) continue;
    inClient_.Ask(window, {.deed = Deed::kMenuDestroy, .handle = real});
    return false;
  }
  // Ours stays as an empty menu, so that its handle isn't given to another meanwhile.
  while (RemoveMenu(ToHmenu(menu), 0, MF_BYPOSITION)) continue;
  attached_.erase(menu);
  foreign_[menu] = {window, real};
  moved_[real] = menu;
  return true;
}

bool Win32Menus::Insert(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
                        MenuHandle sub, std::string_view text) {
  if (!(flags & menu_flag::kPopup)) sub = {};
  if ((flags & menu_flag::kPopup) && !MayInsert(menu, sub)) return false;
  if (Count(menu) < 0) return false;
  const Foreign* foreign = FindForeign(menu);
  if (sub && foreign && !Move(sub, foreign->window)) return false;
  const Foreign* foreignSub = FindForeign(sub);
  const bool done = Value(menu,
                          {.deed = Deed::kMenuInsert,
                           .number = at,
                           .flags = flags,
                           .id = id,
                           .sub = foreignSub ? foreignSub->real : sub.value,
                           .text = text},
                          0) != 0;
  if (done && sub && !foreignSub) attached_.insert(sub);
  return done;
}

bool Win32Menus::Modify(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
                        std::string_view text) {
  return Value(menu,
               {.deed = Deed::kMenuModify, .number = at, .flags = flags, .id = id, .text = text},
               0) != 0;
}

bool Win32Menus::Delete(MenuHandle menu, int at, std::uint32_t flags) {
  return Value(menu, {.deed = Deed::kMenuDelete, .number = at, .flags = flags}, 0) != 0;
}

void Win32Menus::DrawBar(Window window) {
  const HWND hwnd = ToHwnd(window);
  if (!hwnd || !IsWindow(hwnd)) return;
  const DeedRequest request{.deed = Deed::kMenuDrawBar, .handle = window.value};
  if (IsOurs(hwnd)) {
    DoHere(request);
  } else {
    inClient_.Ask(hwnd, request);
  }
}

std::uint32_t Win32Menus::TrackPopup(MenuHandle menu, Window owner) {
  const HWND hwnd = ToHwnd(owner);
  if (FindForeign(menu) || !IsMenu(ToHmenu(menu)) || !hwnd || !IsWindow(hwnd)) return 0;
  POINT pointer{};
  GetCursorPos(&pointer);
  SetForegroundWindow(hwnd);  // else a click elsewhere doesn't close the menu
  const MenuWatch watch(hwnd);
  const BOOL row = TrackPopupMenu(ToHmenu(menu), TPM_RETURNCMD | TPM_RIGHTBUTTON, pointer.x,
                                  pointer.y, 0, hwnd, nullptr);
  PostMessageA(hwnd, WM_NULL, 0, 0);  // and it closes at once the next time
  Callback::Rethrow();
  return static_cast<std::uint32_t>(row);
}

}  // namespace corvel::win32
