// Garland styles: lines of text that wrap a wav's sound code at the placeholder "{%}".
#pragma once

#include "base/cp1252.h"
#include "core/default_styles.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

inline constexpr std::string_view kPlaceholder = "{%}";

// Always offered, whatever the user's own file holds. The first is the fallback too.
inline constexpr std::array<std::string_view, 3> kBuiltInGarlands = {
    kDefaultGarland, "•- — ——•¦§¦•{%}•¦§¦•—— — -•"_cp, "<|–•°°•|(¤§{%}§¤)|•°°•–|>"_cp};

// What goes before and behind the sound code. Only the first placeholder counts, a second one is
// text.
struct StyleParts {
  std::string left, right;
};

bool IsValidStyle(std::string_view style);
StyleParts SplitStyle(std::string_view style);  // of a valid style

// What the one line has that is sent while the fallback takes the place of an invalid style: no
// left part, and all of the fallback but its first two characters.
StyleParts PartsAfterInvalidStyle(std::string_view fallback);

// The styles of a library file: one a line, closed by a TAB. A line without one is skipped; one
// that begins with a TAB has its style behind it.
std::vector<std::string> ParseStyleFile(std::string_view bytes);

}  // namespace corvel
