// A wav's file name, and the name that the user knows it by.
#pragma once

#include <cstddef>
#include <string_view>

namespace corvel {

inline constexpr std::size_t kWavExtension = 4;  // of ".wav", in characters

// Cuts the extension off whatever it is; a shorter name becomes "".
constexpr std::string_view WithoutExtension(std::string_view fileName) {
  return fileName.substr(0, fileName.size() < kWavExtension ? 0 : fileName.size() - kWavExtension);
}

}  // namespace corvel
