// The desk's sound. A sound plays for the time that its header gives, in virtual time.
#include "platform/desk/desk_sound.h"

#include "platform/desk/desk_services.h"
#include "platform/desk/wave_header.h"

namespace corvel::desk {

std::int64_t DeskSound::LengthOf(std::string_view path) const {
  const auto bytes = desk_.files().Peek(path);
  const auto header = bytes ? ReadWaveHeader(*bytes) : std::nullopt;
  return header ? header->Milliseconds() : 0;
}

bool DeskSound::Play(std::string_view path, std::uint32_t flags) {
  Playback& own = playing_[desk_.Current()];
  if ((flags & sound_flag::kNoStop) && own.endsAt > desk_.NowMs()) return false;
  const bool waits = (flags & sound_flag::kAsync) == 0;
  own = {};
  if (waits && LengthOf(path) == 0) return false;
  // One that is waited for is over when the call comes back.
  if (!waits) own = {std::string(path), desk_.NowMs() + LengthOf(path)};
  desk_.Note("sound", {std::string(path)});
  return true;
}

void DeskSound::Stop() {
  playing_.erase(desk_.Current());
  desk_.Note("sound-stopped", {});
}

std::string DeskSound::Playing() const {
  for (const auto& [process, playback] : playing_)
    if (playback.endsAt > desk_.NowMs()) return playback.path;
  return "";
}

}  // namespace corvel::desk
