// The rows of the toolbar's menus.
#pragma once

#include "core/program.h"
#include "forms/menu.h"

namespace corvel {

// Each row's id is its Command. A row whose command nobody answers is greyed and says so.
forms::Menu MakeMainMenu(Program& program);
forms::Menu MakeWavsMenu(Program& program);
forms::Menu MakeIMsMenu(Program& program);
forms::Menu MakePeopleMenu(Program& program);
forms::Menu MakeEditorMenu(Program& program);
forms::Menu MakeTrayMenu(Program& program);

}  // namespace corvel
