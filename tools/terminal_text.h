// Lines of the room on a terminal: the mark-up of a fade in its real colours.
#pragma once

#include <string>
#include <string_view>

namespace corvel::tools {

// A line as the client draws it, in UTF-8. With `color` its colour, bold, italic and underline tags
// become the terminal's own codes (24-bit colour); without, they are left out.
std::string OnTerminal(std::string_view markedUp, bool color);

// The file behind the stream is a terminal that shows 24-bit colours.
bool StdoutShowsColor();
bool StdoutIsTerminal();
bool StdinIsTerminal();

}  // namespace corvel::tools
