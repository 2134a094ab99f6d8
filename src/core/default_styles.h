// The styles that hold where the user has chosen none.
#pragma once

#include "base/cp1252.h"

#include <string_view>

namespace corvel {

inline constexpr std::string_view kDefaultGarland = "- – —•¤•{%}•¤•— – -"_cp;
inline constexpr std::string_view kDefaultHug = "{{{{{{{{{{{{{{{{{{{{ {%} }}}}}}}}}}}}}}}}}}}}";

}  // namespace corvel
