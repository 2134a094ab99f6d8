// Memory of this process that a stranger can read by 32-bit addresses.
#pragma once

#include "practice/controls/own_memory.h"

#include <cstdint>
#include <map>
#include <vector>

namespace corvel::practice {

// Pieces are cut from regions below 2 GB and used again by size. Regions stay until the object
// goes.
class LowMemory : public OwnMemory {
 public:
  LowMemory() = default;
  ~LowMemory() override;
  LowMemory(const LowMemory&) = delete;
  LowMemory& operator=(const LowMemory&) = delete;

  std::uint32_t Allocate(std::string_view bytes) override;  // 0 if there is no more
  void Write(std::uint32_t address, std::string_view bytes) override;
  void Free(std::uint32_t address) override;

 private:
  std::uint32_t Cut(std::uint32_t size);
  std::vector<std::uint32_t> regions_;
  std::uint32_t next_ = 0, end_ = 0;                           // what is left of the newest region
  std::map<std::uint32_t, std::uint32_t> sizes_;               // of the pieces in use, by address
  std::map<std::uint32_t, std::vector<std::uint32_t>> spare_;  // by size
};

}  // namespace corvel::practice
