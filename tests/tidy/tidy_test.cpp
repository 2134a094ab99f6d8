// The project as it stands is tidy.
#include "tests/tidy/tidy.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace corvel::tidy {
namespace {

namespace fs = std::filesystem;

// Pictures, sounds and data are only known by name.
bool IsRead(const std::string& path) {
  static const std::vector<std::string> kEnds = {".cmake", ".md", ".py", ".sh", "CMakeLists.txt"};
  if (IsCpp(path) || IsResource(path)) return true;
  return std::any_of(kEnds.begin(), kEnds.end(),
                     [&](const auto& end) { return path.ends_with(end); });
}

std::string TextOf(const fs::directory_entry& file) {
  std::string text(file.file_size(), ' ');
  std::ifstream(file.path(), std::ios::binary)
      .read(text.data(), static_cast<std::streamsize>(text.size()));
  return text;
}

Tree Project(const std::string& root) {
  Tree tree;
  for (auto at = fs::recursive_directory_iterator(root); at != fs::end(at); ++at) {
    const std::string path = at->path().generic_string().substr(root.size() + 1);
    if (path == "build" || path == ".git") at.disable_recursion_pending();
    if (at->is_regular_file()) tree[path] = IsRead(path) ? TextOf(*at) : "";
  }
  return tree;
}

TEST(Tidy, TheProjectIs) {
  const Tree project = Project(CORVEL_SOURCE_DIR);
  EXPECT_TRUE(project.contains("src/base/text.h"));
  for (const std::string& fault : FaultsOf(project)) ADD_FAILURE() << fault;
}

}  // namespace
}  // namespace corvel::tidy
