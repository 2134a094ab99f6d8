// Names that the user gives to files.
#pragma once

#include <string_view>

namespace corvel {

// True if a file can have this name and then stands in the folder that it is meant for: no part of
// a path, no wildcard, none of the system's devices ("nul.wav" is one too), nothing at its end that
// the system drops.
bool IsFileName(std::string_view name);

}  // namespace corvel
