// The PATH check: the client plays the sound codes of a room from the folders on its PATH, so a new
// category is silent there until its folder stands on the PATH line of AUTOEXEC.BAT.
#pragma once

#include "core/program.h"

#include <string>
#include <string_view>

namespace corvel {

// The 8.3 form of a path; the path itself where it has none.
std::string ShortFileName(Program& program, std::string_view path);

// True if the folder stands somewhere behind the first "set path=" of an AUTOEXEC.BAT. Other PATH
// lines don't count.
bool IsOnPath(std::string_view autoexec, std::string_view shortFolder);

// Tells the user of a category whose folder isn't on the PATH line and, if he wants, adds it, after
// saving the file as AUTOEXEC.QRV. If it can't be saved, it isn't changed.
void CheckPath(Program& program, const std::string& category);

}  // namespace corvel
