// The bridge is the one place that knows the client: no other source asks for its version or
// country, or names a class or caption of its windows.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kSource = fs::path(CORVEL_SOURCE_DIR) / "src";

// What no other source says.
constexpr const char* kKnowledge[] = {
    "AOLLocale",
    "AOLVer ==",
    "AOLVer !=",
    "AOLVer.",
    "IsVersion4Or5",
    "\"_AOL_",
    "\"RICHCNTL",
    "\"AOL Child",
    "\"AOL Frame",
    "\"AOL Toolbar",
    "\"MDIClient",
    "\"#32770",
    "\"Welcome",
    "\"Write Mail",
    "\"Compose Mail",
    "\"Sign On",
    "Instant Message From",
    "\"Send Instant Message",
    "\"Invitation From",
    "\"Corvel IM Manager",
};

struct Exception {
  const char* file;
  const char* knowledge;
  const char* reason;
};
constexpr Exception kExceptions[] = {
    {"core/program.h", "AOLLocale", "keeps it, for the bridge"},
    {"platform/desk/desk_hooks.cpp", "\"RICHCNTL", "stands in for the control that tells lines"},
    {"platform/win32/win32_hooks.cpp", "\"RICHCNTL", "stands in for the control that tells lines"},
    {"platform/desk/desk_window_states.cpp", "\"#32770", "is the system's own class"},
    {"platform/desk/standard_classes.cpp", "\"#32770", "is the system's own class"},
    {"platform/win32/win32_window_orders.cpp", "\"#32770", "is the system's own class"},
};

// Without what stands behind "//".
std::string CodeOf(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::string code;
  for (std::string line; std::getline(in, line);) {
    const auto comment = line.find("//");
    const bool isAddress = comment != std::string::npos && comment > 0 && line[comment - 1] == ':';
    code += (isAddress ? line : line.substr(0, comment)) + "\n";
  }
  return code;
}

std::vector<fs::path> SourcesOutsideTheBridge() {
  std::vector<fs::path> sources;
  for (const auto& entry : fs::recursive_directory_iterator(kSource)) {
    const fs::path& path = entry.path();
    const bool isSource = path.extension() == ".h" || path.extension() == ".cpp";
    if (isSource && path.parent_path().filename() != "aolbridge") sources.push_back(path);
  }
  return sources;
}

bool IsException(const std::string& file, const std::string& knowledge) {
  return std::any_of(std::begin(kExceptions), std::end(kExceptions), [&](const Exception& e) {
    return file == e.file && knowledge == e.knowledge;
  });
}

TEST(OnePlace, KnowsTheClient) {
  const auto sources = SourcesOutsideTheBridge();
  ASSERT_GT(sources.size(), 100U);
  for (const fs::path& source : sources) {
    const std::string code = CodeOf(source), file = fs::relative(source, kSource).generic_string();
    for (const char* const knowledge : kKnowledge)
      EXPECT_TRUE(code.find(knowledge) == std::string::npos || IsException(file, knowledge))
          << file << " knows " << knowledge << ": ask the bridge";
  }
}

TEST(OnePlace, HasNoExceptionThatIsNotNeeded) {
  for (const Exception& one : kExceptions)
    EXPECT_NE(CodeOf(kSource / one.file).find(one.knowledge), std::string::npos)
        << one.file << " " << one.reason << " no more";
}

}  // namespace
