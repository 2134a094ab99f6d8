// The small text operations that the program is written in. Positions count from 0 here, and npos
// means "not there"; where the program's own rules count from 1 the caller converts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvel {

// Cuts blanks (code 32 only, no tabs or line ends) from both ends.
std::string Trim(std::string_view text);

std::string Lower(std::string_view text);
std::string Upper(std::string_view text);

bool EqualNoCase(std::string_view a, std::string_view b);
// Less-than by lower-cased bytes: the order of the program's sorted lists.
bool LessNoCase(std::string_view a, std::string_view b);
// True if `text` holds `part` anywhere, case ignored. An empty part is held by every text.
bool HoldsNoCase(std::string_view text, std::string_view part);

std::string Replaced(std::string_view text, std::string_view from, std::string_view to);
std::string WithoutBlanks(std::string_view text);
std::string Reversed(std::string_view text);
// The text up to its first NUL, or all of it.
std::string CutAtNul(std::string_view text);

// The folder of a path without its last backslash ("" if there is none), and what stands behind it.
std::string FolderOf(std::string_view path);
std::string FileNameOf(std::string_view path);

// The lines of a text file. CR LF, lone LF and lone CR all end a line; a last line without an end
// counts, an empty rest does not. The views point into `text`.
std::vector<std::string_view> Lines(std::string_view text);

// A number as the system's language reads it from the front of a text: blanks skipped, sign,
// digits, point, exponent; "&H" and "&O" forms; anything else ends it. No digits give 0. Never
// fails; values beyond double's range stick at its ends.
double Val(std::string_view text);

// Val, cut to a 32-bit integer and held within its range.
int IntVal(std::string_view text);

// True if all of the trimmed text is a decimal number.
bool IsNumeric(std::string_view text);

std::string TwoDigits(int number);  // from 0: "07", "12", "123"

}  // namespace corvel
