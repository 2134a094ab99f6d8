// The looks of windows and flat buttons, by UIMode: 0 Windows style, 1 AOL style, 2 the user's.
#pragma once

#include "core/program.h"

namespace corvel {

void SetFormColor(Program& program, forms::Form& form);
// `lit`: the look of an option that is on.
void SetButtonColor(Program& program, bool lit, forms::FlatButton& button);

}  // namespace corvel
