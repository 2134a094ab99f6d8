// The window system as the program sees it: finding, reading, sending, placing windows of any
// process.
//
// Rules for every method, unless it says otherwise:
// - A window that is 0 or has died is no error: questions answer 0, false or "", orders do nothing.
// - Class names are compared without case. Captions in Find and FindChild are compared without case
//   and whole.
// - Texts are Windows-1252.
// - "Sent" runs the window's procedure before the call comes back, in whatever process it lives,
// and
//   so may re-enter the caller through hooks and through messages that the procedure sends. A
//   process that hangs is given up after a bounded time and counts as a dead window.
#pragma once

#include "platform/window_types.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvel {

// A window whose drawing stands still, until the object goes. The window may die first.
class UpdateLock {
 public:
  virtual ~UpdateLock() = default;
};

class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  // --- Finding -------------------------------------------------------------------------------

  // The first top-level window in z-order with this class and caption; nullopt matches any.
  virtual Window Find(std::optional<std::string_view> className,
                      std::optional<std::string_view> caption) = 0;
  // The first child of `parent` behind `after` (0: from the first) with this class and caption.
  // An `after` that is no child of `parent` gives 0.
  virtual Window FindChild(Window parent, Window after, std::optional<std::string_view> className,
                           std::optional<std::string_view> caption) = 0;
  // The topmost child in z-order; with 0, the topmost top-level window.
  virtual Window TopChild(Window parent) = 0;
  // The next window below this one among its siblings.
  virtual Window Next(Window window) = 0;
  // The parent of a child window; for a top-level window its owner.
  virtual Window Parent(Window window) = 0;
  // Calls `visit` for every descendant of `parent`, parents before their children, in z-order,
  // until it answers false. The list is taken before the first call; windows that die meanwhile are
  // skipped. True if the walk ended unstopped (also with no descendant at all).
  virtual bool EnumDescendants(Window parent, const std::function<bool(Window)>& visit) = 0;

  // --- State ---------------------------------------------------------------------------------

  virtual bool Exists(Window window) = 0;
  virtual bool IsVisible(Window window) = 0;  // it and all its parents
  virtual bool IsEnabled(Window window) = 0;
  virtual bool IsIconic(Window window) = 0;
  virtual bool IsZoomed(Window window) = 0;
  virtual std::string ClassOf(Window window) = 0;
  virtual ProcessId ProcessOf(Window window) = 0;
  virtual Rect PlaceOf(Window window) = 0;  // in screen pixels
  // The same in the pixels of its parent's client area, as Place takes it.
  virtual Rect PlaceInParent(Window window) = 0;
  // Inside of frame, title and menu bar; nothing for an iconic window.
  virtual Size ClientSizeOf(Window window) = 0;

  // --- Messages ------------------------------------------------------------------------------

  // Sent; the procedure's answer, or 0.
  virtual MessageResult Send(Window window, MessageId id, WParam wParam, LParam lParam) = 0;
  // Sent, with a text (kSetText and its like). A private message takes its text to windows of this
  // process only.
  virtual MessageResult SendText(Window window, MessageId id, WParam wParam,
                                 std::string_view text) = 0;
  // Sent, asking for a text: at most `room` - 1 characters come back, as with a buffer of that
  // size. For kGetText wParam is `room`; for a list's texts it is `wParam`, the row.
  virtual std::string SendForText(Window window, MessageId id, WParam wParam, std::size_t room) = 0;
  // Put in the window's queue; runs at some later pump of its process, in order of posting.
  // False for a dead window.
  virtual bool Post(Window window, MessageId id, WParam wParam, LParam lParam) = 0;

  // --- Orders --------------------------------------------------------------------------------

  virtual void Enable(Window window, bool enabled) = 0;
  virtual void Show(Window window, int command) = 0;  // namespace show
  // Gives the keyboard focus, also to a window of another process.
  virtual void SetFocus(Window window) = 0;
  virtual Window Focus() = 0;  // the window with the focus in the foreground process, or 0
  virtual void BringToTop(Window window) = 0;
  virtual void SetParent(Window window, Window parent) = 0;
  // In the parent's pixels; the order of the siblings and the activation stay as they are. The
  // window is told by kMove and kSize, with the place and size of its client area, where these
  // change.
  virtual void Place(Window window, const Rect& place) = 0;
  // The same, and to the top of its siblings: a child gets kChildActivate first, a visible
  // top-level window is activated.
  virtual void PlaceOnTop(Window window, const Rect& place) = 0;
  virtual void Resize(Window window, Size size) = 0;  // outer; place and order stay
  // Stops all drawing in a window and in what stands in it, of whatever process, until the lock
  // goes; then the window is drawn anew. nullptr if the window is dead or any window of the system
  // is locked: there is one such lock.
  virtual std::unique_ptr<UpdateLock> LockUpdates(Window window) = 0;
  // Makes `window` owned by `owner`, also across processes: it stays above it and dies with it.
  virtual void SetOwner(Window window, Window owner) = 0;
  virtual void SetTopMost(Window window) = 0;
  // Closes a standard dialog of any process with `result`, as its own code would.
  virtual void EndDialog(Window dialog, int result) = 0;
  // Activates the top-level window with this caption (whole, else as a beginning). False: none.
  virtual bool ActivateByCaption(std::string_view caption) = 0;
  // Types the key with this virtual code at whatever window has the focus by then: each of its
  // messages finds that out when it is taken, so a key may move the focus that the next one meets.
  virtual void TypeKey(int virtualKey) = 0;
  // The same with Control held, whose own key goes down before and up behind. The character is what
  // the system makes of both (10 for Enter).
  virtual void TypeControlKey(int virtualKey) = 0;
};

}  // namespace corvel
