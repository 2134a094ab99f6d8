// The system's list of processes and of what they have loaded.
#pragma once

#include "platform/processes.h"

namespace corvel::win32 {

// Paths as the system gives them. Nothing where it has no such list: NT 4 hasn't.
std::optional<std::vector<ProcessEntry>> ListProcesses();

// The path of a module of the process, its name compared without case; "" if there is none.
std::string PathOfModule(ProcessId id, std::string_view module);

}  // namespace corvel::win32
