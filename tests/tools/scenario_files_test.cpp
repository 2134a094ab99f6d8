// Every scenario of tests/scenarios holds.
#include "tools/scenario_player.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

std::vector<std::string> ScenarioFiles() {
  std::vector<std::string> files;
  const std::filesystem::path folder = std::filesystem::path(CORVEL_SOURCE_DIR) / "tests/scenarios";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.path().extension() == ".scn")
      files.push_back(std::filesystem::relative(entry.path(), folder).string());
  std::sort(files.begin(), files.end());
  return files;
}

class ScenarioFileTest : public testing::TestWithParam<std::string> {};

TEST_P(ScenarioFileTest, Holds) {
  const std::string path = std::string(CORVEL_SOURCE_DIR) + "/tests/scenarios/" + GetParam();
  const ScenarioVerdict verdict = PlayScenarioFile(path, {});
  EXPECT_EQ(verdict.exitCode, kHeld);
  for (const std::string& message : verdict.messages) ADD_FAILURE() << message;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ScenarioFileTest, testing::ValuesIn(ScenarioFiles()),
                         [](const auto& file) {
                           std::string name = file.param;
                           std::replace_if(
                               name.begin(), name.end(), [](char c) { return !std::isalnum(c); },
                               '_');
                           return name;
                         });

}  // namespace
}  // namespace corvel::tools
