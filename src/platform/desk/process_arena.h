// The memory of one process, as another one reads it.
//
// Like a real process's, it can be read by whole pages: what lies beside a block or in a freed one
// gives bytes that mean nothing, and only beyond the last page does reading fail.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvel::desk {

class ProcessArena {
 public:
  std::uint32_t Allocate(std::string_view bytes);
  // Bytes that would lie outside of the pages are dropped.
  void Poke(std::uint32_t address, std::string_view bytes);
  void Free(std::uint32_t address);
  std::optional<std::string> Read(std::uint32_t address, std::size_t size) const;
  void Clear();

 private:
  std::string pages_;
  std::size_t used_ = 0;
  std::unordered_map<std::uint32_t, std::size_t> sizes_;
  std::map<std::size_t, std::vector<std::uint32_t>> freed_;  // by size
};

}  // namespace corvel::desk
