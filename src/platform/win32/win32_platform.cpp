#include "platform/win32/win32_platform.h"

#include "platform/win32/callback.h"
#include "platform/win32/hook_channel.h"
#include "platform/win32/win32_client_library.h"
#include "platform/win32/win32_clipboard.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_dialogs.h"
#include "platform/win32/win32_display.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_hooks.h"
#include "platform/win32/win32_in_client.h"
#include "platform/win32/win32_media.h"
#include "platform/win32/win32_menus.h"
#include "platform/win32/win32_own_windows.h"
#include "platform/win32/win32_peers.h"
#include "platform/win32/win32_printer.h"
#include "platform/win32/win32_processes.h"
#include "platform/win32/win32_proxy.h"
#include "platform/win32/win32_registry.h"
#include "platform/win32/win32_shell.h"
#include "platform/win32/win32_sound.h"
#include "platform/win32/win32_system_info.h"
#include "platform/win32/win32_web.h"
#include "platform/win32/win32_window_system.h"

#include <float.h>

namespace corvel::win32 {
namespace {

// The x87 keeps more digits than a double has, so that 5 times 0.6 would be less than 3 here and 3
// elsewhere. The compiler's start-up leaves it so; the programs of the time rounded to doubles.
void RoundToDoubles() {
#ifdef __i386__
  _controlfp(_PC_53, _MCW_PC);
#endif
}

}  // namespace

// In the order in which each needs those before it.
struct Win32Platform::Impl {
  HookChannel channel;
  Win32InClient inClient{channel};
  Win32WindowSystem windows{inClient};
  Win32Menus menus{inClient};
  Win32EventLoop events;
  Win32OwnWindows ownWindows{events};
  Win32Hooks hooks{channel};
  Win32ClientProxy proxy{inClient};
  Win32Peers peers{events};
  Win32Display display;
  Win32Registry registry;
  Win32Files files;
  Win32Processes processes;
  Win32SystemInfo system;
  Win32ClientLibrary clientLibrary;
  Win32Clipboard clipboard;
  Win32Sound sound;
  Win32Shell shell;
  Win32Printer printer;
  Win32CommonDialogs dialogs;
  Win32Clock clock;
  Win32Random random;
  Win32MediaControl media;
  Win32Web web;
  Platform platform{windows,       menus,     events,   ownWindows, hooks,     proxy,
                    peers,         display,   registry, files,      processes, system,
                    clientLibrary, clipboard, sound,    shell,      printer,   dialogs,
                    clock,         random,    media,    web};
};

Win32Platform::Win32Platform() : impl_(std::make_unique<Impl>()) { RoundToDoubles(); }
Win32Platform::~Win32Platform() = default;

Platform& Win32Platform::platform() { return impl_->platform; }
Win32EventLoop& Win32Platform::events() { return impl_->events; }
Win32Peers& Win32Platform::peers() { return impl_->peers; }

void Win32Platform::LetGoOfClients() {
  impl_->channel.LetGo();
  Callback::Rethrow();
}

}  // namespace corvel::win32
