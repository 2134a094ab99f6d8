// Windows with a procedure of ours; see win32_own_windows.h.
#include "platform/win32/win32_own_windows.h"

#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_dialog.h"
#include "platform/win32/win32_text.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace corvel::win32 {
namespace {

constexpr char kRichEditLibrary[] = "RICHED32.DLL";

// The styles with which a window of a system class does what is wanted of it here.
struct SystemClassStyle {
  const char* name;
  DWORD style;
};
constexpr SystemClassStyle kSystemStyles[] = {
    {"EDIT", WS_TABSTOP | ES_AUTOHSCROLL},
    {"RICHEDIT", WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN},
    {"BUTTON", WS_TABSTOP | BS_PUSHBUTTON},
    {"LISTBOX", WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS},
    {"COMBOBOX", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS},
    {"STATIC", SS_LEFT | SS_NOPREFIX},
};

DWORD SystemStyle(const std::string& systemClass) {
  for (const SystemClassStyle& row : kSystemStyles)
    if (EqualNoCase(row.name, systemClass)) return row.style;
  return 0;
}

DWORD StyleOf(const NewWindow& window) {
  DWORD style = window.parent ? WS_CHILD | WS_CLIPSIBLINGS : WS_OVERLAPPEDWINDOW;
  style |= WS_CLIPCHILDREN | SystemStyle(window.systemClass);
  if (window.mdiChild) style |= WS_OVERLAPPEDWINDOW;
  if (!window.enabled) style |= WS_DISABLED;
  return style;
}

// The one whose windows these are; the system hands no object to a window procedure.
Win32OwnWindows* g_ownWindows = nullptr;

}  // namespace

Win32OwnWindows::Win32OwnWindows(Win32EventLoop& events)
    : dialogs_(std::make_unique<StandardDialogs>(events)) {
  g_ownWindows = this;
}

Win32OwnWindows::~Win32OwnWindows() {
  g_ownWindows = nullptr;
  std::vector<HWND> left;
  for (const auto& [window, behind] : windows_) left.push_back(window);
  for (const HWND window : left) DestroyWindow(window);
  for (const auto& [name, made] : classes_)
    UnregisterClassA(name.c_str(), GetModuleHandleA(nullptr));
}

// --- Making --------------------------------------------------------------------------------------

const Win32OwnWindows::Class* Win32OwnWindows::Register(const std::string& name,
                                                        const std::string& systemClass) {
  if (const auto known = classes_.find(Lower(name)); known != classes_.end())
    return EqualNoCase(known->second.systemClass, systemClass) ? &known->second : nullptr;
  WNDCLASSA made{};
  Class kept{.systemClass = systemClass, .systemProcedure = nullptr};
  if (EqualNoCase(systemClass, "RICHEDIT")) LoadLibraryA(kRichEditLibrary);
  if (!systemClass.empty()) {
    if (!GetClassInfoA(nullptr, systemClass.c_str(), &made)) return nullptr;
    kept.systemProcedure = made.lpfnWndProc;
  } else {
    made.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    made.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  }
  made.style = (made.style & ~static_cast<UINT>(CS_GLOBALCLASS)) | CS_DBLCLKS;
  made.lpfnWndProc = Procedure;
  made.hInstance = GetModuleHandleA(nullptr);
  made.lpszClassName = name.c_str();
  made.lpszMenuName = nullptr;
  if (!RegisterClassA(&made)) return nullptr;
  return &classes_.emplace(Lower(name), std::move(kept)).first->second;
}

HWND Win32OwnWindows::Make(const NewWindow& window, const Behind& behind) {
  const auto* const before = std::exchange(making_, &behind);
  const auto id = reinterpret_cast<HMENU>(static_cast<std::intptr_t>(window.id));
  const HWND made = CreateWindowExA(
      0, window.className.c_str(), window.caption.c_str(), StyleOf(window), window.place.left,
      window.place.top, window.place.width, window.place.height, ToHwnd(window.parent),
      window.parent ? id : nullptr, GetModuleHandleA(nullptr), nullptr);
  making_ = before;
  Callback::Rethrow();
  return made;
}

Window Win32OwnWindows::Create(const NewWindow& window, WindowProcedure& procedure) {
  if (window.parent && !IsWindow(ToHwnd(window.parent))) return {};
  const Class* known = Register(window.className, window.systemClass);
  if (!known) return {};
  if (window.mdiChild) SendMessageA(ToHwnd(window.parent), WM_MDICREATE, 0, 0);
  Callback::Rethrow();
  const HWND made = Make(window, {&procedure, known->systemProcedure, window.mdiChild});
  if (!made) return {};
  if (window.mdiChild)
    SetWindowPos(made, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  if (window.visible) ShowWindow(made, window.parent ? SW_SHOWNA : SW_SHOWNORMAL);
  Callback::Rethrow();
  return IsWindow(made) ? FromHwnd(made) : Window{};
}

void Win32OwnWindows::Destroy(Window window) {
  if (IsWindow(ToHwnd(window))) DestroyWindow(ToHwnd(window));
  Callback::Rethrow();
}

// --- Messages ------------------------------------------------------------------------------------

LRESULT CALLBACK Win32OwnWindows::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  if (!g_ownWindows) return DefWindowProcA(window, id, wParam, lParam);
  const LRESULT result =
      Callback::Run([&] { return g_ownWindows->OnMessage(window, id, wParam, lParam); });
  if (id == WM_NCDESTROY && g_ownWindows) g_ownWindows->windows_.erase(window);
  return result;
}

Win32OwnWindows::Behind* Win32OwnWindows::Find(HWND window) {
  const auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : &found->second;
}

LRESULT Win32OwnWindows::OnMessage(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  if (making_ && !Find(window)) windows_[window] = *std::exchange(making_, nullptr);
  const Behind* behind = Find(window);
  if (!behind) return DefWindowProcA(window, id, wParam, lParam);
  Message message{.id = id, .wParam = wParam, .lParam = lParam};
  if (CarriesText(id))
    message.text = lParam ? reinterpret_cast<const char*>(lParam) : "";
  else if (const auto text = TextUnderWay::Find(window, id, lParam))
    message.text = *text;
  return Tell(*behind->procedure, window, message);
}

LRESULT Win32OwnWindows::Tell(WindowProcedure& procedure, HWND window, const Message& message) {
  if (message.id != WM_GETTEXT) return procedure.OnMessage(FromHwnd(window), message);
  std::string answer;
  Message asking = message;
  asking.answer = &answer;
  procedure.OnMessage(FromHwnd(window), asking);
  if (message.wParam == 0) return 0;
  const std::size_t length = std::min<std::size_t>(answer.size(), message.wParam - 1);
  char* const room = reinterpret_cast<char*>(message.lParam);
  std::memcpy(room, answer.data(), length);
  room[length] = '\0';
  return static_cast<LRESULT>(length);
}

LRESULT Win32OwnWindows::CallSystem(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  const Behind* behind = Find(window);
  const LRESULT result = behind && behind->systemProcedure
                             ? CallWindowProcA(behind->systemProcedure, window, id, wParam, lParam)
                             : DefWindowProcA(window, id, wParam, lParam);
  Callback::Rethrow();
  return result;
}

MessageResult Win32OwnWindows::Default(Window window, const Message& message) {
  const HWND handle = ToHwnd(window);
  if (!IsWindow(handle)) return 0;
  if (CarriesText(message.id)) {
    const std::string text(message.text);
    return CallSystem(handle, message.id, message.wParam, reinterpret_cast<LPARAM>(text.c_str()));
  }
  if (message.id == WM_GETTEXT && message.answer) {
    std::string room(std::max<std::size_t>(message.wParam, 1), '\0');
    const LRESULT length =
        CallSystem(handle, WM_GETTEXT, room.size(), reinterpret_cast<LPARAM>(room.data()));
    message.answer->assign(room, 0, static_cast<std::size_t>(length));
    return length;
  }
  const Behind* behind = Find(handle);
  if (message.id == WM_MOUSEACTIVATE && behind && behind->mdiChild)
    SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return CallSystem(handle, message.id, message.wParam, message.lParam);
}

// --- Menus and dialogs ---------------------------------------------------------------------------

void Win32OwnWindows::SetMenuBar(Window window, MenuHandle menu) {
  if (IsWindow(ToHwnd(window))) SetMenu(ToHwnd(window), ToHmenu(menu));
  Callback::Rethrow();
}

MenuHandle Win32OwnWindows::CreateMenuBar() { return FromHmenu(CreateMenu()); }

Window Win32OwnWindows::ShowDialog(Window owner, const std::string& caption,
                                   const std::string& text) {
  return FromHwnd(dialogs_->Show(ToHwnd(owner), caption, text));
}

}  // namespace corvel::win32
