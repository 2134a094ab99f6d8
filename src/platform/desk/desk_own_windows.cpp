// Making and destroying windows.
#include "platform/desk/desk_core.h"
#include "platform/desk/standard_classes.h"

namespace corvel::desk {
namespace {

// Of a window that can be sized, at the system's usual sizes.
constexpr int kFrame = 4, kTitle = 19;

}  // namespace

WindowNode* DeskWindows::Impl::AddWindow(std::string_view className, Window parent,
                                         WindowProcedure& procedure) {
  Process& process = core().processes.Current();
  WindowNode* parentNode = parent ? tree.Find(parent) : &tree.Desktop();
  if (!parentNode || parentNode->destroying || !process.TakesCalls()) return nullptr;
  WindowNode& node = tree.Add(className, process, procedure);
  if (parent)
    tree.LinkBottom(node, *parentNode);
  else
    tree.LinkTop(node, *parentNode);
  return &node;
}

Window DeskWindows::Create(const NewWindow& made, WindowProcedure& procedure) {
  Impl& impl = *impl_;
  if (made.mdiChild) impl.Ask(made.parent, {.id = wm::kMdiCreate});
  WindowNode* node = impl.AddWindow(made.className, made.parent, procedure);
  impl.core().processes.ThrowIfEnded();
  if (!node) return {};
  const Window window = node->handle;
  node->text = made.caption;
  node->enabled = made.enabled;
  node->id = made.id;
  node->place = made.place;
  node->systemClass = SystemClassOf(made.systemClass);
  if (!made.parent || made.mdiChild) {
    node->frameLeft = kFrame;
    node->frameTop = kFrame + kTitle;
  }
  if (impl.Ask(window, {.id = wm::kCreate}) == -1) impl.DestroyTree(window);
  impl.TellSize(window);
  impl.TellMove(window);
  if (made.parent && Exists(window))
    impl.Ask(made.parent, ParentNotice(wm::kCreate, made.id, window));
  node = impl.tree.Find(window);
  if (node && made.mdiChild) impl.tree.Raise(*node);
  if (node && made.visible) {
    impl.ShowNode(window, true);
    if (!made.parent && Exists(window)) impl.MoveFocus(window);
  }
  impl.core().processes.ThrowIfEnded();
  return Exists(window) ? window : Window{};
}

void DeskWindows::Destroy(Window window) {
  impl_->DestroyTree(window);
  impl_->core().processes.ThrowIfEnded();
}

void DeskWindows::Impl::DestroyTree(Window window) {
  WindowNode* node = tree.Find(window);
  if (!node || node->destroying) return;
  MoveFocusOff(*node);
  node = tree.Find(window);
  if (!node) return;
  node->destroying = true;
  if (!tree.IsTopLevel(*node))
    Ask(node->parent->handle, ParentNotice(wm::kDestroy, node->id, window));
  for (const Window owned : tree.OwnedBy(window)) DestroyTree(owned);
  node = tree.Find(window);
  if (!node) return;
  std::vector<Window> all{window};
  WindowTree::ListDescendants(*node, all);
  for (const Window each : all) Ask(each, {.id = wm::kDestroy});
  RemoveTree(window);
}

void DeskWindows::Impl::RemoveTree(Window window) {
  WindowNode* node = tree.Find(window);
  while (node && node->firstChild) {
    RemoveTree(node->firstChild->handle);
    node = tree.Find(window);
  }
  Ask(window, {.id = wm::kNcDestroy});
  node = tree.Find(window);
  if (!node) return;
  // Whatever its procedure has put into it at the last moment goes with it.
  while (node->firstChild) {
    RemoveTree(node->firstChild->handle);
    if (!(node = tree.Find(window))) return;
  }
  core().hooks->ForgetWindow(*node);
  core().scheduler->ForgetWindow(window);
  core().menus->FreeBar(node->menuBar);
  if (focus == window) focus = {};
  if (updateLock.window == window) updateLock = {};
  tree.Remove(*node);
}

void DeskWindows::Impl::TakeAway(Process& process) {
  if (updateLock.process == &process) updateLock = {};
  for (const Window window : desk.windows().AllWindows()) {
    WindowNode* node = tree.Find(window);
    if (!node || node->process != &process) continue;
    node->destroying = false;
    DestroyTree(window);
  }
}

void DeskWindows::SetMenuBar(Window window, MenuHandle menu) {
  WindowNode* node = impl_->tree.Find(window);
  if (!node) return;
  node->menuBar = menu;
  impl_->core().menus->MarkAttached(menu);
}

MenuHandle DeskWindows::CreateMenuBar() { return impl_->core().menus->CreatePopup(); }

}  // namespace corvel::desk
