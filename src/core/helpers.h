// The common helpers that every part leans on.
#pragma once

#include "core/program.h"

#include <functional>
#include <string>
#include <string_view>

namespace corvel {

// Waits by the tick count, letting events happen: any timer or hook can run inside.
void Pause(Program& program, double seconds);

bool FileExists(Program& program, std::string_view pathOrPattern);
bool DirExists(Program& program, std::string_view path);         // "" gives false
void MakeDirIfMissing(Program& program, std::string_view path);  // one level
std::string ReadWholeFile(Program& program, std::string_view path);
void WriteWholeFile(Program& program, std::string_view path, std::string_view text);
// Without asking; a file that stays is a RunTimeError.
void RecycleFile(Program& program, Window owner, std::string_view path);

std::string GetWinDir(Program& program);
std::string GetSysDir(Program& program);

// Pulls a form back on the screen; called with 0 (vertical), then 1 (horizontal).
void RePosForm(Program& program, forms::Form& form, int mode);
void CenterForm(forms::Form& form);
// The usual way of a form that remembers its place: its stored Top and Left, pulled on the screen; without a stored Top, centred.
void RestorePlace(Program& program, forms::Form& form, PlaceSetting& place);
void SavePlace(const forms::Form& form, PlaceSetting& place);

// Button down and up, posted.
void ClickWindow(Program& program, Window window);

void OpenWithShell(Program& program, const forms::Form* form, std::string_view target);
void ShowHelp(Program& program, std::string_view topic);

// As the system writes them.
std::string BuildDate(Program& program);  // by the DateFormat setting
std::string BuildTime(Program& program);  // with or without the zone's name

// A length in milliseconds as minutes, seconds and hundredths: "01:01.50".
std::string CMinSec(int milliseconds);

// Ends the program from any depth: only the edge of the process catches it.
[[noreturn]] void EndProgram();

}  // namespace corvel
