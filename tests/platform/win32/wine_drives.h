// Drives of all kinds, which Wine makes of folders. A real Windows has those that it has.
#pragma once

#include "platform/files.h"

#include <set>
#include <string>

namespace corvel::test {

class WineDrives {
 public:
  WineDrives() = default;
  ~WineDrives();  // they go
  WineDrives(const WineDrives&) = delete;
  WineDrives& operator=(const WineDrives&) = delete;

  // What lies on it stands in `folder`. Throws where drives can't be made.
  void Set(char letter, DriveKind kind, const std::string& folder);

 private:
  std::set<char> letters_;
};

}  // namespace corvel::test
