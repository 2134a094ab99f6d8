// A project of a few lines that is tidy, with things in it that only look like faults.
#pragma once

#include "tests/tidy/tree.h"

namespace corvel::tidy {

Tree Sample();

// A header that is as it should be, with this in it.
std::string Header(const std::string& body);

// A row of a table.
std::string RowOf(const std::string& folder, const std::string& may, const std::string& system);

}  // namespace corvel::tidy
