// The rows of the toolbar's menus.
#pragma once

#include "core/program.h"
#include "forms/menu.h"

namespace corvel {

// Positions of rows that change while the program runs.
namespace row {
inline constexpr int kUploadAndChat = 5, kHideWelcome = 6, kPalroster = 12, kBackdrape = 13;
inline constexpr int kFadeSeparator = 3, kFadeDesigner = 4;  // of mnuWavs
inline constexpr int kTurnIMsOff = 2;                        // of mnuIMs
}  // namespace row
namespace tray_row {
inline constexpr int kWavs = 4, kIMs = 5, kUploadAndChat = 10, kHideWelcome = 11, kPalroster = 17,
                     kBackdrape = 18;
}

// A row whose command isn't in the hub is greyed and says so.
forms::Menu MakeMainMenu(Program& program);
forms::Menu MakeWavsMenu(Program& program);
forms::Menu MakeIMsMenu(Program& program);
forms::Menu MakePeopleMenu(Program& program);
forms::Menu MakeEditorMenu(Program& program);
forms::Menu MakeTrayMenu(Program& program);

inline constexpr const char* kNotBuiltTip = "This feature is not built yet.";
bool IsBuilt(const Program& program, Command command);
// Does what the command stands for; nothing if its feature isn't there.
void RunCommand(Program& program, Command command);

}  // namespace corvel
