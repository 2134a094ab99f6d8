// The memory of one process; see process_arena.h.
#include "platform/desk/process_arena.h"

#include <algorithm>

namespace corvel::desk {
namespace {

constexpr std::uint32_t kBase = 0x00400000;
constexpr std::size_t kPage = 4096;
constexpr std::size_t kAlignment = 16;
constexpr char kFreedByte = static_cast<char>(0xDD);

std::size_t RoundedUp(std::size_t size, std::size_t unit) {
  return (std::max<std::size_t>(size, 1) + unit - 1) / unit * unit;
}

}  // namespace

std::uint32_t ProcessArena::Allocate(std::string_view bytes) {
  const std::size_t size = RoundedUp(bytes.size(), kAlignment);
  std::uint32_t address = 0;
  if (auto& freed = freed_[size]; !freed.empty()) {
    address = freed.back();
    freed.pop_back();
  } else {
    address = kBase + static_cast<std::uint32_t>(used_);
    used_ += size;
    if (used_ > pages_.size()) pages_.resize(RoundedUp(used_, kPage), '\0');
  }
  sizes_[address] = size;
  Poke(address, std::string(size, '\0'));
  Poke(address, bytes);
  return address;
}

void ProcessArena::Poke(std::uint32_t address, std::string_view bytes) {
  if (address < kBase || address - kBase >= pages_.size()) return;
  const std::size_t at = address - kBase;
  const std::size_t count = std::min(bytes.size(), pages_.size() - at);
  std::copy_n(bytes.begin(), count, pages_.begin() + static_cast<std::ptrdiff_t>(at));
}

void ProcessArena::Free(std::uint32_t address) {
  const auto block = sizes_.find(address);
  if (block == sizes_.end()) return;
  Poke(address, std::string(block->second, kFreedByte));
  freed_[block->second].push_back(address);
  sizes_.erase(block);
}

std::optional<std::string> ProcessArena::Read(std::uint32_t address, std::size_t size) const {
  if (address < kBase) return std::nullopt;
  const std::size_t at = address - kBase;
  if (at > pages_.size() || size > pages_.size() - at) return std::nullopt;
  return pages_.substr(at, size);
}

void ProcessArena::Clear() { *this = ProcessArena{}; }

}  // namespace corvel::desk
