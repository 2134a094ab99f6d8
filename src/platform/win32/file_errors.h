// The system's error numbers as the run-time errors that the program's logic knows.
#pragma once

#include "platform/files.h"

#include <string_view>
#include <windows.h>

namespace corvel::win32 {

// The run-time error for a number that GetLastError gave for `path`. What isn't there may be the
// drive, which the system doesn't tell, so the path is looked at again.
int RunTimeErrorFor(DWORD error, std::string_view path);

// Throws it, for the last call that failed; of two paths the first that explains the failure.
[[noreturn]] void ThrowLastError(std::string_view path, std::string_view second = {});

// Of the path's drive, as the system has it by letter.
DriveKind KindOfDrive(std::string_view path);

// 0 if the path's drive is there and holds a medium, or the number of the run-time error.
int DriveStateOf(std::string_view path);

}  // namespace corvel::win32
