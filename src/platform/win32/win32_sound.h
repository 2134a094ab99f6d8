// Wave sounds by the system's simplest player.
#pragma once

#include "platform/sound.h"

namespace corvel::win32 {

class Win32Sound : public Sound {
 public:
  bool Play(std::string_view path, std::uint32_t flags) override;
  void Stop() override;
};

}  // namespace corvel::win32
