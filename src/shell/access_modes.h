// The three ways to the program's commands: the toolbar, the tray icon, the client's own menu bar.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/features/access.h"
#include "core/program.h"

#include <cstdint>

namespace corvel {

class frmCV7;

class AccessModes : public Access {
 public:
  AccessModes(Program& program, AolClient& client);
  void Join(Hub& hub);

  bool SetUp() override;
  void TakeDown() override;
  HookEvents& ClientFrame() override { return clientFrame_; }
  void OnTray(LParam mouse) override;
  void ResetCaptions() override;
  void RowsChanged() override;

  // Commands: the toolbar goes, and the tray icon or the client's menu comes in its place; or the
  // toolbar comes back.
  void HideAsTray();
  void HideAsMenu();
  void ShowToolbar();

 private:
  // The client's main window: its commands, the program's own rows among them.
  class ClientFrameEvents : public HookEvents {
   public:
    explicit ClientFrameEvents(AccessModes& modes) : modes_(modes) {}
    void OnMessage(HookedMessage& message, forms::SubClass& hook) override;
    void OnRaised(LParam id) override { modes_.RunClientMenuRow(static_cast<std::uint32_t>(id)); }

   private:
    AccessModes& modes_;
  };

  frmCV7* Central() const;
  void AddTrayIcon();
  void RemoveTrayIcon();
  void AddMenuToAOL();
  void RemoveMenuFromAOL();
  void PopUpTrayMenu();
  bool TilesAroundManager(std::uint32_t id);
  void BringListedWindowUp(std::uint32_t id);
  void RunClientMenuRow(std::uint32_t id);
  void Remember(int mode);

  Program& program_;
  AolClient& client_;
  ClientFrameEvents clientFrame_;
  bool insteadOfTray_ = false;  // the client's menu stands because there is no taskbar
};

}  // namespace corvel
