// Orders to windows: enabling, showing, focus, z-order, parents, owners, keys.
#include "base/cp1252.h"
#include "base/text.h"
#include "platform/desk/desk_core.h"

namespace corvel::desk {
namespace {

constexpr int kShowMinimized = 2, kShowMinNoActive = 7;

// A window that is restored from being iconic is zoomed again if it was so before.
enum class ShowAs { kAsItIs, kRestored, kZoomed, kIconic };
struct ShowEffect {
  int command;
  bool visible;
  ShowAs as;
  bool activates;
};
constexpr ShowEffect kShowEffects[] = {
    {show::kHide, false, ShowAs::kAsItIs, false},
    {show::kNormal, true, ShowAs::kRestored, true},
    {kShowMinimized, true, ShowAs::kIconic, true},
    {show::kMaximized, true, ShowAs::kZoomed, true},
    {show::kNoActivate, true, ShowAs::kRestored, false},
    {show::kShow, true, ShowAs::kAsItIs, true},
    {show::kMinimize, true, ShowAs::kIconic, false},
    {kShowMinNoActive, true, ShowAs::kIconic, false},
    {show::kRestore, true, ShowAs::kRestored, true},
};

bool TakesFocus(const WindowNode& node) {
  for (const WindowNode* at = &node; at; at = at->parent)
    if (!at->enabled || at->iconic || at->destroying) return false;
  return true;
}

bool BeginsWithNoCase(std::string_view text, std::string_view beginning) {
  return EqualNoCase(text.substr(0, beginning.size()), beginning);
}

// The character that a key types by itself, or 0.
WParam CharacterOf(int virtualKey) {
  constexpr int kBackspace = 8, kTab = 9, kEnter = 13, kEscape = 27, kBlank = 32;
  switch (virtualKey) {
    case kBackspace:
    case kTab:
    case kEnter:
    case kEscape:
    case kBlank:
      return static_cast<WParam>(virtualKey);
    default:
      break;
  }
  const bool typed =
      (virtualKey >= '0' && virtualKey <= '9') || (virtualKey >= 'A' && virtualKey <= 'Z');
  return typed ? static_cast<unsigned char>(LowerChar(static_cast<char>(virtualKey))) : 0;
}

// What it types with Control held, or 0.
WParam ControlCharacterOf(int virtualKey) {
  constexpr int kBackspace = 8, kEnter = 13, kEscape = 27, kBlank = 32;
  constexpr WParam kDelete = 127, kLineFeed = 10;
  if (virtualKey == kBackspace) return kDelete;
  if (virtualKey == kEnter) return kLineFeed;
  if (virtualKey == kEscape || virtualKey == kBlank) return static_cast<WParam>(virtualKey);
  return virtualKey >= 'A' && virtualKey <= 'Z' ? static_cast<WParam>(virtualKey - 'A' + 1) : 0;
}

}  // namespace

// --- Focus ---------------------------------------------------------------------------------------

void DeskWindows::Impl::MoveFocus(Window window) {
  WindowNode* node = tree.Find(window);
  if (window && (!node || !TakesFocus(*node))) return;
  if (node) tree.Raise(tree.RootOf(*node));
  if (focus == window) return;
  const Window before = focus;
  focus = window;
  Ask(before, {.id = wm::kKillFocus, .wParam = window.value});
  if (focus == window) Ask(window, {.id = wm::kSetFocus, .wParam = before.value});
}

void DeskWindows::Impl::MoveFocusOff(WindowNode& leaving) {
  const WindowNode* focused = tree.Find(focus);
  if (!focused || !WindowTree::IsWithin(*focused, leaving)) return;
  if (!tree.IsTopLevel(leaving)) {
    const bool parentTakes = TakesFocus(*leaving.parent);
    return MoveFocus(parentTakes ? leaving.parent->handle : Window{});
  }
  const WindowNode* next = tree.Find(leaving.owner);
  if (!next || !next->visible || !TakesFocus(*next)) {
    next = tree.Desktop().firstChild;
    while (next && (next == &leaving || !next->visible || !TakesFocus(*next))) next = next->next;
  }
  MoveFocus(next ? next->handle : Window{});
}

void DeskWindows::SetFocus(Window window) {
  if (Exists(window)) impl_->MoveFocus(window);
  impl_->core().processes.ThrowIfEnded();
}

Window DeskWindows::Focus() { return impl_->focus; }

// --- State ---------------------------------------------------------------------------------------

void DeskWindows::Enable(Window window, bool enabled) {
  WindowNode* node = impl_->tree.Find(window);
  if (!node || node->enabled == enabled) return;
  node->enabled = enabled;
  const bool byItself = node->process == &impl_->core().processes.Current();
  if (!enabled && byItself && impl_->focus == window) impl_->MoveFocus({});
  impl_->Ask(window, {.id = wm::kEnable, .wParam = enabled});
  impl_->core().processes.ThrowIfEnded();
}

void DeskWindows::Impl::ShowNode(Window window, bool visible) {
  WindowNode* node = tree.Find(window);
  if (!node || node->visible == visible) return;
  Ask(window, {.id = wm::kShowWindow, .wParam = visible});
  node = tree.Find(window);
  if (!node) return;
  node->visible = visible;
  if (!visible) MoveFocusOff(*node);
}

void DeskWindows::Show(Window window, int command) {
  for (const ShowEffect& effect : kShowEffects) {
    if (effect.command != command) continue;
    const WindowNode* node = impl_->tree.Find(window);
    if (node && effect.as != ShowAs::kAsItIs) {
      const bool zoomed = effect.as == ShowAs::kZoomed ||
                          (node->zoomed && (node->iconic || effect.as == ShowAs::kIconic));
      impl_->SetState(window, effect.as == ShowAs::kIconic, zoomed, effect.activates);
    }
    impl_->ShowNode(window, effect.visible);
    node = impl_->tree.Find(window);
    if (node && effect.activates && impl_->tree.IsTopLevel(*node)) impl_->MoveFocus(window);
  }
  impl_->core().processes.ThrowIfEnded();
}

// --- Order ---------------------------------------------------------------------------------------

void DeskWindows::BringToTop(Window window) {
  WindowNode* node = impl_->tree.Find(window);
  if (!node) return;
  impl_->tree.Raise(*node);
  if (impl_->tree.IsTopLevel(*node) && node->visible) impl_->MoveFocus(window);
  impl_->core().processes.ThrowIfEnded();
}

void DeskWindows::SetParent(Window window, Window parent) {
  WindowTree& tree = impl_->tree;
  WindowNode* node = tree.Find(window);
  WindowNode* newParent = parent ? tree.Find(parent) : &tree.Desktop();
  if (!node || !newParent || WindowTree::IsWithin(*newParent, *node)) return;
  tree.Unlink(*node);
  tree.LinkTop(*node, *newParent);
}

void DeskWindows::SetOwner(Window window, Window owner) {
  WindowTree& tree = impl_->tree;
  WindowNode* node = tree.Find(window);
  if (!node || !tree.IsTopLevel(*node)) return;
  WindowNode* ownerNode = tree.Find(owner);
  if (!ownerNode) {
    node->owner = {};
    return;
  }
  WindowNode& root = tree.RootOf(*ownerNode);
  for (const WindowNode* at = &root; at; at = tree.Find(at->owner))
    if (at == node) return;  // a window can't own itself, not even by a detour
  node->owner = root.handle;
  tree.PutAbove(*node, root);
}

void DeskWindows::SetTopMost(Window window) {
  WindowNode* node = impl_->tree.Find(window);
  if (!node || !impl_->tree.IsTopLevel(*node)) return;
  node->topMost = true;
  impl_->tree.Raise(*node);
}

// --- Across programs -----------------------------------------------------------------------------

void DeskWindows::EndDialog(Window dialog, int) {
  const WindowNode* node = impl_->tree.Find(dialog);
  if (!node || node->atom != impl_->tree.Classes().Lookup("#32770")) return;
  if (node->process->hung) return;
  impl_->core().processes.Call(*node->process, [&] { impl_->DestroyTree(dialog); });
  impl_->core().processes.ThrowIfEnded();
}

bool DeskWindows::ActivateByCaption(std::string_view caption) {
  const WindowNode* found = nullptr;
  for (const WindowNode* node = impl_->tree.Desktop().firstChild; node; node = node->next) {
    if (!node->visible) continue;
    if (EqualNoCase(node->Text(), caption)) {
      found = node;
      break;
    }
    if (!found && BeginsWithNoCase(node->Text(), caption)) found = node;
  }
  if (!found) return false;
  BringToTop(found->handle);
  return true;
}

void DeskWindows::TypeKey(int virtualKey) {
  Scheduler& scheduler = *impl_->core().scheduler;
  scheduler.PostKey(wm::kKeyDown, virtualKey, CharacterOf(virtualKey));
  scheduler.PostKey(wm::kKeyUp, virtualKey);
}

void DeskWindows::TypeControlKey(int virtualKey) {
  constexpr int kControl = 17;
  Scheduler& scheduler = *impl_->core().scheduler;
  scheduler.PostKey(wm::kKeyDown, kControl);
  scheduler.PostKey(wm::kKeyDown, virtualKey, ControlCharacterOf(virtualKey));
  scheduler.PostKey(wm::kKeyUp, virtualKey);
  scheduler.PostKey(wm::kKeyUp, kControl);
}

}  // namespace corvel::desk
