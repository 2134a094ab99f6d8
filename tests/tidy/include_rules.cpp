#include "tests/tidy/include_rules.h"

#include "tests/tidy/system_rules.h"

#include <algorithm>

namespace corvel::tidy {
namespace {

// "a/b/../c.h" is "a/c.h"; a path that leaves the project keeps its "..".
std::string Normal(const std::string& path) {
  std::vector<std::string> parts;
  for (std::size_t at = 0; at <= path.size();) {
    const std::size_t end = std::min(path.find('/', at), path.size());
    const std::string part = path.substr(at, end - at);
    if (part == ".." && !parts.empty() && parts.back() != "..")
      parts.pop_back();
    else if (!part.empty() && part != ".")
      parts.push_back(part);
    at = end + 1;
  }
  std::string normal;
  for (const std::string& part : parts) normal += (normal.empty() ? "" : "/") + part;
  return normal;
}

// The file of the project that the compiler would take; "" for none.
std::string Resolved(const Tree& tree, const std::string& from, const std::string& name,
                     bool isQuoted) {
  std::vector<std::string> places = {"src/" + name, name};
  if (isQuoted) places.insert(places.begin(), FolderOf(from) + "/" + name);
  for (const std::string& place : places)
    if (tree.contains(Normal(place))) return Normal(place);
  return "";
}

// What stands between the marks of "x" or <x>; "" if there is neither.
std::string NameIn(const std::string& rest, bool& isQuoted) {
  isQuoted = rest.starts_with('"');
  if (!isQuoted && !rest.starts_with('<')) return "";
  const std::size_t end = rest.find(isQuoted ? '"' : '>', 1);
  return end == std::string::npos ? "" : rest.substr(1, end - 1);
}

class Checker {
 public:
  Checker(const Tree& tree, const FloorPlan& plan, const std::string& path, Faults& faults)
      : tree_(tree), plan_(plan), path_(path), floor_(*plan.Of(FolderOf(path))), faults_(faults) {}

  // The file of the project that it leads to; "" for none.
  std::string Check(const Directive& include) {
    line_ = include.line;
    bool isQuoted = false;
    const std::string name = NameIn(include.rest, isQuoted);
    if (name.empty()) return Fault("an include names its file, not the macro " + include.rest);
    const std::string target = Resolved(tree_, path_, name, isQuoted);
    if (target.empty() && !isQuoted) return CheckSystemHeader(name);
    if (target.empty()) return Fault("there is no \"" + name + "\" in the project");
    CheckWay(name, target, isQuoted);
    CheckFloor(target);
    return target;
  }

 private:
  std::string Fault(const std::string& what) {
    faults_.push_back(path_ + ":" + std::to_string(line_) + ": " + what);
    return "";
  }

  std::string CheckSystemHeader(const std::string& name) {
    const std::string why = WhyNotHeader(floor_, name);
    return why.empty() ? "" : Fault("not <" + name + ">: " + why);
  }

  void CheckWay(const std::string& name, const std::string& target, bool isQuoted) {
    if (!isQuoted) Fault("our own <" + name + "> is included in quotes");
    if (name != NameOf(target)) Fault("write \"" + NameOf(target) + "\" for \"" + name + "\"");
    if (!IsHeader(target)) Fault("only headers are included, and they end in .h: " + target);
  }

  void CheckFloor(const std::string& target) {
    const std::string folder = FolderOf(path_), other = FolderOf(target);
    if (folder == other || plan_.Allows(floor_, target)) return;
    Fault(folder + " may not include " + other + " (" + NameOf(target) + "); if it is to, and " +
          other + " stands below it, name it in the row at " + floor_.place);
  }

  const Tree& tree_;
  const FloorPlan& plan_;
  const std::string& path_;
  const Floor& floor_;
  Faults& faults_;
  std::size_t line_ = 0;
};

// Finds one way round for each circle that a walk comes upon.
class CircleWalk {
 public:
  using Graph = std::map<std::string, std::set<std::string>>;
  CircleWalk(const Graph& graph, const char* what, Faults& faults)
      : graph_(graph), what_(what), faults_(faults) {
    for (const auto& [node, targets] : graph_) Walk(node);
  }

 private:
  void Walk(const std::string& node) {
    if (done_.contains(node)) return;
    const auto at = std::find(way_.begin(), way_.end(), node);
    if (at != way_.end()) return Tell(at);
    way_.push_back(node);
    if (const auto found = graph_.find(node); found != graph_.end())
      for (const std::string& target : found->second) Walk(target);
    way_.pop_back();
    done_.insert(node);
  }

  void Tell(std::vector<std::string>::const_iterator at) {
    std::string fault = *at + ": " + what_ + " include one another in a circle: ";
    for (auto step = at; step != way_.cend(); ++step) fault += *step + " > ";
    faults_.push_back(fault + *at);
  }

  const Graph& graph_;
  const char* what_;
  Faults& faults_;
  std::vector<std::string> way_;
  std::set<std::string> done_;
};

}  // namespace

void CheckIncludes(const Tree& tree, const FloorPlan& plan, const std::string& path,
                   const SourceText& source, IncludeGraph& graph, Faults& faults) {
  Checker checker(tree, plan, path, faults);
  for (const Directive& directive : source.directives) {
    if (directive.name != "include") continue;
    const std::string target = checker.Check(directive);
    if (!target.empty()) graph[path].emplace(target, directive.line);
  }
}

void CheckCircles(const IncludeGraph& graph, Faults& faults) {
  CircleWalk::Graph files, folders;
  for (const auto& [path, targets] : graph)
    for (const auto& [target, line] : targets) {
      files[path].insert(target);
      if (FolderOf(path) != FolderOf(target)) folders[FolderOf(path)].insert(FolderOf(target));
    }
  CircleWalk(files, "files", faults);
  CircleWalk(folders, "folders", faults);
}

}  // namespace corvel::tidy
