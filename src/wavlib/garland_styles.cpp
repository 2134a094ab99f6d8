#include "wavlib/garland_styles.h"

#include "base/text.h"

namespace corvel {

bool IsValidStyle(std::string_view style) {
  return style.find(kPlaceholder) != std::string_view::npos;
}

StyleParts SplitStyle(std::string_view style) {
  const auto at = style.find(kPlaceholder);
  return {std::string(style.substr(0, at)), std::string(style.substr(at + kPlaceholder.size()))};
}

StyleParts PartsAfterInvalidStyle(std::string_view fallback) {
  return {"", std::string(fallback.substr(2))};
}

std::vector<std::string> ParseStyleFile(std::string_view bytes) {
  std::vector<std::string> styles;
  for (const std::string_view line : Lines(bytes)) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) continue;
    styles.emplace_back(tab == 0 ? line.substr(1) : line.substr(0, tab));
  }
  return styles;
}

}  // namespace corvel
