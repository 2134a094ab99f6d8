// How often things were used; see soak_uses.h.
#include "tools/desk/soak_uses.h"

namespace corvel::tools {
namespace {

constexpr int kNovelty = 12;  // times its own weight, while it was never used

}  // namespace

int SoakUses::UsesOf(const std::string& thing) const {
  const auto at = counts_.find(thing);
  return at == counts_.end() ? 0 : at->second.used;
}

int SoakUses::Drawn(int weight, const std::string& thing) const {
  return weight * 4 + weight * 4 * kNovelty / (1 + UsesOf(thing));
}

std::vector<SoakUses::Row> SoakUses::Table() const {
  std::vector<Row> rows;
  for (const auto& [thing, count] : counts_) rows.push_back({thing, count.used, count.seen});
  return rows;
}

}  // namespace corvel::tools
