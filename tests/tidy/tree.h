// The project as the rules see it, so that a sample of a few lines can stand for it.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tidy {

// Each file's text by its path from the root, with "/"; "" for a file that no rule reads.
using Tree = std::map<std::string, std::string>;

// A sentence each: the place ("src/core/hub.h:12"), what is wrong, and where to put it right.
using Faults = std::vector<std::string>;

inline std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

// "src" of "src/core/hub.h".
inline std::string TopOf(const std::string& path) { return path.substr(0, path.find('/')); }

// ".h" of "src/core/hub.h".
inline std::string ExtensionOf(const std::string& path) {
  const auto dot = path.rfind('.');
  return dot == std::string::npos ? "" : path.substr(dot);
}

inline bool IsHeader(const std::string& path) { return ExtensionOf(path) == ".h"; }
inline bool IsCpp(const std::string& path) { return IsHeader(path) || ExtensionOf(path) == ".cpp"; }
// Resource scripts go through the same preprocessor.
inline bool IsResource(const std::string& path) {
  return path.ends_with(".rc") || path.ends_with(".rc.in");
}

inline bool IsTest(const std::string& path) { return TopOf(path) == "tests"; }

}  // namespace corvel::tidy
