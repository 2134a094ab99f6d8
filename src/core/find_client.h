// How the client is found, or started.
#pragma once

#include "core/program.h"

namespace corvel {

// The client's main window, or 0.
Window FindClientFrame(Program& program);

// Takes the running client's window and folder into hAOL and AOLPath. Tells the user and ends the
// program if the client is a 16-bit one or has just gone.
void AOLIsRunning(Program& program);

// Starts the client, after asking for its folder if that isn't known, and waits, without a limit,
// until its window stands. May end the program as above.
void StartAOL(Program& program);

enum class ClientFolderMode { kChange = 0, kFirstRun = 1 };
// Asks the user for the client's folder and stores it. Ends the program if none is chosen. True:
// the user wants to start right now (asked in kChange only).
bool GetAOLPath(Program& program, ClientFolderMode mode);

bool IsAOL32Bit(Program& program);

}  // namespace corvel
