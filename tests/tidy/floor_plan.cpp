#include "tests/tidy/floor_plan.h"

#include <algorithm>
#include <sstream>

namespace corvel::tidy {
namespace {

constexpr std::string_view kHeading = "| Folder | What it is | May include | Of the system |";

struct Row {
  std::string place;
  std::vector<std::string> cells;  // folder, what it is, may include, of the system
};

std::string Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ') || text.ends_with('\r')) text.remove_suffix(1);
  return std::string(text);
}

// The cells of "| a | b |".
std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  for (std::size_t at = 0; at + 1 < line.size();) {
    const std::size_t end = std::min(line.find('|', at + 1), line.size());
    cells.push_back(Trimmed(std::string_view(line).substr(at + 1, end - at - 1)));
    at = end;
  }
  return cells;
}

std::vector<Row> RowsOf(const std::string& path, const std::string& text, Faults& faults) {
  std::vector<Row> rows;
  std::istringstream lines(text);
  bool inTable = false;
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    inTable = Trimmed(line) == kHeading || (inTable && line.starts_with('|'));
    if (!inTable || !line.starts_with("| `")) continue;
    Row row{path + ":" + std::to_string(number), CellsOf(line)};
    if (row.cells.size() == 4)
      rows.push_back(std::move(row));
    else
      faults.push_back(row.place + ": a row has four cells, as " + std::string(kHeading));
  }
  return rows;
}

// A name in backquotes, and whether "down to" stands anywhere in front of it.
struct Named {
  std::string name;
  bool downTo = false;
};

std::vector<Named> NamesIn(const std::string& cell) {
  std::vector<Named> names;
  for (std::size_t at = cell.find('`'); at != std::string::npos; at = cell.find('`', at + 1)) {
    const std::size_t end = std::min(cell.find('`', at + 1), cell.size());
    std::string name = cell.substr(at + 1, end - at - 1);
    if (name.ends_with('/')) name.pop_back();
    names.push_back({std::move(name), cell.find("down to") < at});
    at = end;
  }
  return names;
}

// Whether nothing but names and "down to" stands there.
bool IsList(std::string cell) {
  for (std::size_t at = cell.find('`'); at != std::string::npos; at = cell.find('`', at))
    cell.erase(at, cell.find('`', at + 1) - at + 1).insert(at, "NAME");
  std::istringstream parts(cell);
  bool isList = !cell.empty();
  for (std::string part; std::getline(parts, part, ',');)
    isList = isList && (Trimmed(part) == "NAME" || Trimmed(part) == "down to NAME");
  return isList;
}

bool HoldsCpp(const Tree& tree, const std::string& folder) {
  const bool andBelow = folder.ends_with("/*");
  const std::string front =
      folder.substr(0, folder.size() - (andBelow ? 1 : 0)) + (andBelow ? "" : "/");
  for (auto at = tree.lower_bound(front); at != tree.end() && at->first.starts_with(front); ++at)
    if (IsCpp(at->first) && (andBelow || FolderOf(at->first) == folder)) return true;
  return false;
}

// --- What no table may say ---------------------------------------------------------------------

bool IsSeam(const std::string& path) {
  return (path + "/").starts_with("src/base/") || (path + "/").starts_with("src/platform/");
}

// What each part of the house may be built on at all.
std::string WhyNever(const std::string& from, const std::string& to) {
  const std::string top = TopOf(from), other = TopOf(to);
  if (top == "tests" || top == "benchmarks") return "";
  if (other == "tests" || other == "benchmarks") return "nothing that is shipped includes a test";
  if (top == "src" && other != "src") return "the program knows nothing of what stands beside it";
  if (top == "practice" && other == "tools") return "the practice client knows no tool";
  if (top == "practice" && other == "src" && !IsSeam(to))
    return "the practice client stands on the seam and shares nothing with the program: each is to "
           "check the other";
  return "";
}

// Folders that are of one home by their name.
bool IsOfWindows(const std::string& folder) {
  static const std::set<std::string> kNames = {"win32", "hook", "runtime", "aol", "launch32"};
  return IsTest(folder) || TopOf(folder) == "benchmarks" ||
         kNames.contains(folder.substr(folder.rfind('/') + 1));
}

void CheckSystem(const Floor& floor, Faults& faults) {
  const std::string top = TopOf(floor.folder);
  if (floor.mayWindows && !IsOfWindows(floor.folder))
    faults.push_back(floor.place + ": Windows belongs behind the seam, in a folder win32/");
  if (floor.mayMachine && (top == "src" || top == "practice"))
    faults.push_back(floor.place +
                     ": what is shipped has no streams, files or threads but the seam's");
  if (floor.mayTestLibrary && top != "tests" && top != "benchmarks")
    faults.push_back(floor.place + ": the test library is for tests");
}

bool Knows(const Floor& floor, const std::string& folder) {
  return std::any_of(floor.may.begin(), floor.may.end(), [&](const std::string& name) {
    return name == folder || (IsHeader(name) && FolderOf(name) == folder);
  });
}

// A feature is what the composition in src/app names; no other floor of the program knows one.
void CheckFeatures(const std::vector<Floor>& floors, Faults& faults) {
  const auto app = std::find_if(floors.begin(), floors.end(),
                                [](const Floor& floor) { return floor.folder == "src/app"; });
  if (app == floors.end()) return;
  for (const Floor& floor : floors) {
    if (TopOf(floor.folder) != "src" || floor.folder.starts_with("src/app")) continue;
    for (const std::string& feature : app->names)
      if (Knows(floor, feature))
        faults.push_back(floor.place + ": `" + NameOf(feature) + "` is a feature, which only " +
                         "`app` includes; what two features need goes a floor down");
  }
}

// --- Reading -------------------------------------------------------------------------------------

void ReadSystem(const Row& row, Floor& floor, Faults& faults) {
  std::istringstream words(row.cells[3]);
  for (std::string word; std::getline(words, word, ',');) {
    word = Trimmed(word);
    if (word == "Windows")
      floor.mayWindows = true;
    else if (word == "this machine")
      floor.mayMachine = true;
    else if (word == "test library")
      floor.mayTestLibrary = true;
    else if (word != "nothing")
      faults.push_back(row.place +
                       ": of the system there is nothing, this machine, Windows or test " +
                       "library, not \"" + word + "\"");
  }
  CheckSystem(floor, faults);
}

class Reader {
 public:
  Reader(const Tree& tree, std::vector<Floor>& floors, Faults& faults)
      : tree_(tree), floors_(floors), faults_(faults) {}

  void Read(const Row& row) {
    const std::vector<Named> folder = NamesIn(row.cells[0]);
    Floor floor;
    floor.folder = TopOf(row.place) == "src" ? "src/" + folder[0].name : folder[0].name;
    floor.place = row.place;
    if (!HoldsCpp(tree_, floor.folder))
      faults_.push_back(row.place + ": there is no C++ in " + floor.folder + "; take the row away");
    else if (TableOf(floor.folder) != row.place.substr(0, row.place.find(':')))
      faults_.push_back(row.place + ": the row of " + floor.folder + " belongs in " +
                        TableOf(floor.folder));
    if (Find(floor.folder) != nullptr)
      faults_.push_back(row.place + ": " + floor.folder + " has a row already");
    ReadIncludes(row, floor);
    ReadSystem(row, floor, faults_);
    floors_.push_back(std::move(floor));
  }

 private:
  const Floor* Find(const std::string& folder) const {
    for (const Floor& floor : floors_)
      if (floor.folder == folder) return &floor;
    return nullptr;
  }

  void ReadIncludes(const Row& row, Floor& floor) {
    const std::string& cell = row.cells[2];
    floor.mayAnything = cell == "anything";
    const std::vector<Named> names = NamesIn(cell);
    if (!IsList(cell) && cell != "nothing" && cell != "anything")
      faults_.push_back(row.place + ": name folders in backquotes, or say nothing or anything");
    if (floor.mayAnything && TopOf(floor.folder) != "tests")
      faults_.push_back(row.place + ": only tests may include anything");
    for (const Named& named : names) ReadName(named, floor);
  }

  void ReadName(const Named& named, Floor& floor) {
    const Floor* below = Find("src/" + named.name);
    if (below == nullptr) below = Find(named.name);
    const std::string header =
        tree_.contains("src/" + named.name) ? "src/" + named.name : named.name;
    if (below == nullptr && !(IsHeader(header) && tree_.contains(header))) {
      faults_.push_back(floor.place + ": `" + named.name +
                        "` is no folder of a row above this one, " + "and no header");
      return;
    }
    const std::string target = below == nullptr ? header : below->folder;
    if (const std::string why = WhyNever(floor.folder, target); !why.empty())
      faults_.push_back(floor.place + ": not `" + named.name + "`: " + why);
    floor.names.insert(target);
    floor.may.insert(target);
    if (named.downTo && below != nullptr) floor.may.insert(below->may.begin(), below->may.end());
  }

  const Tree& tree_;
  std::vector<Floor>& floors_;
  Faults& faults_;
};

}  // namespace

FloorPlan::FloorPlan(const Tree& tree, Faults& faults) {
  // In the order in which they build on one another: a row names only rows that stand before it.
  std::vector<std::string> tops = {"src", "practice", "tools", "tests"};
  for (const auto& [path, text] : tree)
    if (path == TableOf(path) && std::find(tops.begin(), tops.end(), TopOf(path)) == tops.end())
      tops.push_back(TopOf(path));
  Reader reader(tree, floors_, faults);
  for (const std::string& top : tops)
    if (const auto readme = tree.find(TableOf(top)); readme != tree.end())
      for (const Row& row : RowsOf(readme->first, readme->second, faults)) reader.Read(row);
  CheckFeatures(floors_, faults);
}

const Floor* FloorPlan::Of(const std::string& folder) const {
  const Floor* best = nullptr;
  for (const Floor& floor : floors_) {
    if (floor.folder == folder) return &floor;
    if (!floor.folder.ends_with("/*")) continue;
    const std::string front = floor.folder.substr(0, floor.folder.size() - 1);
    if ((folder + "/").starts_with(front)) best = &floor;
  }
  return best;
}

bool FloorPlan::Allows(const Floor& floor, const std::string& header) const {
  return floor.mayAnything || floor.may.contains(header) || floor.may.contains(FolderOf(header));
}

std::string TableOf(const std::string& folder) { return TopOf(folder) + "/README.md"; }

std::string NameOf(const std::string& path) {
  return path.starts_with("src/") ? path.substr(4) : path;
}

}  // namespace corvel::tidy
