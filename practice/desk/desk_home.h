// The practice client on the desk: its files, its programs aol.exe and waol.exe, its library
// answers.
#pragma once

#include "platform/desk/desk.h"
#include "practice/practice_client.h"

namespace corvel::practice {

// Lays the client's files on the drive and installs aol.exe (starts waol.exe) and waol.exe (the
// client; started with -sTARGET while one runs it hands the target over and ends). The setup counts
// for every client started afterwards.
void InstallOnDesk(desk::Desk& desk, const Setup& setup);
void ChangeSetup(desk::Desk& desk, const Setup& setup);

// Starts it. Its windows stand after RunDue and the setup's delay.
ProcessId StartOnDesk(desk::Desk& desk);

// The running client, or nullptr.
PracticeClient* RunningOnDesk(desk::Desk& desk);

}  // namespace corvel::practice
