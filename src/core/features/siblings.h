// The maker's other programs.
#pragma once

namespace corvel {

class Siblings {
 public:
  virtual ~Siblings() = default;
  // At the end of the start, if the user wants it: each from its stored path, if it is there.
  virtual void StartPalroster() = 0;
  virtual void StartBackdrape() = 0;
};

}  // namespace corvel
