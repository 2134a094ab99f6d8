// The program as a process of the desk.
#pragma once

#include "platform/desk/desk.h"

#include <functional>

namespace corvel::tools {

inline constexpr const char* kProgramPath = "C:\\Corvel\\corvel32.exe";

// Puts the program on the desk's disk, to run on this platform: the desk's, or one in front of it.
// `started` is told each process whose Main has come back, so
// that it lives on events from now on.
void InstallCorvelOnDesk(desk::Desk& desk, Platform& platform,
                         std::function<void(ProcessId)> started = {});

}  // namespace corvel::tools
