// What the random user has found so far, and how often he has used it: what he has used little
// draws him more. So everything that ever stands is used in the end, with no list of it anywhere.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace corvel::tools {

class SoakUses {
 public:
  void Saw(const std::string& thing) { ++counts_[thing].seen; }
  void Used(const std::string& thing) {
    if (!thing.empty()) ++counts_[thing].used;
  }
  int UsesOf(const std::string& thing) const;
  // A weight for the next draw: of what was never used it is several times its own.
  int Drawn(int weight, const std::string& thing) const;

  struct Row {
    std::string thing;
    int used = 0, seen = 0;
  };
  std::vector<Row> Table() const;  // by name

 private:
  struct Count {
    int used = 0, seen = 0;
  };
  std::map<std::string, Count> counts_;
};

}  // namespace corvel::tools
