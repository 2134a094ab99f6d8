// Holds the architecture: includes run downward only, the system's headers stay behind the seam,
// and no folder switches on the platform.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// What each folder may include, besides itself. The same table stands, in words, in src/README.md.
const std::map<std::string, std::vector<std::string>> kMayInclude = {
    {"src/base", {}},
    {"src/platform", {"base"}},
    {"src/platform/desk", {"base", "platform"}},
    {"src/forms", {"base", "platform"}},
    {"src/core", {"base", "platform", "forms"}},
    {"src/aolbridge", {"base", "platform", "forms", "core"}},
    {"src/fader", {"base", "core"}},
    {"src/wavlib", {"base", "platform", "forms", "core", "aolbridge", "fader"}},
    {"src/app", {"base", "platform", "forms", "core", "aolbridge", "fader", "wavlib"}},
    {"practice", {"base", "platform", "platform/desk"}},
};

const fs::path kRoot = CORVEL_SOURCE_DIR;

std::vector<fs::path> SourcesIn(const std::string& folder) {
  std::vector<fs::path> sources;
  for (const auto& entry : fs::directory_iterator(kRoot / folder))
    if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
      sources.push_back(entry.path());
  return sources;
}

std::vector<std::string> LinesOf(const fs::path& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string FolderOfInclude(const std::string& include) {
  const auto slash = include.rfind('/');
  return slash == std::string::npos ? "" : include.substr(0, slash);
}

bool Allowed(const std::string& folder, const std::string& target) {
  const std::string own = folder.starts_with("src/") ? folder.substr(4) : folder;
  if (target == own) return true;
  const auto& may = kMayInclude.at(folder);
  return std::find(may.begin(), may.end(), target) != may.end();
}

TEST(Tidy, IncludesRunDownward) {
  const std::regex include("^\\s*#\\s*include\\s+\"([^\"]+)\"");
  for (const auto& [folder, may] : kMayInclude) {
    ASSERT_FALSE(SourcesIn(folder).empty()) << folder;
    for (const auto& source : SourcesIn(folder)) {
      for (const auto& line : LinesOf(source)) {
        std::smatch match;
        if (!std::regex_search(line, match, include)) continue;
        EXPECT_TRUE(Allowed(folder, FolderOfInclude(match[1])))
            << source << " must not include " << match[1];
      }
    }
  }
}

TEST(Tidy, EveryFolderOfTheSourceIsInTheTable) {
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src"))
    if (entry.is_directory())
      EXPECT_TRUE(kMayInclude.contains(fs::relative(entry.path(), kRoot).string())) << entry.path();
}

// Above the seam nothing may know which home it runs in, or use what old systems lack.
TEST(Tidy, NothingAboveTheSeamReachesPastIt) {
  const std::regex forbidden(
      "#\\s*if|<windows\\.h>|<filesystem>|<fstream>|<iostream>|<thread>|<mutex>|<chrono>|random_"
      "device");
  for (const auto& [folder, may] : kMayInclude) {
    if (folder == "practice") continue;
    for (const auto& source : SourcesIn(folder))
      for (const auto& line : LinesOf(source))
        EXPECT_FALSE(std::regex_search(line, forbidden)) << source << ": " << line;
  }
}

// A file that nobody can take in at a sitting wants splitting.
TEST(Tidy, FilesStaySmall) {
  for (const auto& [folder, may] : kMayInclude)
    for (const auto& source : SourcesIn(folder)) EXPECT_LE(LinesOf(source).size(), 600U) << source;
}

}  // namespace
