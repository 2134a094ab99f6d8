// The user's choices: the settings tree as the program holds it, by section: settings.Clock is a
// ClockSettings. How a setting is declared stands in setting.h; the declarations lie in
// settings_*.h. Who uses a section includes its header, so that a change of a declaration compiles
// anew no more than its users.
#pragma once

#include "core/setting.h"

#include <memory>
#include <string_view>

namespace corvel {

// The sections, in the order of the page. A new one is named here, and its header in settings.cpp.
// clang-format off
#define CORVEL_SECTIONS(X) \
  X(Root) X(UserColors) X(Toolbar) X(Menu) X(Clock) X(General) X(CustomColors) \
  X(Hugs) X(ChatKeywords) X(ChatExtender) X(HotWords) X(QuickFind) X(RoomBust) \
  X(Commands) X(Alias) X(AIMEMail) X(WebPageURL) \
  X(Garland) X(WavList) X(Descriptions) X(SendTo) X(Categories) \
  X(EWav) X(EFade) X(EMail) X(WavScan) X(WavCheck) \
  X(IM) X(AnswerWindow) \
  X(Fader)
// clang-format on

#define CORVEL_SECTION(name) struct name##Settings;
CORVEL_SECTIONS(CORVEL_SECTION)
#undef CORVEL_SECTION

class Settings {
  struct All;
  const std::unique_ptr<All> all_;

 public:
  // The two numbers are where the program keeps the values of UIMode and MenuAccess.
  Settings(SettingsStore& store, int& uiMode, int& accessMode);
  ~Settings();

#define CORVEL_SECTION(name) name##Settings& name;
  CORVEL_SECTIONS(CORVEL_SECTION)
#undef CORVEL_SECTION

  void Load(LoadGroup group);
  // The groups that the start loads as soon as it knows the client. Beside one whose windows can't
  // be taken into the IM manager, the manager's keys aren't read: they are off, whatever the user
  // once chose.
  void LoadForClient(bool canManageIMs);

  const SettingsTree& tree;
};

}  // namespace corvel
