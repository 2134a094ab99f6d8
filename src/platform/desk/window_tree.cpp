// The windows as things; see window_tree.h.
#include "platform/desk/window_tree.h"

#include "base/cp1252.h"
#include "base/text.h"

#include <algorithm>

namespace corvel::desk {
namespace {

std::uint64_t HashNoCase(std::string_view text) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : text)
    hash = (hash ^ static_cast<unsigned char>(LowerChar(c))) * 1099511628211u;
  return hash;
}

}  // namespace

ClassAtom ClassTable::Lookup(std::string_view name) const {
  const std::uint64_t hash = HashNoCase(name);
  for (std::size_t i = 0; i < classes_.size(); ++i)
    if (classes_[i].hash == hash && EqualNoCase(classes_[i].name, name))
      return static_cast<ClassAtom>(i + 1);
  return 0;
}

ClassAtom ClassTable::Register(std::string_view name) {
  if (const ClassAtom known = Lookup(name)) return known;
  classes_.push_back({HashNoCase(name), std::string(name)});
  return static_cast<ClassAtom>(classes_.size());
}

WindowTree::WindowTree() { desktop_.visible = true; }

WindowNode& WindowTree::Add(std::string_view className, Process& process,
                            WindowProcedure& procedure) {
  auto node = std::make_unique<WindowNode>();
  node->handle = {kFirstHandle + static_cast<std::uint32_t>(nodes_.size()) * kHandleStep};
  node->process = &process;
  node->procedure = &procedure;
  node->atom = classes_.Register(className);
  nodes_.push_back(std::move(node));
  return *nodes_.back();
}

void WindowTree::Remove(WindowNode& node) {
  Unlink(node);
  nodes_[(node.handle.value - kFirstHandle) / kHandleStep].reset();
}

WindowNode& WindowTree::RootOf(WindowNode& node) const {
  WindowNode* root = &node;
  while (root->parent != &desktop_) root = root->parent;
  return *root;
}

bool WindowTree::IsWithin(const WindowNode& node, const WindowNode& ancestor) {
  for (const WindowNode* at = &node; at; at = at->parent)
    if (at == &ancestor) return true;
  return false;
}

void WindowTree::LinkBefore(WindowNode& node, WindowNode& parent, WindowNode* next) {
  WindowNode* previous = next ? next->previous : parent.lastChild;
  node.parent = &parent;
  node.previous = previous;
  node.next = next;
  (previous ? previous->next : parent.firstChild) = &node;
  (next ? next->previous : parent.lastChild) = &node;
}

void WindowTree::LinkBottom(WindowNode& node, WindowNode& parent) {
  LinkBefore(node, parent, nullptr);
}

void WindowTree::LinkTop(WindowNode& node, WindowNode& parent) {
  WindowNode* next = parent.firstChild;
  if (&parent == &desktop_ && !node.topMost)
    while (next && next->topMost) next = next->next;
  LinkBefore(node, parent, next);
}

void WindowTree::Unlink(WindowNode& node) {
  if (!node.parent) return;
  (node.previous ? node.previous->next : node.parent->firstChild) = node.next;
  (node.next ? node.next->previous : node.parent->lastChild) = node.previous;
  node.parent = node.previous = node.next = nullptr;
}

void WindowTree::Raise(WindowNode& node) {
  WindowNode& parent = *node.parent;
  Unlink(node);
  LinkTop(node, parent);
  if (&parent != &desktop_) return;
  const std::vector<Window> owned = OwnedBy(node.handle);
  for (auto it = owned.rbegin(); it != owned.rend(); ++it) Raise(*Find(*it));
}

void WindowTree::PutAbove(WindowNode& node, WindowNode& sibling) {
  for (const WindowNode* at = node.next; at; at = at->next)
    if (at == &sibling) return;
  Unlink(node);
  LinkBefore(node, *sibling.parent, &sibling);
}

WindowNode* WindowTree::Match(WindowNode* first, std::optional<std::string_view> className,
                              std::optional<std::string_view> caption) const {
  const ClassAtom atom = className ? classes_.Lookup(*className) : 0;
  if (className && !atom) return nullptr;
  for (WindowNode* node = first; node; node = node->next)
    if ((!atom || node->atom == atom) && (!caption || EqualNoCase(node->Text(), *caption)))
      return node;
  return nullptr;
}

void WindowTree::ListDescendants(const WindowNode& node, std::vector<Window>& list) {
  for (const WindowNode* child = node.firstChild; child; child = child->next) {
    list.push_back(child->handle);
    ListDescendants(*child, list);
  }
}

std::vector<Window> WindowTree::OwnedBy(Window owner) const {
  std::vector<Window> owned;
  for (const WindowNode* node = desktop_.firstChild; node; node = node->next)
    if (node->owner == owner) owned.push_back(node->handle);
  return owned;
}

Rect WindowTree::ScreenPlace(const WindowNode& node) {
  Rect place = node.place;
  for (const WindowNode* at = node.parent; at; at = at->parent) {
    const Rect area = ClientArea(*at);
    place.left += at->place.left + area.left;
    place.top += at->place.top + area.top;
  }
  return place;
}

Rect WindowTree::ClientArea(const WindowNode& node) {
  constexpr int kMenuBarHeight = 19;
  if (node.iconic) return {};
  const int top = node.frameTop + (node.menuBar ? kMenuBarHeight : 0);
  return {node.frameLeft, top, std::max(node.place.width - 2 * node.frameLeft, 0),
          std::max(node.place.height - top - node.frameLeft, 0)};
}

}  // namespace corvel::desk
