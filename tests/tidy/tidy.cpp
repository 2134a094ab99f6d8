#include "tests/tidy/tidy.h"

#include "tests/tidy/floor_plan.h"
#include "tests/tidy/include_rules.h"
#include "tests/tidy/source_text.h"
#include "tests/tidy/system_rules.h"

#include <algorithm>

namespace corvel::tidy {
namespace {

// A file that nobody can take in at a sitting wants splitting.
constexpr std::ptrdiff_t kLongest = 600;

// What a compiler would take for C or C++, or others put into it, under a name that hides it.
const std::set<std::string> kOtherExtensions = {".c",   ".cc",  ".cppm", ".cxx", ".hh",
                                                ".hpp", ".hxx", ".inc",  ".inl", ".ipp",
                                                ".ixx", ".tcc", ".tpp"};

void CheckName(const std::string& path, Faults& faults) {
  std::string extension = ExtensionOf(path);
  for (char& c : extension) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  const bool isDisguised = extension != ExtensionOf(path) && IsCpp(extension);
  if (isDisguised || kOtherExtensions.contains(extension))
    faults.push_back(path + ": C++ stands in .h and .cpp");
}

void CheckLength(const std::string& path, const std::string& text, Faults& faults) {
  const auto ends = std::count(text.begin(), text.end(), '\n');
  const auto lines = ends + (text.empty() || text.ends_with('\n') ? 0 : 1);
  if (lines > kLongest)
    faults.push_back(path + ": " + std::to_string(lines) + " lines; split it, " +
                     std::to_string(kLongest) + " are too many already");
}

// A header opens with what it is for and is read once. Other files do so too, or belong to a header
// that does, which they name first; a test may open with what it tests.
void CheckOpening(const std::string& path, const std::string& text, const SourceText& source,
                  Faults& faults) {
  const bool opensWithWords = text.starts_with("//");
  if (IsHeader(path)) {
    const auto isOnce = [](const Directive& d) { return d.name == "pragma" && d.rest == "once"; };
    const auto& all = source.directives;
    if (!opensWithWords)
      faults.push_back(path + ":1: a header opens with a comment that says what it is for");
    if (all.empty() || !isOnce(all[0]) || std::count_if(all.begin(), all.end(), isOnce) != 1)
      faults.push_back(path + ":1: #pragma once is a header's first directive, and stands once");
    return;
  }
  const std::string own = NameOf(path.substr(0, path.size() - ExtensionOf(path).size())) + ".h";
  if (!opensWithWords && !IsTest(path) && !text.starts_with("#include \"" + own + "\""))
    faults.push_back(
        path + ":1: open with a comment that says what the file is for, or with its own header");
}

void CheckHasRow(const std::string& path, std::set<std::string>& told, Faults& faults) {
  const std::string folder = FolderOf(path);
  if (!told.insert(folder).second) return;
  if (folder.empty()) return faults.push_back(path + ": C++ stands in a folder");
  faults.push_back(
      folder + ": the folder has no row. Add one to the table of " + TableOf(folder) +
      ", above the folders that are to include it: | `" + NameOf(folder) +
      "/` | what it is | down to `FOLDER` | nothing |, and a library to CMakeLists.txt");
}

}  // namespace

Faults FaultsOf(const Tree& tree) {
  Faults faults;
  const FloorPlan plan(tree, faults);
  IncludeGraph graph;
  std::set<std::string> told;
  for (const auto& [path, text] : tree) {
    CheckName(path, faults);
    CheckLength(path, text, faults);
    if (!IsCpp(path) && !IsResource(path)) continue;
    const Floor* floor = plan.Of(FolderOf(path));
    if (floor == nullptr) {
      CheckHasRow(path, told, faults);
      continue;
    }
    const SourceText source = ReadSource(text);
    CheckIncludes(tree, plan, path, source, graph, faults);
    if (IsResource(path)) continue;
    CheckSystemUse(path, source, *floor, faults);
    CheckOpening(path, text, source, faults);
  }
  CheckCircles(graph, faults);
  return faults;
}

}  // namespace corvel::tidy
