#include "platform/win32/win32_sound.h"

#include "base/text.h"

#include <windows.h>
// After the system's own.
#include <mmsystem.h>

namespace corvel::win32 {

static_assert(sound_flag::kAsync == SND_ASYNC && sound_flag::kNoStop == SND_NOSTOP);

bool Win32Sound::Play(std::string_view path, std::uint32_t flags) {
  return sndPlaySoundA(CutAtNul(path).c_str(), flags);
}

void Win32Sound::Stop() { sndPlaySoundA(nullptr, 0); }

}  // namespace corvel::win32
