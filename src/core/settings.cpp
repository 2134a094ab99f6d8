#include "core/settings.h"

#include "core/settings_chat.h"
#include "core/settings_fader.h"
#include "core/settings_im.h"
#include "core/settings_mail.h"
#include "core/settings_shell.h"
#include "core/settings_wavs.h"

namespace corvel {

// Declared in the order of the settings page.
struct Settings::All {
  SettingsTree tree;
  RootSettings Root{tree};
  UserColorsSettings UserColors{tree};
  ToolbarSettings Toolbar{tree};
  MenuSettings Menu{tree};
  ClockSettings Clock{tree};
  GeneralSettings General{tree};
  CustomColorsSettings CustomColors{tree};
  HugsSettings Hugs{tree};
  ChatKeywordsSettings ChatKeywords{tree};
  ChatExtenderSettings ChatExtender{tree};
  HotWordsSettings HotWords{tree};
  QuickFindSettings QuickFind{tree};
  RoomBustSettings RoomBust{tree};
  CommandsSettings Commands{tree};
  AliasSettings Alias{tree};
  AIMEMailSettings AIMEMail{tree};
  WebPageURLSettings WebPageURL{tree};
  GarlandSettings Garland{tree};
  WavListSettings WavList{tree};
  DescriptionsSettings Descriptions{tree};
  SendToSettings SendTo{tree};
  CategoriesSettings Categories{tree};
  EWavSettings EWav{tree};
  EFadeSettings EFade{tree};
  EMailSettings EMail{tree};
  WavScanSettings WavScan{tree};
  WavCheckSettings WavCheck{tree};
  IMSettings IM{tree};
  AnswerWindowSettings AnswerWindow{tree};
  FaderSettings Fader{tree};
};

Settings::Settings(SettingsStore& store, int& uiMode, int& accessMode)
    : all_(new All{{store, uiMode, accessMode}}),
      Root(all_->Root),
      UserColors(all_->UserColors),
      Toolbar(all_->Toolbar),
      Menu(all_->Menu),
      Clock(all_->Clock),
      General(all_->General),
      CustomColors(all_->CustomColors),
      Hugs(all_->Hugs),
      ChatKeywords(all_->ChatKeywords),
      ChatExtender(all_->ChatExtender),
      HotWords(all_->HotWords),
      QuickFind(all_->QuickFind),
      RoomBust(all_->RoomBust),
      Commands(all_->Commands),
      Alias(all_->Alias),
      AIMEMail(all_->AIMEMail),
      WebPageURL(all_->WebPageURL),
      Garland(all_->Garland),
      WavList(all_->WavList),
      Descriptions(all_->Descriptions),
      SendTo(all_->SendTo),
      Categories(all_->Categories),
      EWav(all_->EWav),
      EFade(all_->EFade),
      EMail(all_->EMail),
      WavScan(all_->WavScan),
      WavCheck(all_->WavCheck),
      IM(all_->IM),
      AnswerWindow(all_->AnswerWindow),
      Fader(all_->Fader),
      tree(all_->tree) {}

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
