// Holds the architecture: includes run downward only, the system's headers stay behind the seam,
// and no folder switches on the platform.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// What each folder may include, besides itself. The same table stands, in words, in src/README.md.
const std::map<std::string, std::vector<std::string>> kMayInclude = {
    {"src/base", {}},
    {"src/platform", {"base"}},
    {"src/platform/desk", {"base", "platform"}},
    {"src/platform/hook", {}},
    {"src/platform/win32", {"base", "platform", "platform/hook"}},
    {"src/forms", {"base", "platform"}},
    {"src/core/features", {"platform", "forms"}},
    {"src/core", {"base", "platform", "forms", "core/features"}},
    {"src/aolbridge", {"base", "platform", "forms", "core", "core/features"}},
    {"src/fader", {"base", "core"}},
    {"src/wavlib", {"base", "platform", "forms", "core", "aolbridge", "fader"}},
    {"src/shell", {"base", "platform", "forms", "core", "core/features", "aolbridge"}},
    {"src/app", {"base", "platform", "forms", "core", "aolbridge", "fader", "wavlib", "shell"}},
    {"src/app/win32", {"base", "platform", "platform/win32", "app"}},
    {"src/runtime", {}},
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

// The folder of the file that a line includes in quotes; nothing for any other line.
std::optional<std::string> IncludedFolder(const std::string& line) {
  constexpr std::string_view kDirective = "#include \"";
  if (!line.starts_with(kDirective)) return std::nullopt;
  const std::string path = line.substr(kDirective.size(), line.rfind('"') - kDirective.size());
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool Allowed(const std::string& folder, const std::string& target) {
  const std::string own = folder.starts_with("src/") ? folder.substr(4) : folder;
  if (target == own) return true;
  const auto& may = kMayInclude.at(folder);
  return std::find(may.begin(), may.end(), target) != may.end();
}

TEST(Tidy, IncludesRunDownward) {
  for (const auto& [folder, may] : kMayInclude) {
    ASSERT_FALSE(SourcesIn(folder).empty()) << folder;
    for (const auto& source : SourcesIn(folder)) {
      for (const auto& line : LinesOf(source)) {
        const auto target = IncludedFolder(line);
        EXPECT_TRUE(!target || Allowed(folder, *target)) << source << ": " << line;
      }
    }
  }
}

TEST(Tidy, EveryFolderOfTheSourceIsInTheTable) {
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src"))
    EXPECT_TRUE(!entry.is_directory() ||
                kMayInclude.contains(fs::relative(entry.path(), kRoot).string()))
        << entry.path();
}

bool StandsAboveTheSeam(const std::string& folder) {
  for (const char* below :
       {"practice", "src/platform/win32", "src/platform/hook", "src/app/win32", "src/runtime"})
    if (folder == below) return false;
  return true;
}

// Above the seam nothing may know which home it runs in, or use what old systems lack.
TEST(Tidy, NothingAboveTheSeamReachesPastIt) {
  const std::vector<std::string> forbidden = {"#if",       "<windows.h>", "<filesystem>",
                                              "<fstream>", "<iostream>",  "<thread>",
                                              "<mutex>",   "<chrono>",    "random_device"};
  for (const auto& [folder, may] : kMayInclude) {
    if (!StandsAboveTheSeam(folder)) continue;
    for (const auto& source : SourcesIn(folder))
      for (const auto& line : LinesOf(source))
        for (const auto& word : forbidden)
          EXPECT_EQ(line.find(word), std::string::npos) << source << ": " << line;
  }
}

// A file that nobody can take in at a sitting wants splitting.
TEST(Tidy, FilesStaySmall) {
  for (const auto& [folder, may] : kMayInclude)
    for (const auto& source : SourcesIn(folder)) EXPECT_LE(LinesOf(source).size(), 600U) << source;
}

}  // namespace
