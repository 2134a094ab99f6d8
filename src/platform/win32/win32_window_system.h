// The windows of all processes, by the system's own calls.
//
// What goes to another process is bounded: a process that does not answer in time counts as one
// whose window has died. What only that process's own thread can do goes through InClient.
#pragma once

#include "platform/win32/in_client.h"
#include "platform/window_system.h"

#include <optional>
#include <windows.h>

namespace corvel::win32 {

class Win32WindowSystem : public WindowSystem {
 public:
  explicit Win32WindowSystem(InClient& client) : client_(client) {}

  Window Find(std::optional<std::string_view> className,
              std::optional<std::string_view> caption) override;
  Window FindChild(Window parent, Window after, std::optional<std::string_view> className,
                   std::optional<std::string_view> caption) override;
  Window TopChild(Window parent) override;
  Window Next(Window window) override;
  Window Parent(Window window) override;
  bool EnumDescendants(Window parent, const std::function<bool(Window)>& visit) override;

  bool Exists(Window window) override;
  bool IsVisible(Window window) override;
  bool IsEnabled(Window window) override;
  bool IsIconic(Window window) override;
  bool IsZoomed(Window window) override;
  std::string ClassOf(Window window) override;
  ProcessId ProcessOf(Window window) override;
  Rect PlaceOf(Window window) override;
  Rect PlaceInParent(Window window) override;
  Size ClientSizeOf(Window window) override;

  MessageResult Send(Window window, MessageId id, WParam wParam, LParam lParam) override;
  MessageResult SendText(Window window, MessageId id, WParam wParam,
                         std::string_view text) override;
  std::string SendForText(Window window, MessageId id, WParam wParam, std::size_t room) override;
  bool Post(Window window, MessageId id, WParam wParam, LParam lParam) override;

  void Enable(Window window, bool enabled) override;
  void Show(Window window, int command) override;
  void SetFocus(Window window) override;
  Window Focus() override;
  void BringToTop(Window window) override;
  void SetParent(Window window, Window parent) override;
  void Place(Window window, const Rect& place) override;
  void PlaceOnTop(Window window, const Rect& place) override;
  void Resize(Window window, Size size) override;
  std::unique_ptr<UpdateLock> LockUpdates(Window window) override;
  void SetOwner(Window window, Window owner) override;
  void SetTopMost(Window window) override;
  void EndDialog(Window dialog, int result) override;
  bool ActivateByCaption(std::string_view caption) override;
  void TypeKey(int virtualKey) override;
  void TypeControlKey(int virtualKey) override;

 private:
  std::string AskListText(HWND window, bool combo, WParam row);

  InClient& client_;
};

// The message sent, to a window of any process; nothing if it was not answered.
std::optional<LRESULT> Ask(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
// A window of this thread.
bool IsOurs(HWND window);
// It lives, and its process takes orders now.
bool TakesOrders(HWND window);
// The top-level window that this one stands in, or is.
HWND RootOf(HWND window);

}  // namespace corvel::win32
