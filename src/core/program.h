// The program: its shared state in one place, handed to every form and procedure.
//
// Globals carry the names by which the whole program knows them. One thread; every wait pumps
// events, so any of this can change across a Pause or a wait.
#pragma once

#include "core/hub.h"
#include "core/settings.h"
#include "core/settings_store.h"
#include "forms/form.h"
#include "platform/platform.h"

#include <array>
#include <optional>
#include <string>

namespace corvel {

inline constexpr const char* kTitle = "Corvel 32";
inline constexpr const char* kProgramVersion = "9.1.0";  // major, minor, revision

// The colours of the client's own country, which windows in the AOL style take. Where the second
// face isn't set, a button keeps its own.
struct HouseColors {
  Color window = 0xF0FBFF, face = 0xAD6D00;
  std::optional<Color> secondFace = 0xFFB18C;
};

// Values of AOLLocale.
namespace locale {
inline constexpr int kUs = 0, kUk = 1, kCanada = 2, kAustralia = 3;
}

struct Globals {
  std::string ProgramVersion;
  bool Unloading = false;   // the way down has finished: whatever wakes up unloads itself
  bool Closing = false;     // the way down has begun
  bool AOLClosing = false;  // the client itself is closing: don't close it again
  Window hAOL{}, hMDI{}, hChatRoom{}, hMailWin{};
  std::string AOLPath;  // no trailing backslash
  std::string AOLVer;   // "3", "4", "5", or "" for a client that nobody knows
  std::string AOLVerFull, AOLVerText;
  int AOLLocale = 0;              // 0 US, 1 UK, 2 Canada, 3 Australia
  std::array<std::string, 7> SN;  // SN1 is SN[0], the master screen name
  std::string CurrentSN;          // "" when signed off
  bool IsOnline = false;          // as Timer1 last saw it
  bool FadePanelUp = false, CmdPopupUp = false;
  int AccessMode = 0;     // 0 toolbar, 1 tray, 2 AOL menu
  int UIMode = 0;         // button look
  bool LowColor = false;  // at most 8 bits a pixel
  std::string WinDir, SysDir;
  std::string HelpFile;
  bool InputBoxUp = false;
  HouseColors houseColors;  // by LoadAOLStrings
};

struct Program {
  explicit Program(Platform& system)
      : platform(system),
        store(system.registry),
        settings(store, g.UIMode, g.AccessMode),
        forms(system) {}
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  Platform& platform;
  Globals g;
  SettingsStore store;
  Settings settings;
  Hub hub;
  forms::Forms forms;

  std::string Folder() { return platform.system.ProgramFolder(); }
  // A path in the program folder: InFolder("data\\desc1.dat").
  std::string InFolder(std::string_view name) { return Folder() + "\\" + std::string(name); }
};

// The base of all forms of the program.
class ProgramForm : public forms::Form {
 public:
  ProgramForm(Program& p, std::string name, std::string_view caption = {})
      : forms::Form(p.forms, std::move(name), caption), program(p) {}

 protected:
  Program& program;
};

}  // namespace corvel
