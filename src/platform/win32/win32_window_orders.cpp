// Orders to windows: enabling, showing, focus, z-order, parents, owners, keys; see
// win32_window_system.h.
#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_window_system.h"

namespace corvel::win32 {
namespace {

constexpr UINT kOnlyOrder = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
constexpr char kDialogClass[] = "#32770";

// Shares the input of another thread for the length of a block: then each may give the focus to
// the other's windows.
class SharedInput {
 public:
  explicit SharedInput(HWND window) : thread_(GetWindowThreadProcessId(window, nullptr)) {
    shared_ = thread_ && thread_ != GetCurrentThreadId() &&
              AttachThreadInput(GetCurrentThreadId(), thread_, TRUE);
  }
  ~SharedInput() {
    if (shared_) AttachThreadInput(GetCurrentThreadId(), thread_, FALSE);
  }
  SharedInput(const SharedInput&) = delete;
  SharedInput& operator=(const SharedInput&) = delete;

 private:
  DWORD thread_;
  bool shared_ = false;
};

// Later systems let only the thread that has the foreground give it away.
void BringToFront(HWND root) {
  if (GetForegroundWindow() == root) return;
  if (!SetForegroundWindow(root)) {
    if (!TakesOrders(GetForegroundWindow())) return;
    const SharedInput shared(GetForegroundWindow());
    SetForegroundWindow(root);
  }
  TakesOrders(root);  // another thread is only told of it; by its answer it has done it
}

DWORD ProcessOfWindow(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

// The user works with us, or with the process of this window.
bool IsInUse(HWND window) {
  const HWND front = GetForegroundWindow();
  if (!front) return true;
  const DWORD process = ProcessOfWindow(front);
  return process == GetCurrentProcessId() || process == ProcessOfWindow(window);
}

// The call that tells a thread's focus without sharing its input; Windows 95 has none.
using GetGuiThreadInfo = BOOL(WINAPI*)(DWORD, GUITHREADINFO*);
GetGuiThreadInfo FindGetGuiThreadInfo() {
  const FARPROC found = GetProcAddress(GetModuleHandleA("user32.dll"), "GetGUIThreadInfo");
  return reinterpret_cast<GetGuiThreadInfo>(reinterpret_cast<void*>(found));
}

class Win32UpdateLock : public UpdateLock {
 public:
  ~Win32UpdateLock() override { LockWindowUpdate(nullptr); }
};

void StrikeKey(int virtualKey, DWORD flags) {
  const auto key = static_cast<BYTE>(virtualKey);
  keybd_event(key, static_cast<BYTE>(MapVirtualKeyA(key, 0)), flags, 0);
}

BOOL CALLBACK MatchCaption(HWND window, LPARAM search);

// A visible top-level window by its caption: one that has it whole, else one that begins so.
struct CaptionSearch {
  std::string_view caption;
  HWND whole = nullptr, beginning = nullptr;

  HWND Run() {
    EnumWindows(MatchCaption, reinterpret_cast<LPARAM>(this));
    Callback::Rethrow();
    return whole ? whole : beginning;
  }
  BOOL Match(HWND window) {
    char text[512];
    const int length = IsWindowVisible(window) ? GetWindowTextA(window, text, sizeof(text)) : 0;
    const std::string_view found(text, static_cast<std::size_t>(length));
    if (EqualNoCase(found, caption))
      whole = window;
    else if (!beginning && !found.empty() && EqualNoCase(found.substr(0, caption.size()), caption))
      beginning = window;
    return whole == nullptr;
  }
};

BOOL CALLBACK MatchCaption(HWND window, LPARAM search) {
  return static_cast<BOOL>(
      Callback::Run([&] { return reinterpret_cast<CaptionSearch*>(search)->Match(window); }));
}

}  // namespace

// --- State ---------------------------------------------------------------------------------------

// From here and not by the client's own hand, which would take the focus off with it. But the
// library there, which has to be in before, knows what has been taken: it gives it back if we are
// killed, or once a client that hangs just then goes on.
void Win32WindowSystem::Enable(Window window, bool enabled) {
  const HWND handle = ToHwnd(window);
  const bool isForeign = IsWindow(handle) && !IsOurs(handle);
  const DeedRequest hold{.deed = Deed::kHold, .handle = window.value, .number = enabled ? 0 : 1};
  if (isForeign && !enabled) client_.Ask(handle, hold);
  if (TakesOrders(handle)) {
    EnableWindow(handle, enabled);
    if (isForeign && enabled) client_.Ask(handle, hold);
  } else if (enabled) {
    client_.Later(handle, Deed::kEnable, 1);
  }
  Callback::Rethrow();
}

void Win32WindowSystem::Show(Window window, int command) {
  const HWND handle = ToHwnd(window);
  if (TakesOrders(handle))
    ShowWindow(handle, command);
  else if (command != show::kHide)
    client_.Later(handle, Deed::kShow, command);
  Callback::Rethrow();
}

// --- Focus ---------------------------------------------------------------------------------------

void Win32WindowSystem::SetFocus(Window window) {
  const HWND handle = ToHwnd(window);
  if (!TakesOrders(handle)) return;
  // The focus never takes the user away from a third program.
  if (IsWindowEnabled(handle) && IsInUse(handle)) BringToFront(RootOf(handle));
  if (IsOurs(handle)) {
    ::SetFocus(handle);
  } else if (!client_.Ask(handle, {.deed = Deed::kSetFocus, .handle = window.value}) &&
             TakesOrders(handle)) {
    const SharedInput shared(handle);
    ::SetFocus(handle);
  }
  Callback::Rethrow();
}

Window Win32WindowSystem::Focus() {
  static const GetGuiThreadInfo getInfo = FindGetGuiThreadInfo();
  const HWND front = GetForegroundWindow();
  const DWORD thread = GetWindowThreadProcessId(front, nullptr);
  if (!thread) return {};
  if (thread == GetCurrentThreadId()) return FromHwnd(::GetFocus());
  if (getInfo) {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    return getInfo(thread, &info) ? FromHwnd(info.hwndFocus) : Window{};
  }
  if (!TakesOrders(front)) return {};
  const SharedInput shared(front);
  return FromHwnd(::GetFocus());
}

// --- Place ---------------------------------------------------------------------------------------

void Win32WindowSystem::BringToTop(Window window) {
  const HWND handle = ToHwnd(window);
  if (!TakesOrders(handle)) return;
  SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, kOnlyOrder);
  if (RootOf(handle) == handle && IsWindowVisible(handle)) BringToFront(handle);
  Callback::Rethrow();
}

void Win32WindowSystem::SetParent(Window window, Window parent) {
  const bool hasParent = !parent || TakesOrders(ToHwnd(parent));
  if (hasParent && TakesOrders(ToHwnd(window))) ::SetParent(ToHwnd(window), ToHwnd(parent));
  Callback::Rethrow();
}

void Win32WindowSystem::Place(Window window, const Rect& place) {
  if (TakesOrders(ToHwnd(window)))
    SetWindowPos(ToHwnd(window), nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  Callback::Rethrow();
}

void Win32WindowSystem::PlaceOnTop(Window window, const Rect& place) {
  const HWND handle = ToHwnd(window);
  if (!TakesOrders(handle)) return;
  const bool isTopLevel = RootOf(handle) == handle;
  // Activating a child is no more than telling it so.
  SetWindowPos(handle, HWND_TOP, place.left, place.top, place.width, place.height,
               isTopLevel ? SWP_NOACTIVATE : 0);
  if (isTopLevel && IsWindowVisible(handle)) BringToFront(handle);
  Callback::Rethrow();
}

void Win32WindowSystem::Resize(Window window, Size size) {
  if (TakesOrders(ToHwnd(window)))
    SetWindowPos(ToHwnd(window), nullptr, 0, 0, size.width, size.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Callback::Rethrow();
}

std::unique_ptr<UpdateLock> Win32WindowSystem::LockUpdates(Window window) {
  if (!Exists(window) || !LockWindowUpdate(ToHwnd(window))) return nullptr;
  return std::make_unique<Win32UpdateLock>();
}

void Win32WindowSystem::SetOwner(Window window, Window owner) {
  const HWND owned = ToHwnd(window);
  if (!TakesOrders(owned) || RootOf(owned) != owned) return;
  const HWND root = Exists(owner) ? RootOf(ToHwnd(owner)) : nullptr;
  for (HWND at = root; at; at = GetWindow(at, GW_OWNER))
    if (at == owned) return;  // a window can't own itself, not even by a detour
  SetWindowLongPtrA(owned, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(root));
  // The system heeds the owner at the next change of the order only.
  if (root) {
    HWND above = GetWindow(root, GW_HWNDPREV);
    for (HWND at = above; at; at = GetWindow(at, GW_HWNDPREV))
      if (at == owned) return Callback::Rethrow();
    SetWindowPos(owned, above ? above : HWND_TOP, 0, 0, 0, 0, kOnlyOrder);
  }
  Callback::Rethrow();
}

void Win32WindowSystem::SetTopMost(Window window) {
  const HWND handle = ToHwnd(window);
  if (TakesOrders(handle) && RootOf(handle) == handle)
    SetWindowPos(handle, HWND_TOPMOST, 0, 0, 0, 0, kOnlyOrder);
  Callback::Rethrow();
}

// --- Across programs -----------------------------------------------------------------------------

void Win32WindowSystem::EndDialog(Window dialog, int result) {
  const HWND handle = ToHwnd(dialog);
  if (!EqualNoCase(ClassOf(dialog), kDialogClass) || !TakesOrders(handle)) return;
  const DeedRequest request{.deed = Deed::kEndDialog,
                            .handle = dialog.value,
                            .number = static_cast<std::int32_t>(result)};
  if (IsOurs(handle))
    ::EndDialog(handle, result);
  else if (!client_.Ask(handle, request))
    PostMessageA(handle, WM_CLOSE, 0, 0);
  Callback::Rethrow();
}

bool Win32WindowSystem::ActivateByCaption(std::string_view caption) {
  const HWND found = CaptionSearch{.caption = caption}.Run();
  if (found) BringToTop(FromHwnd(found));
  return found != nullptr;
}

void Win32WindowSystem::TypeKey(int virtualKey) {
  StrikeKey(virtualKey, 0);
  StrikeKey(virtualKey, KEYEVENTF_KEYUP);
}

void Win32WindowSystem::TypeControlKey(int virtualKey) {
  StrikeKey(VK_CONTROL, 0);
  TypeKey(virtualKey);
  StrikeKey(VK_CONTROL, KEYEVENTF_KEYUP);
}

}  // namespace corvel::win32
