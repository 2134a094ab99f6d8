// Windows with a procedure of ours, in this process: see platform/own_windows.h.
//
// Every class has one window procedure, which finds the WindowProcedure of its window, tells it of
// the message in the seam's words, and answers the system in its own. What the system does by
// itself is the system class's procedure, where there is one, or the system's default.
#pragma once

#include "platform/own_windows.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <windows.h>

namespace corvel::win32 {

class Win32EventLoop;
class StandardDialogs;

class Win32OwnWindows : public OwnWindows {
 public:
  explicit Win32OwnWindows(Win32EventLoop& events);
  // One at a time in a process; its windows go with it, unheard.
  ~Win32OwnWindows() override;

  Window Create(const NewWindow& window, WindowProcedure& procedure) override;
  MessageResult Default(Window window, const Message& message) override;
  void Destroy(Window window) override;
  void SetMenuBar(Window window, MenuHandle menu) override;
  MenuHandle CreateMenuBar() override;
  Window ShowDialog(Window owner, const std::string& caption, const std::string& text) override;

 private:
  // What stands behind a window.
  struct Behind {
    WindowProcedure* procedure = nullptr;
    WNDPROC systemProcedure = nullptr;
    bool mdiChild = false;
  };
  // A registered class, by its name in small letters.
  struct Class {
    std::string systemClass;
    WNDPROC systemProcedure = nullptr;
  };

  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
  LRESULT OnMessage(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
  LRESULT Tell(WindowProcedure& procedure, HWND window, const Message& message);
  Behind* Find(HWND window);
  const Class* Register(const std::string& name, const std::string& systemClass);
  HWND Make(const NewWindow& window, const Behind& behind);
  LRESULT CallSystem(HWND window, UINT id, WPARAM wParam, LPARAM lParam);

  std::map<std::string, Class> classes_;
  std::unordered_map<HWND, Behind> windows_;
  const Behind* making_ = nullptr;  // for the first message of the window that is being made
  std::unique_ptr<StandardDialogs> dialogs_;
};

}  // namespace corvel::win32
