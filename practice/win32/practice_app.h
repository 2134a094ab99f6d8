// practice.exe, installed as waol.exe: the practice client in real windows, with its channel and,
// where it is used by hand, its people.
#pragma once

#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_platform.h"
#include "practice/people.h"
#include "practice/settings.h"
#include "practice/win32/channel_server.h"
#include "practice/win32/low_memory.h"
#include "practice/win32/skin.h"

#include <optional>

namespace corvel::practice {

// Control and a letter, for the rows of the client's menus that name them.
class MenuKeys : public win32::MessageFilter {
 public:
  explicit MenuKeys(PracticeClient& client) : client_(client) {}
  bool Filter(MSG& message) override;

 private:
  PracticeClient& client_;
};

class PracticeApp {
 public:
  PracticeApp();
  ~PracticeApp();
  PracticeApp(const PracticeApp&) = delete;
  PracticeApp& operator=(const PracticeApp&) = delete;

  // Until the client's main window has gone.
  void Run();

 private:
  void TellMistakes();
  void LayAccountIndex();
  void Hear(std::string_view kind, const Words& words);

  win32::Win32Platform home_;
  SkinnedWindows windows_;
  Platform platform_;
  LowMemory memory_;
  Settings settings_;
  std::optional<PracticeClient> client_;
  std::optional<MenuKeys> keys_;
  std::optional<ChannelServer> channel_;
  std::optional<People> people_;
};

}  // namespace corvel::practice
