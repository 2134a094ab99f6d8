// What the system does by itself with messages, and the standard dialog.
#include "platform/desk/standard_classes.h"

#include "base/text.h"
#include "platform/desk/desk_core.h"

#include <algorithm>

namespace corvel::desk {
namespace {

struct NamedClass {
  std::string_view name;
  SystemClass systemClass;
};
constexpr NamedClass kClasses[] = {{"EDIT", SystemClass::kEdit},
                                   {"RICHEDIT", SystemClass::kRichEdit},
                                   {"BUTTON", SystemClass::kButton}};

constexpr int kIdOk = 1, kIdCancel = 2;

using Impl = DeskWindows::Impl;
using DefaultWork = MessageResult (*)(Impl&, WindowNode&, const Message&);

MessageResult TakeText(Impl&, WindowNode& node, const Message& message) {
  node.text = message.text;
  node.caret = 0;
  return 1;
}

MessageResult GiveText(Impl&, WindowNode& node, const Message& message) {
  const std::string& text = node.Text();
  const std::size_t count = message.wParam == 0 ? 0 : std::min(text.size(), message.wParam - 1);
  if (message.answer) message.answer->assign(text, 0, count);
  return static_cast<MessageResult>(count);
}

MessageResult GiveTextLength(Impl&, WindowNode& node, const Message&) {
  return static_cast<MessageResult>(node.Text().size());
}

MessageResult CloseWindow(Impl& windows, WindowNode& node, const Message&) {
  windows.DestroyTree(node.handle);
  return 0;
}

// The notice goes on from parent to parent.
MessageResult PassNoticeUp(Impl& windows, WindowNode& node, const Message& message) {
  if (!windows.tree.IsTopLevel(node)) windows.Ask(node.parent->handle, message);
  return 0;
}

// At the caret, which stands in front of a text that was set.
MessageResult TypeCharacter(Impl&, WindowNode& node, const Message& message) {
  constexpr WParam kBackspace = 8, kReturn = 13, kFirstPrintable = 32;
  const bool rich = node.systemClass == SystemClass::kRichEdit;
  if (!rich && node.systemClass != SystemClass::kEdit) return 0;
  if (message.wParam == kBackspace) {
    if (node.caret > 0) node.text.erase(--node.caret, 1);
  } else if (message.wParam >= kFirstPrintable || (rich && message.wParam == kReturn)) {
    node.text.insert(node.caret++, 1, static_cast<char>(message.wParam));
  }
  return 0;
}

MessageResult PressButton(Impl&, WindowNode& node, const Message&) {
  node.pressed = node.systemClass == SystemClass::kButton;
  return 0;
}

// A button tells its parent when the mouse that went down on it comes up.
MessageResult ReleaseButton(Impl& windows, WindowNode& node, const Message&) {
  if (!node.pressed) return 0;
  node.pressed = false;
  windows.Ask(node.parent->handle, {.id = wm::kCommand,
                                    .wParam = static_cast<WParam>(node.id),
                                    .lParam = static_cast<LParam>(node.handle.value)});
  return 0;
}

struct DefaultRow {
  MessageId id;
  DefaultWork work;
};
constexpr DefaultRow kDefaults[] = {
    {wm::kSetText, TakeText},
    {wm::kGetText, GiveText},
    {wm::kGetTextLength, GiveTextLength},
    {wm::kClose, CloseWindow},
    {wm::kParentNotify, PassNoticeUp},
    {wm::kChar, TypeCharacter},
    {wm::kLButtonDown, PressButton},
    {wm::kLButtonUp, ReleaseButton},
};

// A message box: any of its buttons ends it.
class DialogProcedure : public WindowProcedure {
 public:
  explicit DialogProcedure(DeskWindows& windows) : windows_(windows) {}
  MessageResult OnMessage(Window window, const Message& message) override {
    const bool ends =
        message.id == wm::kCommand && (message.wParam == kIdOk || message.wParam == kIdCancel);
    if (!ends) return windows_.Default(window, message);
    windows_.impl().DestroyTree(window);
    return 0;
  }

 private:
  DeskWindows& windows_;
};

}  // namespace

SystemClass SystemClassOf(std::string_view name) {
  for (const NamedClass& row : kClasses)
    if (EqualNoCase(row.name, name)) return row.systemClass;
  return SystemClass::kNone;
}

Message ParentNotice(MessageId event, int childId, Window child) {
  return {.id = wm::kParentNotify,
          .wParam = event | static_cast<WParam>(childId & 0xFFFF) << 16,
          .lParam = static_cast<LParam>(child.value)};
}

MessageResult DeskWindows::Default(Window window, const Message& message) {
  for (const DefaultRow& row : kDefaults) {
    if (row.id != message.id) continue;
    WindowNode* node = impl_->tree.Find(window);
    const MessageResult result = node ? row.work(*impl_, *node, message) : 0;
    impl_->core().processes.ThrowIfEnded();
    return result;
  }
  return 0;
}

Window DeskWindows::ShowDialog(Window owner, const std::string& caption, const std::string& text) {
  static const Rect kPlace{200, 200, 300, 120};
  WindowProcedure& procedure = *impl_->dialogProcedure;
  const Window dialog = Create({.className = "#32770",
                                .caption = caption,
                                .place = kPlace,
                                .visible = false,
                                .systemClass = {}},
                               procedure);
  if (!dialog) return {};
  const auto add = [&](const char* className, const std::string& childText, int id,
                       const char* systemClass) {
    Create({.className = className,
            .caption = childText,
            .parent = dialog,
            .id = id,
            .systemClass = systemClass},
           procedure);
  };
  add("Static", "", 20, "STATIC");
  add("Static", text, 0xFFFF, "STATIC");
  add("Button", "OK", kIdOk, "BUTTON");
  SetOwner(dialog, owner);
  Show(dialog, show::kNormal);
  return Exists(dialog) ? dialog : Window{};
}

std::unique_ptr<WindowProcedure> MakeDialogProcedure(DeskWindows& windows) {
  return std::make_unique<DialogProcedure>(windows);
}

}  // namespace corvel::desk
