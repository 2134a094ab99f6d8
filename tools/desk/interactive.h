// Scenarios by hand: each line that comes in is played at once and answered.
#pragma once

#include <cstdint>
#include <iosfwd>

namespace corvel::tools {

// Reads until the end of `in` or "quit". With `forPerson` it prompts. The answer is the
// exit code: 1 if an expectation did not hold, 2 if a line could not be read as a command.
int PlayByHand(std::istream& in, std::ostream& out, bool forPerson, std::uint64_t seed);

}  // namespace corvel::tools
