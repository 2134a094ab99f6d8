// What goes wrong with a drive because a test wants it to: calls that fail, and room that runs out.
// Whoever stands for a drive asks here first, so that a fault means the same on every home.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

class FileFaults {
 public:
  // The n-th of the following calls (1: the next) that can throw, on a path that holds `part`,
  // throws `errorNumber` and does nothing else.
  void FailCall(int n, int errorNumber, std::string part);
  std::size_t Pending() const { return faults_.size(); }
  // Each call that can throw passes here first. A call with two paths is counted once.
  void Begin(std::string_view path, std::string_view second = {});

  void SetFreeSpace(std::int64_t bytes) { freeSpace_ = bytes; }
  // Whatever is written must find room beside what is there already.
  bool HasRoom(std::int64_t bytes) const { return bytes <= freeSpace_; }
  // So many bytes stand where others stood.
  void Changed(std::size_t before, std::size_t now) {
    freeSpace_ += static_cast<std::int64_t>(before) - static_cast<std::int64_t>(now);
  }

 private:
  struct Fault {
    int callsLeft;
    int errorNumber;
    std::string part;
  };
  std::vector<Fault> faults_;
  std::int64_t freeSpace_ = std::int64_t{2} << 30;
};

}  // namespace corvel::desk
