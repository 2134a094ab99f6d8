// The wait for a dialog of the wav library that stands in front of another of its windows.
#pragma once

#include "core/program.h"

namespace corvel {

// Shows `dialog` over `owner`, which takes no clicks meanwhile, and waits until it is hidden or
// unloaded. `owner` may have been unloaded too when this comes back.
void ShowModal(Program& program, forms::Form& owner, forms::Form& dialog, const char* waitName);

}  // namespace corvel
