#include "practice/win32/low_memory.h"

#include <algorithm>
#include <cstring>
#include <windows.h>

namespace corvel::practice {
namespace {

constexpr std::uint32_t kRegion = 0x10000, kUnit = 16;

void* At(std::uint32_t address) {
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(address));
}

std::uint32_t TakeAt(std::uintptr_t address) {
  void* const got = VirtualAlloc(reinterpret_cast<void*>(address), kRegion,
                                 MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(got));
}

// A wide process has to say where; in a narrow one all is low.
std::uint32_t NewRegion() {
  constexpr std::uintptr_t kFirst = 0x20000000, kLast = 0x7FFE0000;
  if (sizeof(void*) == sizeof(std::uint32_t)) return TakeAt(0);
  for (std::uintptr_t address = kFirst; address < kLast; address += kRegion)
    if (const std::uint32_t got = TakeAt(address)) return got;
  return 0;
}

}  // namespace

LowMemory::~LowMemory() {
  for (const std::uint32_t region : regions_) VirtualFree(At(region), 0, MEM_RELEASE);
}

std::uint32_t LowMemory::Cut(std::uint32_t size) {
  if (size > kRegion) return 0;
  if (end_ - next_ < size) {
    const std::uint32_t region = NewRegion();
    if (region == 0) return 0;
    regions_.push_back(region);
    next_ = region;
    end_ = region + kRegion;
  }
  const std::uint32_t address = next_;
  next_ += size;
  return address;
}

std::uint32_t LowMemory::Allocate(std::string_view bytes) {
  const auto wanted = static_cast<std::uint32_t>(std::max<std::size_t>(bytes.size(), 1));
  const std::uint32_t size = (wanted + kUnit - 1) / kUnit * kUnit;
  auto& spare = spare_[size];
  std::uint32_t address = 0;
  if (spare.empty()) {
    address = Cut(size);
    if (address == 0) return 0;
  } else {
    address = spare.back();
    spare.pop_back();
  }
  sizes_[address] = size;
  std::memset(At(address), 0, size);
  Write(address, bytes);
  return address;
}

void LowMemory::Write(std::uint32_t address, std::string_view bytes) {
  const auto piece = sizes_.find(address);
  if (piece == sizes_.end()) return;
  std::memcpy(At(address), bytes.data(), std::min<std::size_t>(bytes.size(), piece->second));
}

void LowMemory::Free(std::uint32_t address) {
  const auto piece = sizes_.find(address);
  if (piece == sizes_.end()) return;
  spare_[piece->second].push_back(address);
  sizes_.erase(piece);
}

}  // namespace corvel::practice
