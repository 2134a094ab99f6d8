// The desk's windows, menus, hooks and messages.
#pragma once

#include "platform/desk/desk.h"

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvel::desk {

class DeskWindows : public WindowSystem, public OwnWindows {
 public:
  explicit DeskWindows(Desk& desk);
  ~DeskWindows() override;

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

  Window Create(const NewWindow& window, WindowProcedure& procedure) override;
  MessageResult Default(Window window, const Message& message) override;
  void Destroy(Window window) override;
  void SetMenuBar(Window window, MenuHandle menu) override;
  MenuHandle CreateMenuBar() override;
  Window ShowDialog(Window owner, const std::string& caption, const std::string& text) override;

  // Looking on. Texts are read past procedures and hooks.
  std::string CaptionOf(Window window) const;
  std::vector<Window> AllWindows() const;
  std::size_t HookCount() const;  // windows of others that are hooked by any process
  std::vector<Window> HookedWindows() const;
  Window LockedForUpdates() const;
  // A process that hangs: whoever needs it waits with it, at most until it has hung for the bounded
  // time.
  void SetHung(ProcessId process, bool hung);
  bool IsHung(ProcessId process) const;

  struct Impl;
  Impl& impl() { return *impl_; }

 private:
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::desk
