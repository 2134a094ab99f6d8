// What happens when the user reads a mail.
#pragma once

#include "platform/window_types.h"

namespace corvel {

class ReadMailWatch {
 public:
  virtual ~ReadMailWatch() = default;
  // Each tick of Timer1 with a read mail on top, each by its own setting. Whoever answers knows
  // which mail was the last.
  virtual void PlayMailWav(Window mail) = 0;
  virtual void CheckForWavDL(Window mail) = 0;
  // Each tick with none on top.
  virtual void ForgetLastMail() = 0;
};

}  // namespace corvel
