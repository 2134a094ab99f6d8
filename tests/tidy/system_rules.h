// What a folder may take of the system: headers by lists, and in folders that run on every home no
// word that reaches past the seam either.
#pragma once

#include "tests/tidy/floor_plan.h"
#include "tests/tidy/source_text.h"

namespace corvel::tidy {

// Why this floor may not include a header in angle brackets; "" if it may.
std::string WhyNotHeader(const Floor& floor, const std::string& header);

// Directives, names of compilers and of the system, calls past the seam.
void CheckSystemUse(const std::string& path, const SourceText& source, const Floor& floor,
                    Faults& faults);

}  // namespace corvel::tidy
