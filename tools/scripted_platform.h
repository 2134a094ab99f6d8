// A platform for a scenario on a home of real windows: all is the home's own but for what a
// scenario sets (clock, machine, chance, drives and their faults), what it answers (the system's
// dialogs, pop-up menus, the web) and what it has to see (sounds, help, the shell, the printer,
// hooks, waits).
#pragma once

#include "base/civil_time.h"
#include "platform/desk/file_faults.h"
#include "platform/desk/prompt.h"
#include "platform/desk/web_table.h"
#include "platform/platform.h"
#include "tools/scripted_files.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tools {

// What the scenario and the platform made for it know of each other.
struct Script {
  // --- Set by the scenario ---------------------------------------------------------------------
  std::int64_t clockAhead = 0;  // milliseconds, of the home's own clock
  std::string timeZone, commandLine;
  int windowsPlatform = 1, bitsPerPixel = 16;
  Size screen{800, 600};
  bool taskbar = true, previousInstance = false;
  std::deque<double> draws;  // before the home's own
  bool realMenus = false;    // pop-up menus come up and are used by hand
  desk::FileFaults faults;
  ScriptedDrives drives = DrivesOfEveryMachine();
  desk::WebTable web;
  bool ended = false;  // every wait of the program throws ProcessExit

  // --- Seen by the scenario --------------------------------------------------------------------
  std::function<void(std::string_view kind, std::vector<std::string> words)> note;
  std::vector<std::shared_ptr<desk::Prompt>> prompts;  // open ones, innermost last
  std::vector<Wait> waits;                             // of the pumps in progress, innermost last
  std::map<HookId, Window> hooks;
  struct TrayIcon {
    Window owner;
    MessageId message;
    TrayPicture picture = TrayPicture::kNormal;
  };
  std::optional<TrayIcon> trayIcon;
};

class ScriptedPlatform {
 public:
  // All outlive it. The library answers for the client.
  ScriptedPlatform(Platform& home, ClientLibrary& library, Script& script);
  ~ScriptedPlatform();
  ScriptedPlatform(const ScriptedPlatform&) = delete;
  ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;

  Platform& platform();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace corvel::tools
