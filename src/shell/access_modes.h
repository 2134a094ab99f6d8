// The three ways to the program's commands: the toolbar, the tray icon, the client's own menu bar.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"

#include <cstdint>

namespace corvel {

class frmCV7;

class AccessModes {
 public:
  AccessModes(Program& program, AolClient& client) : program_(program), client_(client) {}

  // As the central window has loaded, and on the way down while it still stands; both by
  // AccessMode.
  void SetUp();
  void TakeDown();

  // Commands: the toolbar goes, and the tray icon or the client's menu comes in its place.
  void HideAsTray();
  void HideAsMenu();
  void ShowToolbar();

  // A mouse message at the tray icon.
  void OnTray(LParam mouse);
  // A command or an opening menu of the client's main window, while the client waits; and later the
  // command, if it was one of the program's own.
  void OnClientMenu(HookedMessage& message);
  void RunClientMenuRow(std::uint32_t id);
  // The user has signed off: what the rows say goes back to how it was at the start.
  void ResetCaptions();

 private:
  frmCV7* Central() const;
  void AddTrayIcon();
  void RemoveTrayIcon();
  void AddMenuToAOL();
  void RemoveMenuFromAOL();
  void PopUpTrayMenu();
  bool TilesAroundManager(std::uint32_t id);
  void BringListedWindowUp(std::uint32_t id);

  Program& program_;
  AolClient& client_;
};

}  // namespace corvel
