// Where windows stand: places, sizes, iconic and zoomed, and the one lock on drawing.
#include "platform/desk/desk_core.h"
#include "platform/desk/desk_services.h"

#include <algorithm>

namespace corvel::desk {
namespace {

constexpr Size kIcon{160, 24};
constexpr int kOffScreen = -32000;

LParam Packed(int low, int high) { return (high << 16) | (low & 0xFFFF); }

WParam SizeWord(const WindowNode& node) {
  constexpr WParam kRestored = 0, kMinimized = 1, kMaximized = 2;
  if (node.iconic) return kMinimized;
  return node.zoomed ? kMaximized : kRestored;
}

class DeskUpdateLock : public UpdateLock {
 public:
  DeskUpdateLock(DeskWindows::Impl& windows, std::uint64_t number)
      : windows_(windows), number_(number) {}
  ~DeskUpdateLock() override {
    if (windows_.updateLock.number == number_) windows_.updateLock = {};
  }

 private:
  DeskWindows::Impl& windows_;
  std::uint64_t number_;
};

}  // namespace

// --- Asking --------------------------------------------------------------------------------------

bool DeskWindows::IsZoomed(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node && node->zoomed && !node->iconic;
}

Rect DeskWindows::PlaceOf(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node ? WindowTree::ScreenPlace(*node) : Rect{};
}

Rect DeskWindows::PlaceInParent(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node ? node->place : Rect{};
}

Size DeskWindows::ClientSizeOf(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  if (!node) return {};
  const Rect area = WindowTree::ClientArea(*node);
  return {area.width, area.height};
}

// --- Placing -------------------------------------------------------------------------------------

void DeskWindows::Impl::TellSize(Window window) {
  if (const WindowNode* node = tree.Find(window)) {
    const Rect area = WindowTree::ClientArea(*node);
    Ask(window,
        {.id = wm::kSize, .wParam = SizeWord(*node), .lParam = Packed(area.width, area.height)});
  }
}

void DeskWindows::Impl::TellMove(Window window) {
  if (const WindowNode* node = tree.Find(window)) {
    const Rect area = WindowTree::ClientArea(*node);
    Ask(window, {.id = wm::kMove,
                 .lParam = Packed(node->place.left + area.left, node->place.top + area.top)});
  }
}

void DeskWindows::Impl::PlaceNode(Window window, Rect place) {
  WindowNode* node = tree.Find(window);
  if (!node) return;
  const Rect before = node->place;
  place.width = node->iconic ? before.width : std::max(place.width, 0);
  place.height = node->iconic ? before.height : std::max(place.height, 0);
  node->place = place;
  if (place.left != before.left || place.top != before.top) TellMove(window);
  if (place.width != before.width || place.height != before.height) TellSize(window);
}

void DeskWindows::Place(Window window, const Rect& place) {
  impl_->PlaceNode(window, place);
  impl_->core().processes.ThrowIfEnded();
}

void DeskWindows::PlaceOnTop(Window window, const Rect& place) {
  WindowNode* node = impl_->tree.Find(window);
  if (!node) return;
  impl_->tree.Raise(*node);
  const bool isChild = !impl_->tree.IsTopLevel(*node);
  if (isChild) impl_->Ask(window, {.id = wm::kChildActivate});
  impl_->PlaceNode(window, place);
  if (!isChild && IsVisible(window)) impl_->MoveFocus(window);
  impl_->core().processes.ThrowIfEnded();
}

void DeskWindows::Resize(Window window, Size size) {
  const Rect now = PlaceInParent(window);
  Place(window, {now.left, now.top, size.width, size.height});
}

// --- Iconic and zoomed ---------------------------------------------------------------------------

// A zoomed window's frame lies outside of what it fills, an icon at the bottom of it.
Rect DeskWindows::Impl::PlaceFor(const WindowNode& node) {
  const bool isTopLevel = tree.IsTopLevel(node);
  const Size screen = core().services->display().ScreenSize();
  const Rect space =
      isTopLevel ? Rect{0, 0, screen.width, screen.height} : WindowTree::ClientArea(*node.parent);
  if (node.iconic && isTopLevel) return {kOffScreen, kOffScreen, kIcon.width, kIcon.height};
  if (node.iconic) return {0, space.height - kIcon.height, kIcon.width, kIcon.height};
  if (!node.zoomed) return node.normalPlace;
  const int frame = node.frameLeft;
  return {-frame, -frame, space.width + 2 * frame, space.height + 2 * frame};
}

void DeskWindows::Impl::SetState(Window window, bool iconic, bool zoomed, bool activates) {
  WindowNode* node = tree.Find(window);
  if (!node || (node->iconic == iconic && node->zoomed == zoomed)) return;
  if (!node->iconic && !node->zoomed) node->normalPlace = node->place;
  node->iconic = iconic;
  node->zoomed = zoomed;
  node->place = PlaceFor(*node);
  if (activates && !tree.IsTopLevel(*node)) Ask(window, {.id = wm::kChildActivate});
  TellMove(window);
  TellSize(window);
}

// --- The lock ------------------------------------------------------------------------------------

std::unique_ptr<UpdateLock> DeskWindows::LockUpdates(Window window) {
  if (!Exists(window) || impl_->updateLock.window) return nullptr;
  impl_->updateLock = {window, &impl_->core().processes.Current(), ++impl_->lastLock};
  return std::make_unique<DeskUpdateLock>(*impl_, impl_->lastLock);
}

Window DeskWindows::LockedForUpdates() const { return impl_->updateLock.window; }

}  // namespace corvel::desk
