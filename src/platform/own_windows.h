// Windows that a process makes for itself with a procedure of its own: the practice client's whole
// surface, and hidden message windows. The program's forms are made through peers.h instead.
#pragma once

#include "platform/window_types.h"

#include <string>

namespace corvel {

class WindowProcedure {
 public:
  virtual ~WindowProcedure() = default;
  // Handles a message or passes it to OwnWindows::Default. No exception but ProcessExit may leave
  // it.
  virtual MessageResult OnMessage(Window window, const Message& message) = 0;
};

struct NewWindow {
  std::string className;  // registered at first use
  std::string caption;
  Window parent{};  // 0: a top-level window
  Rect place{};
  bool visible = true;
  bool enabled = true;
  int id = 0;  // a child's control id
  // A child of an MDIClient window that the client announces: the MDIClient gets kMdiCreate before
  // it exists, and it comes up on top.
  bool mdiChild = false;
  // On Windows: the system class ("EDIT", "LISTBOX", "BUTTON", "STATIC", "RICHEDIT") that does the
  // window's work under the name of className; "" for none. The desk's Default does so for EDIT,
  // RICHEDIT and BUTTON; rows of a list are its procedure's affair there.
  std::string systemClass;
};

class OwnWindows {
 public:
  virtual ~OwnWindows() = default;

  // The procedure gets kCreate inside the call and must outlive the window. 0 if it can't be made
  // (a dead parent, no memory). New children stand at the end of their siblings' z-order, as the
  // system's do; new top-level windows and MDI children at the top.
  virtual Window Create(const NewWindow& window, WindowProcedure& procedure) = 0;
  // What the system does with a message by itself: texts kept and given, kClose destroys, list and
  // edit messages for windows with a systemClass.
  virtual MessageResult Default(Window window, const Message& message) = 0;
  // Destroys the window with its children and the windows it owns: kDestroy from the top down, then
  // kNcDestroy. Its timers stop.
  virtual void Destroy(Window window) = 0;
  virtual void SetMenuBar(Window window, MenuHandle menu) = 0;
  virtual MenuHandle CreateMenuBar() = 0;
  // Shows a standard dialog (class "#32770") with an icon, a text and buttons, in this process,
  // without waiting: children "Static" (the icon, then the text) and "Button". It is gone when a
  // button is pressed, it is closed, or EndDialog is called on it.
  virtual Window ShowDialog(Window owner, const std::string& caption, const std::string& text) = 0;
};

}  // namespace corvel
