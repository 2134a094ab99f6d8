// All of the seam in one bundle: what a process is given of its system. It owns nothing.
#pragma once

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/common_dialogs.h"
#include "platform/display.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "platform/media_control.h"
#include "platform/menus.h"
#include "platform/own_windows.h"
#include "platform/peers.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/sound.h"
#include "platform/web.h"
#include "platform/window_system.h"

namespace corvel {

struct Platform {
  WindowSystem& windows;
  Menus& menus;
  EventLoop& events;
  OwnWindows& ownWindows;
  Hooks& hooks;
  ClientProxy& proxy;
  Peers& peers;
  Display& display;
  Registry& registry;
  Files& files;
  Processes& processes;
  SystemInfo& system;
  ClientLibrary& clientLibrary;
  Clipboard& clipboard;
  Sound& sound;
  Shell& shell;
  Printer& printer;
  CommonDialogs& dialogs;
  Clock& clock;
  Random& random;
  MediaControl& media;
  Web& web;
};

}  // namespace corvel
