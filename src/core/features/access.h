// The ways to the commands: toolbar, tray icon, the client's own menu (AccessMode).
#pragma once

#include "core/features/hook_events.h"

namespace corvel {

class Access {
 public:
  virtual ~Access() = default;
  // As the central window has loaded, with AccessMode 1 or 2. False: there is no such way here, and
  // the toolbar shows.
  virtual bool SetUp() = 0;
  // On the way down, while the central window still stands; perhaps twice.
  virtual void TakeDown() = 0;
  // sbcMenu: commands and opening menus of the client's main window, but its closing.
  virtual HookEvents& ClientFrame() = 0;
  // A mouse message at the tray icon.
  virtual void OnTray(LParam mouse) = 0;
  // The user has signed off: what the rows say goes back to how it was at the start.
  virtual void ResetCaptions() = 0;
  // Which rows there are has changed.
  virtual void RowsChanged() = 0;
};

}  // namespace corvel
