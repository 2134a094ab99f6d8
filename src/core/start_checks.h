// What must hold before the program touches the client. Each of these tells the user and ends the
// program where it doesn't.
#pragma once

#include "core/program.h"
#include "core/report_error.h"

#include <functional>
#include <string>
#include <string_view>

namespace corvel {

// One step of Main. It goes on over a file or folder that can't be reached (error 75); every other
// error is reported. What is no procedure of Main's own reports that one, too.
void MainStep(Program& program, const ErrorPlace& place, const std::function<void()>& step);

// Tells the user why the program does not start, and ends it.
[[noreturn]] void RefuseStart(Program& program, const std::string& text);

void CheckWindowsVersion(Program& program);
// UIMode and LowColor by the screen and the user's choice, then the user's colours.
void ChooseLook(Program& program);
// The line is compared whole, case counts: "CHANGEAOL" asks for another client folder, "LIVEUPDATE"
// looks for a newer version unless the user is signed on; both end the program. Any other line
// means nothing.
void CommandLine(Program& program, std::string_view line);
void CheckPreviousInstance(Program& program);
void CheckForShadewright(Program& program);
void CheckForTellbox(Program& program);
// The runtime files must be there; the program's folders are made.
void IntegrityCheck(Program& program);

}  // namespace corvel
