// Holds the architecture: what stands where, who includes whom, what of the system is used in which
// folder, and the outer shape of a file. The floor plan itself stands in the README.md files.
#pragma once

#include "tests/tidy/tree.h"

namespace corvel::tidy {

Faults FaultsOf(const Tree& tree);

}  // namespace corvel::tidy
