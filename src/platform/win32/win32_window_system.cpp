// Finding and asking about windows; see win32_window_system.h.
#include "platform/win32/win32_window_system.h"

#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <vector>

namespace corvel::win32 {
namespace {

constexpr int kLongestClassName = 256;

// A text that may be left out, as the system takes it.
class OptionalText {
 public:
  explicit OptionalText(std::optional<std::string_view> text)
      : given_(text.has_value()), text_(text.value_or("")) {}
  const char* get() const { return given_ ? text_.c_str() : nullptr; }

 private:
  bool given_;
  std::string text_;
};

BOOL CALLBACK AddToList(HWND window, LPARAM list) {
  return static_cast<BOOL>(Callback::Run([&] {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
  }));
}

}  // namespace

HWND RootOf(HWND window) {
  while (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) {
    const HWND parent = ::GetParent(window);
    if (!parent) break;
    window = parent;
  }
  return window;
}

Window Win32WindowSystem::Find(std::optional<std::string_view> className,
                               std::optional<std::string_view> caption) {
  return FindChild({}, {}, className, caption);
}

Window Win32WindowSystem::FindChild(Window parent, Window after,
                                    std::optional<std::string_view> className,
                                    std::optional<std::string_view> caption) {
  return FromHwnd(FindWindowExA(ToHwnd(parent), ToHwnd(after), OptionalText(className).get(),
                                OptionalText(caption).get()));
}

Window Win32WindowSystem::TopChild(Window parent) { return FromHwnd(GetTopWindow(ToHwnd(parent))); }

Window Win32WindowSystem::Next(Window window) {
  return FromHwnd(GetWindow(ToHwnd(window), GW_HWNDNEXT));
}

Window Win32WindowSystem::Parent(Window window) {
  // The system's own question tells the owner of a pop-up only, not of any top-level window.
  const HWND handle = ToHwnd(window);
  const bool isChild = GetWindowLongA(handle, GWL_STYLE) & WS_CHILD;
  const HWND parent = isChild ? ::GetParent(handle) : GetWindow(handle, GW_OWNER);
  return parent == GetDesktopWindow() ? Window{} : FromHwnd(parent);
}

bool Win32WindowSystem::EnumDescendants(Window parent, const std::function<bool(Window)>& visit) {
  if (!Exists(parent)) return true;
  std::vector<HWND> list;
  EnumChildWindows(ToHwnd(parent), AddToList, reinterpret_cast<LPARAM>(&list));
  Callback::Rethrow();
  for (const HWND window : list)
    if (IsWindow(window) && !visit(FromHwnd(window))) return false;
  return true;
}

bool Win32WindowSystem::Exists(Window window) { return IsWindow(ToHwnd(window)); }
bool Win32WindowSystem::IsVisible(Window window) { return IsWindowVisible(ToHwnd(window)); }
bool Win32WindowSystem::IsEnabled(Window window) { return IsWindowEnabled(ToHwnd(window)); }
bool Win32WindowSystem::IsIconic(Window window) { return ::IsIconic(ToHwnd(window)); }
bool Win32WindowSystem::IsZoomed(Window window) { return ::IsZoomed(ToHwnd(window)); }

std::string Win32WindowSystem::ClassOf(Window window) {
  char name[kLongestClassName + 1];
  const int length = GetClassNameA(ToHwnd(window), name, sizeof(name));
  return {name, static_cast<std::size_t>(length > 0 ? length : 0)};
}

ProcessId Win32WindowSystem::ProcessOf(Window window) {
  DWORD process = 0;
  GetWindowThreadProcessId(ToHwnd(window), &process);
  return process;
}

Rect Win32WindowSystem::PlaceOf(Window window) {
  RECT place{};
  if (!GetWindowRect(ToHwnd(window), &place)) return {};
  return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

Rect Win32WindowSystem::PlaceInParent(Window window) {
  Rect place = PlaceOf(window);
  const bool isChild = GetWindowLongA(ToHwnd(window), GWL_STYLE) & WS_CHILD;
  POINT corner{place.left, place.top};
  if (isChild && ScreenToClient(::GetParent(ToHwnd(window)), &corner))
    place = {corner.x, corner.y, place.width, place.height};
  return place;
}

Size Win32WindowSystem::ClientSizeOf(Window window) {
  RECT area{};
  if (!GetClientRect(ToHwnd(window), &area)) return {};
  return {area.right, area.bottom};
}

}  // namespace corvel::win32
