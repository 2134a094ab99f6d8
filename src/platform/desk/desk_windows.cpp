// Finding and asking about windows; see desk_windows.h.
#include "platform/desk/desk_windows.h"

#include "platform/desk/desk_core.h"
#include "platform/desk/standard_classes.h"

namespace corvel::desk {
namespace {

// A list from the pool, given back at the end of the walk.
class PooledList {
 public:
  explicit PooledList(std::vector<std::vector<Window>>& pool) : pool_(pool) {
    if (pool_.empty()) return;
    list_.swap(pool_.back());
    pool_.pop_back();
  }
  ~PooledList() {
    list_.clear();
    pool_.push_back(std::move(list_));
  }
  PooledList(const PooledList&) = delete;
  PooledList& operator=(const PooledList&) = delete;
  std::vector<Window>& operator*() { return list_; }

 private:
  std::vector<std::vector<Window>>& pool_;
  std::vector<Window> list_;
};

Window HandleOf(const WindowNode* node) { return node ? node->handle : Window{}; }

}  // namespace

DeskWindows::DeskWindows(Desk& desk) : impl_(std::make_unique<Impl>(desk)) {
  impl_->dialogProcedure = MakeDialogProcedure(*this);
}
DeskWindows::~DeskWindows() = default;

Window DeskWindows::Find(std::optional<std::string_view> className,
                         std::optional<std::string_view> caption) {
  return HandleOf(impl_->tree.Match(impl_->tree.Desktop().firstChild, className, caption));
}

Window DeskWindows::FindChild(Window parent, Window after,
                              std::optional<std::string_view> className,
                              std::optional<std::string_view> caption) {
  const WindowNode* parentNode = parent ? impl_->tree.Find(parent) : &impl_->tree.Desktop();
  if (!parentNode) return {};
  WindowNode* first = parentNode->firstChild;
  if (after) {
    const WindowNode* afterNode = impl_->tree.Find(after);
    if (!afterNode || afterNode->parent != parentNode) return {};
    first = afterNode->next;
  }
  return HandleOf(impl_->tree.Match(first, className, caption));
}

Window DeskWindows::TopChild(Window parent) {
  const WindowNode* node = parent ? impl_->tree.Find(parent) : &impl_->tree.Desktop();
  return node ? HandleOf(node->firstChild) : Window{};
}

Window DeskWindows::Next(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node ? HandleOf(node->next) : Window{};
}

Window DeskWindows::Parent(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  if (!node) return {};
  return impl_->tree.IsTopLevel(*node) ? node->owner : HandleOf(node->parent);
}

bool DeskWindows::EnumDescendants(Window parent, const std::function<bool(Window)>& visit) {
  const WindowNode* node = impl_->tree.Find(parent);
  if (!node) return true;
  PooledList list(impl_->spareLists);
  WindowTree::ListDescendants(*node, *list);
  for (const Window window : *list)
    if (Exists(window) && !visit(window)) return false;
  return true;
}

bool DeskWindows::Exists(Window window) { return impl_->tree.Find(window) != nullptr; }

bool DeskWindows::IsVisible(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  if (!node) return false;
  for (; node; node = node->parent)
    if (!node->visible) return false;
  return true;
}

bool DeskWindows::IsEnabled(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node && node->enabled;
}

bool DeskWindows::IsIconic(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node && node->iconic;
}

std::string DeskWindows::ClassOf(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node ? impl_->tree.Classes().NameOf(node->atom) : std::string();
}

ProcessId DeskWindows::ProcessOf(Window window) {
  const WindowNode* node = impl_->tree.Find(window);
  return node ? node->process->id : 0;
}

// --- Looking on ----------------------------------------------------------------------------------

std::string DeskWindows::CaptionOf(Window window) const {
  const WindowNode* node = impl_->tree.Find(window);
  return node ? node->Text() : std::string();
}

std::vector<Window> DeskWindows::AllWindows() const {
  std::vector<Window> all;
  WindowTree::ListDescendants(impl_->tree.Desktop(), all);
  return all;
}

std::vector<Window> DeskWindows::HookedWindows() const {
  std::vector<Window> hooked;
  for (const Window window : AllWindows())
    if (!impl_->tree.Find(window)->hooks.empty()) hooked.push_back(window);
  return hooked;
}

std::size_t DeskWindows::HookCount() const { return HookedWindows().size(); }

bool DeskWindows::IsHung(ProcessId process) const {
  const Process* const found = impl_->core().processes.Running(process);
  return found && found->hung;
}

void DeskWindows::SetHung(ProcessId process, bool hung) {
  Process* found = impl_->core().processes.Running(process);
  if (!found) return;
  if (hung && !found->hung) found->hungSince = impl_->core().clock.NowMs();
  found->hung = hung;
  if (!hung) impl_->core().scheduler->ReleaseHeld(*found);
}

}  // namespace corvel::desk
