// The windows as things: classes, handles, parents, z-order. No message is sent here.
//
// Handles are never given out twice. Every question that a program asks hundreds of thousands of
// times in an hour (does it exist, find by class, next sibling) takes no memory and no search by
// text longer than the question itself.
#pragma once

#include "platform/desk/process_table.h"
#include "platform/own_windows.h"
#include "platform/window_types.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

using ClassAtom = std::uint32_t;  // 0 is none

// The names of window classes, case ignored.
class ClassTable {
 public:
  ClassAtom Register(std::string_view name);  // keeps the spelling of the first time
  ClassAtom Lookup(std::string_view name) const;
  const std::string& NameOf(ClassAtom atom) const { return classes_[atom - 1].name; }

 private:
  struct Class {
    std::uint64_t hash;
    std::string name;
  };
  std::vector<Class> classes_;
};

// The system class that does a window's work.
enum class SystemClass : std::uint8_t { kNone, kEdit, kRichEdit, kButton };

struct WindowNode {
  Window handle{};
  Process* process = nullptr;
  WindowProcedure* procedure = nullptr;
  ClassAtom atom = 0;
  SystemClass systemClass = SystemClass::kNone;
  bool visible = false, enabled = true, topMost = false, destroying = false;
  bool iconic = false, zoomed = false;  // both: it will be zoomed when it is restored
  bool pressed = false;  // a button between mouse down and up
  int id = 0;
  Window owner{};                   // of a top-level window
  Rect place{};                     // in the parent's pixels
  Rect normalPlace{};               // of one that is iconic or zoomed
  int frameLeft = 0, frameTop = 0;  // its frame at the sides and below, and with the title above
  MenuHandle menuBar{};
  std::string text;
  std::size_t caret = 0;                   // of an edit box
  const std::string* shownText = nullptr;  // if set, this is the text: it belongs to the toolkit
  std::vector<std::uint32_t> hooks;        // newest first

  WindowNode *parent = nullptr, *firstChild = nullptr, *lastChild = nullptr;
  WindowNode *previous = nullptr, *next = nullptr;

  const std::string& Text() const { return shownText ? *shownText : text; }
};

class WindowTree {
 public:
  WindowTree();

  ClassTable& Classes() { return classes_; }
  const ClassTable& Classes() const { return classes_; }

  // Linked nowhere yet.
  WindowNode& Add(std::string_view className, Process& process, WindowProcedure& procedure);
  // Unlinks it and frees its handle for ever. It must have no children.
  void Remove(WindowNode& node);
  WindowNode* Find(Window window) const {
    const std::uint32_t index = (window.value - kFirstHandle) / kHandleStep;
    return index < nodes_.size() && nodes_[index] && nodes_[index]->handle == window
               ? nodes_[index].get()
               : nullptr;
  }

  WindowNode& Desktop() { return desktop_; }
  bool IsTopLevel(const WindowNode& node) const { return node.parent == &desktop_; }
  WindowNode& RootOf(WindowNode& node) const;
  static bool IsWithin(const WindowNode& node, const WindowNode& ancestor);  // or the same

  void LinkBottom(WindowNode& node, WindowNode& parent);
  // Above its siblings; a top-level window stays below those that are topmost.
  void LinkTop(WindowNode& node, WindowNode& parent);
  void Unlink(WindowNode& node);
  // To the top of its siblings, and the windows that it owns above it.
  void Raise(WindowNode& node);
  // Just above `sibling`, unless it stands above it already.
  void PutAbove(WindowNode& node, WindowNode& sibling);

  // The first node from `first` on, among siblings, with this class and caption.
  WindowNode* Match(WindowNode* first, std::optional<std::string_view> className,
                    std::optional<std::string_view> caption) const;
  // Parents before their children, in z-order.
  static void ListDescendants(const WindowNode& node, std::vector<Window>& list);
  std::vector<Window> OwnedBy(Window owner) const;
  static Rect ScreenPlace(const WindowNode& node);
  // Where its own pixels lie, from its corner. An icon has none.
  static Rect ClientArea(const WindowNode& node);

 private:
  static constexpr std::uint32_t kFirstHandle = 0x104, kHandleStep = 4;
  static void LinkBefore(WindowNode& node, WindowNode& parent, WindowNode* next);

  ClassTable classes_;
  std::vector<std::unique_ptr<WindowNode>> nodes_;  // by handle; the dead leave an empty place
  WindowNode desktop_;
};

}  // namespace corvel::desk
