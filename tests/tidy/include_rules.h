// Where includes lead: each to a file of the project that its folder may use, or to a header of the
// system; and nowhere in a circle.
#pragma once

#include "tests/tidy/floor_plan.h"
#include "tests/tidy/source_text.h"

namespace corvel::tidy {

// The files of the project that each file includes.
using IncludeGraph =
    std::map<std::string, std::map<std::string, std::size_t>>;  // to, at which line

void CheckIncludes(const Tree& tree, const FloorPlan& plan, const std::string& path,
                   const SourceText& source, IncludeGraph& graph, Faults& faults);

// Circles of files, and of folders.
void CheckCircles(const IncludeGraph& graph, Faults& faults);

}  // namespace corvel::tidy
