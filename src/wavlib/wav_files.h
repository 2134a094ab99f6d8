// What the wav list does to the files themselves: the recycle bin, a new name, another folder. Each
// tells the user what went wrong.
#pragma once

#include "core/program.h"

#include <string>

namespace corvel {

// Asks first. False if the user doesn't want it after all.
bool DeleteWav(Program& program, Window owner, const std::string& path);

// Asks for the new name. True if the folder has changed.
bool RenameWav(Program& program, const std::string& folder, const std::string& name);

// Asks where to (frmSendTo), then copies or moves. False if the user gives up or it can't be done.
bool SendWavTo(Program& program, forms::Form& owner, const std::string& path,
               const std::string& name);

}  // namespace corvel
