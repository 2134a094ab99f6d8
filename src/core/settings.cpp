#include "core/settings.h"

#include "core/settings_chat.h"
#include "core/settings_fader.h"
#include "core/settings_im.h"
#include "core/settings_mail.h"
#include "core/settings_shell.h"
#include "core/settings_wavs.h"

namespace corvel {

struct Settings::All {
  SettingsTree tree;
#define CORVEL_SECTION(name) name##Settings name{tree};
  CORVEL_SECTIONS(CORVEL_SECTION)
#undef CORVEL_SECTION
};

#define CORVEL_SECTION(name) name(all_->name),
Settings::Settings(SettingsStore& store, int& uiMode, int& accessMode)
    : all_(new All{{store, uiMode, accessMode}}),
      CORVEL_SECTIONS(CORVEL_SECTION) tree(all_->tree) {}
#undef CORVEL_SECTION

Settings::~Settings() = default;

void Settings::Load(LoadGroup group) {
  for (Setting* const setting : all_->tree.settings)
    if (setting->Section().group == group) setting->Load();
}

void Settings::LoadForClient(bool canManageIMs) {
  for (const LoadGroup group : {LoadGroup::kToolbar, LoadGroup::kWavList, LoadGroup::kEMail,
                                LoadGroup::kWavScan, LoadGroup::kHotWords, LoadGroup::kIM})
    Load(group);
  if (canManageIMs) {
    Load(LoadGroup::kIMManager);
    return;
  }
  for (FlagSetting* const flag : {&IM.TabsOn, &IM.EnterSends, &IM.TabSwitches, &IM.MultipleRows})
    flag->SetForThisRun(false);
}

}  // namespace corvel
