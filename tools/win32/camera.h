// Asks whoever reads the output for pictures of the screen: "picture NUMBER X Y", each a line of
// its own, with the place of the pointer, and goes on when a line comes back.
//
// The picture shows what the screen has come to by then, and nothing later: all windows have drawn
// themselves, and whoever plays rests meanwhile.
#pragma once

#include <cstdint>

namespace corvel::tools {

class Camera {
 public:
  void Want() { wanted_ = true; }
  // To be asked before anything is done. True: not now, a picture is on its way.
  bool Rest();
  void TakeNow();

 private:
  void Ask();
  bool wanted_ = false, waiting_ = false;
  std::uint32_t dueAt_ = 0;
  int number_ = 0;
};

}  // namespace corvel::tools
