// The layout of windows that don't care about theirs.
#pragma once

#include "practice/controls/area.h"

namespace corvel::practice {

class WindowHost;

// Labels, edits, combo boxes and gauges from the top down in their order; buttons with a face in a
// row at the bottom; lists and texts share what is left, side by side.
void ArrangeSimply(WindowHost& host, Window parent, Area area);

// The same for a box of the given size that has just been filled.
void ArrangeBox(WindowHost& host, Window box, Size inside);

}  // namespace corvel::practice
