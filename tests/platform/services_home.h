// A desk without processes, for tests of the desk's own services.
#pragma once

#include "base/text.h"
#include "platform/desk/desk.h"
#include "tests/platform/home.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

using test::WaveFile;

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

}  // namespace corvel
