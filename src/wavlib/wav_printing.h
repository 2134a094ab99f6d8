// The wav list on paper, in a mail and in a text file.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"

#include <string>
#include <vector>

namespace corvel {

// A list as it stood when it was asked for, whatever is shown by the time that it comes out.
struct WavListing {
  std::string category;
  std::vector<std::string> names;
};

// The printed lines: one name each, or five, each at the next zone of fourteen columns.
std::vector<std::string> PrintedLines(const std::vector<std::string>& names, bool oneEach);

void PrintToPrinter(Program& program, const WavListing& listing);
void PrintToEMail(Program& program, AolClient& client, const WavListing& listing);
void PrintToFile(Program& program, const WavListing& listing);

}  // namespace corvel
