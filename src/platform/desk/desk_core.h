// What the desk is made of, for its own parts.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/desk_clock.h"
#include "platform/desk/desk_hooks.h"
#include "platform/desk/desk_menus.h"
#include "platform/desk/desk_peers.h"
#include "platform/desk/desk_processes.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "platform/desk/process_table.h"
#include "platform/desk/scheduler.h"
#include "platform/desk/window_tree.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvel::desk {

struct Desk::Impl : ProcessKeeper {
  explicit Impl(Desk& desk) : desk(desk) {}
  void Wire();
  void NoteLeftOpen(Process& process) override;
  void TakeAway(Process& process) override;
  // Where it stands now; see Desk::LeftOpen.
  std::vector<std::string> OpenNow(const Process& process) const;

  Desk& desk;
  Journal journal;
  DeskClock clock;
  ProcessTable processes{*this};
  std::vector<std::shared_ptr<Prompt>> prompts;
  std::unique_ptr<DeskWindows> windows;
  std::unique_ptr<Scheduler> scheduler;
  std::unique_ptr<DeskMenus> menus;
  std::unique_ptr<DeskHooks> hooks;
  std::unique_ptr<DeskProxy> proxy;
  std::unique_ptr<DeskPeers> peers;
  std::unique_ptr<DeskProcesses> deskProcesses;
  std::unique_ptr<DeskFiles> files;
  std::unique_ptr<DeskRegistry> registry;
  std::unique_ptr<DeskClipboard> clipboard;
  std::unique_ptr<DeskServices> services;
  std::optional<Platform> platform;
};

struct DeskWindows::Impl : MessageTaker {
  explicit Impl(Desk& desk) : desk(desk) {}

  Desk::Impl& core() { return desk.impl(); }

  // --- desk_messages.cpp
  // Takes a message to its window through the hooks; 0 for a window that can't answer. Does not
  // throw if the calling process has been ended meanwhile: the seam's methods do that at their end.
  MessageResult Ask(Window window, const Message& message);
  // Whether a process takes what another one sends it. One that hangs keeps its sender waiting
  // until it goes on, dies, or has hung for so long that it is given up.
  bool Answers(const Process& process);
  void Deliver(Window window, const Message& message) override { Ask(window, message); }
  Process* OwnerOf(Window window) override;
  Window Focused() override { return focus; }
  MessageResult CallProcedure(Window window, const Message& message);

  // --- desk_window_states.cpp
  // The focus and, with it, the activation of the top-level window. 0 is allowed.
  void MoveFocus(Window window);
  void MoveFocusOff(WindowNode& leaving);  // it or a window in it is going away
  void ShowNode(Window window, bool visible);

  // --- desk_window_places.cpp
  void PlaceNode(Window window, Rect place);
  void SetState(Window window, bool iconic, bool zoomed, bool activates);
  Rect PlaceFor(const WindowNode& node);  // by its state
  void TellSize(Window window);
  void TellMove(Window window);

  // --- desk_own_windows.cpp
  // A window without any message, linked at the bottom of its parent or on top of the desktop.
  WindowNode* AddWindow(std::string_view className, Window parent, WindowProcedure& procedure);
  void DestroyTree(Window window);
  void RemoveTree(Window window);
  void TakeAway(Process& process);

  Desk& desk;
  WindowTree tree;
  Window focus{};
  struct {
    Window window{};
    const Process* process = nullptr;
    std::uint64_t number = 0;
  } updateLock;
  std::uint64_t lastLock = 0;
  std::vector<std::vector<Window>> spareLists;  // for walks: their room is kept
  std::unique_ptr<WindowProcedure> dialogProcedure;
};

}  // namespace corvel::desk
