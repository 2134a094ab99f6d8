// The entry of the program and the way down.
#pragma once

#include "core/program.h"

namespace corvel {

// The whole start-up in its order. Returns when the program lives on events; throws ProcessExit
// where it refuses to start or the user gives up.
void Main(Program& program);

// The way down: gives the client everything back and unloads every form. With `ask` the user is
// asked first, and nothing happens unless the answer is Yes.
void UnloadAllForms(Program& program, bool ask);

// For who can't wait until a way down that waits beneath him goes on: gives everything back now.
void FinishWayDown(Program& program);

// The way down without a question, then the end of the process, whatever is under way.
[[noreturn]] void StopProgram(Program& program);

}  // namespace corvel
