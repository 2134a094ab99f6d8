// Adding a line to a text file that the user may have edited by hand.
#pragma once

#include "core/program.h"

#include <string_view>

namespace corvel {

// Adds `line` with its CR LF at the end of the file, which is made if missing. A last line that has
// no end gets one first, so that the two don't run together. Throws RunTimeError; the file is then
// as it was.
void AppendLine(Program& program, std::string_view path, std::string_view line);

}  // namespace corvel
