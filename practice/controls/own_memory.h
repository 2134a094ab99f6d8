// What the client's process offers its lists: memory of its own that a stranger can read, at
// addresses that fit in 32 bits.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvel::practice {

class OwnMemory {
 public:
  virtual ~OwnMemory() = default;
  virtual std::uint32_t Allocate(std::string_view bytes) = 0;
  virtual void Write(std::uint32_t address, std::string_view bytes) = 0;
  virtual void Free(std::uint32_t address) = 0;
};

}  // namespace corvel::practice
