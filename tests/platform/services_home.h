// A desk without processes, for tests of the desk's own services.
#pragma once

#include "base/text.h"
#include "platform/desk/desk.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

class ServicesHome : public ::testing::Test {
 protected:
  Platform& system() { return desk_.platform(); }
  desk::Desk& desk() { return desk_; }
  // The words of each entry of a kind.
  std::vector<std::vector<std::string>> Journal(std::string_view kind) {
    std::vector<std::vector<std::string>> words;
    for (const auto& entry : desk_.journal().Entries())
      if (entry.kind == kind) words.push_back(entry.words);
    return words;
  }

 private:
  desk::Desk desk_;
};

// A PCM wave file of silence: one channel, 8 bits, 8000 samples a second.
inline std::string WaveFile(int milliseconds) {
  const auto number = [](std::size_t value, std::size_t bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
  };
  const std::string data(static_cast<std::size_t>(milliseconds) * 8, '\x80');
  return "RIFF" + number(data.size() + 36, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
         number(1, 2) + number(8000, 4) + number(8000, 4) + number(1, 2) + number(8, 2) + "data" +
         number(data.size(), 4) + data;
}

}  // namespace corvel
