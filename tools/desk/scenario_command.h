// corvel-desk scenario and corvel-desk demo.
#pragma once

#include "tools/desk/arguments.h"

namespace corvel::tools {

// scenario [--trace] [--seed N] FILE...   ("-" plays by hand). The answer is the exit code.
int ScenarioCommand(Arguments& arguments);

// demo [--plain] [--fast] [--file FILE]: the demonstration, told as it happens.
int DemoCommand(Arguments& arguments);

}  // namespace corvel::tools
