#include "wavlib/sound_code.h"

namespace corvel {

std::string_view WavTrigger(bool upperCase) { return upperCase ? "{S " : "{s "; }

std::string ClosedWavCode(std::string_view name) { return "{S " + std::string(name) + "}"; }

std::string ParseWavName(std::string_view line) {
  constexpr std::size_t kTriggerLength = 3;
  for (auto at = line.find('{'); at != std::string_view::npos; at = line.find('{', at + 1)) {
    const std::string_view trigger = line.substr(at, kTriggerLength);
    if (trigger != WavTrigger(true) && trigger != WavTrigger(false)) continue;
    const std::string_view rest = line.substr(at + kTriggerLength);
    const auto end = rest.find('}');
    return end == std::string_view::npos ? std::string() : std::string(rest.substr(0, end));
  }
  return {};
}

}  // namespace corvel
