// Chance for random runs: the same for the same seed with every compiler.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace corvel::tools {

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  // Any 64 bits (SplitMix64).
  std::uint64_t Draw() {
    std::uint64_t z = state_ += 0x9E3779B97F4A7C15;
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9;
    z = (z ^ z >> 27) * 0x94D049BB133111EB;
    return z ^ z >> 31;
  }
  // From 0 to below `end`, which is at least 1.
  int Below(int end) { return static_cast<int>(Draw() % static_cast<std::uint64_t>(end)); }
  int Between(int first, int last) { return first + Below(last - first + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <class List>
  auto& OneOf(List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace corvel::tools
