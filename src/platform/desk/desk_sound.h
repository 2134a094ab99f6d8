// The desk's sound: what plays, and until when.
#pragma once

#include "platform/desk/desk.h"

#include <map>
#include <string>
#include <string_view>

namespace corvel::desk {

class DeskSound : public Sound {
 public:
  explicit DeskSound(Desk& desk) : desk_(desk) {}
  bool Play(std::string_view path, std::uint32_t flags) override;
  void Stop() override;

  std::string Playing() const;  // "" for nothing; of several processes' sounds any
  void ProcessEnded(ProcessId process) { playing_.erase(process); }

 private:
  struct Playback {
    std::string path;
    std::int64_t endsAt = 0;
  };
  std::int64_t LengthOf(std::string_view path) const;  // milliseconds; 0 for no wave file

  Desk& desk_;
  std::map<ProcessId, Playback> playing_;
};

}  // namespace corvel::desk
