// The user's choices: the settings tree as the program holds it, by section: settings.Clock is a
// ClockSettings. How a setting is declared stands in setting.h; the declarations lie in
// settings_*.h. Who uses a section includes its header, so that a change of a declaration compiles
// anew no more than its users.
#pragma once

#include "core/setting.h"

#include <memory>
#include <string_view>

namespace corvel {

struct RootSettings;
struct UserColorsSettings;
struct ToolbarSettings;
struct MenuSettings;
struct ClockSettings;
struct GeneralSettings;
struct CustomColorsSettings;
struct HugsSettings;
struct ChatKeywordsSettings;
struct ChatExtenderSettings;
struct HotWordsSettings;
struct QuickFindSettings;
struct RoomBustSettings;
struct CommandsSettings;
struct AliasSettings;
struct AIMEMailSettings;
struct WebPageURLSettings;
struct GarlandSettings;
struct WavListSettings;
struct DescriptionsSettings;
struct SendToSettings;
struct CategoriesSettings;
struct EWavSettings;
struct EFadeSettings;
struct EMailSettings;
struct WavScanSettings;
struct WavCheckSettings;
struct IMSettings;
struct AnswerWindowSettings;
struct FaderSettings;

// A new section is named above, among the members below, and in settings.cpp with its header.
class Settings {
  struct All;
  const std::unique_ptr<All> all_;

 public:
  // The two numbers are where the program keeps the values of UIMode and MenuAccess.
  Settings(SettingsStore& store, int& uiMode, int& accessMode);
  ~Settings();

  RootSettings& Root;
  UserColorsSettings& UserColors;
  ToolbarSettings& Toolbar;
  MenuSettings& Menu;
  ClockSettings& Clock;
  GeneralSettings& General;
  CustomColorsSettings& CustomColors;
  HugsSettings& Hugs;
  ChatKeywordsSettings& ChatKeywords;
  ChatExtenderSettings& ChatExtender;
  HotWordsSettings& HotWords;
  QuickFindSettings& QuickFind;
  RoomBustSettings& RoomBust;
  CommandsSettings& Commands;
  AliasSettings& Alias;
  AIMEMailSettings& AIMEMail;
  WebPageURLSettings& WebPageURL;
  GarlandSettings& Garland;
  WavListSettings& WavList;
  DescriptionsSettings& Descriptions;
  SendToSettings& SendTo;
  CategoriesSettings& Categories;
  EWavSettings& EWav;
  EFadeSettings& EFade;
  EMailSettings& EMail;
  WavScanSettings& WavScan;
  WavCheckSettings& WavCheck;
  IMSettings& IM;
  AnswerWindowSettings& AnswerWindow;
  FaderSettings& Fader;

  void Load(LoadGroup group);
  // The groups that the start loads as soon as it knows the client. Beside one whose windows can't
  // be taken into the IM manager, the manager's keys aren't read: they are off, whatever the user
  // once chose.
  void LoadForClient(bool canManageIMs);

  const SettingsTree& tree;
};

}  // namespace corvel
