// Wave sounds.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvel {

namespace sound_flag {
inline constexpr std::uint32_t kAsync = 0x0001;
inline constexpr std::uint32_t kNoStop = 0x0010;  // fails if another sound of ours is playing
}  // namespace sound_flag

class Sound {
 public:
  virtual ~Sound() = default;
  // Starts a wave file, ending what plays unless kNoStop says otherwise. False: not started,
  // because of kNoStop. (A missing file counts as started with kAsync, as the system has it.)
  virtual bool Play(std::string_view path, std::uint32_t flags) = 0;
  virtual void Stop() = 0;  // what we play, if anything
};

}  // namespace corvel
