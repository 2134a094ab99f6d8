// `corvel-desk fade`: the fade engine as a filter on the command line.
//
// Reads Windows-1252 from the input and writes just the engine's bytes:
//   --number N       colours in use, any 16-bit number; outside 1 to 6 the text stays as it came
//   --colors C1,C2   up to six decimal colour values, red in the low byte; the others are black.
//                    Without --number their count is the number; without either it is 2
//   --solid --wavy --bold --italic --uline
//   --lines          each line is a text of its own, the wave running on, each result ended by a
//                    line feed; otherwise the whole input is one text, but for a line end at its
//                    very end, which is written behind it as it came
//   --html FILE      also writes a page that shows the result in colour
#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace corvel::tools {

// `args` are the words behind "fade". Returns the exit code: 0, or 2 with a message in `error` for
// bad options and for input, output or a page that cannot be read or written.
int RunFade(std::span<const std::string> args, std::istream& input, std::ostream& output,
            std::ostream& error);

// The same on the standard streams.
int RunFade(std::span<const std::string> args);

}  // namespace corvel::tools
