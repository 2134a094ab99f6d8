// corvel-desk soak.
#pragma once

#include "tools/desk/arguments.h"

namespace corvel::tools {

// soak [--trace] [--seed N] [--hours H]. The answer is the exit code: 0, 1 if something that must
// hold did not, 2 for a bad command line.
int SoakCommand(Arguments& arguments);

}  // namespace corvel::tools
