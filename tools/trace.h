// The trace: what happens on the stage, a line an effect.
#pragma once

#include "platform/desk/journal.h"

#include <string>

namespace corvel::tools {

// The time in seconds, the kind, its words in quotes; UTF-8, without a line end.
//       3.420 line "{S boing"
//      10.005 message "~B~CRNo wav selected!" answer OK
std::string TraceLine(const desk::JournalEntry& entry);

}  // namespace corvel::tools
