// The user's choices as they stand in memory: one struct a section of the settings tree, each field
// named like its key. Loaded once at start-up, group by group (see settings.cpp for the table of
// keys with their defaults); whoever changes a field also writes its key, at that moment.
#pragma once

#include "base/cp1252.h"
#include "core/fade_settings.h"
#include "core/settings_store.h"
#include "platform/peers.h"

#include <array>
#include <string>

namespace corvel {

inline constexpr std::string_view kDefaultGarland = "- – —•¤•{%}•¤•— – -"_cp;
inline constexpr std::string_view kDefaultHug = "{{{{{{{{{{{{{{{{{{{{ {%} }}}}}}}}}}}}}}}}}}}}";

struct Settings {
  struct {
    Color WindowColor = static_cast<Color>(0x8000000F), ButtonForecolor = 0xAD6D00,
          ButtonHighlight = 0, ButtonText = 0xFFFFFF;
    bool UseShadow = true;
  } UserColors;
  struct {
    bool Vertical = false;  // Pos
  } Toolbar;
  struct {
    std::string Current{kDefaultHug};
  } Hugs;
  struct {
    bool Show = false;
  } Clock;
  struct {
    bool DismissBuddyInvites = false, PopupFact = false, UseExternalBrowser = false,
         ShowPRMenu = false, LaunchPR = false, ShowBDMenu = false, LaunchBD = false;
    std::string PalrosterPath, BackdrapePath;
  } General;
  struct {
    bool Enabled = false, KeywordPopup = false;
  } ChatKeywords;
  struct {
    bool UseMultiline = false;
    float MultilineBurst = 1.5F;
    int CharsInLine = 60;
  } ChatExtender;
  struct {
    bool PlayMailWav = false;
  } EWav;
  struct {
    bool ShowToolbar = false;
  } EFade;
  struct {
    bool SaveResults = false;
  } QuickFind;
  struct {
    std::string Current{kDefaultGarland};
  } Garland;
  struct {
    bool DoubleClickSends = false;  // Double-click
    std::string PrintDirection = "0";
    bool NoAOLWavs = false;
    bool UseUpperWavTrigger = false;
  } WavList;
  struct {
    bool Show = false, AsWindow = false /* ShowAs */, SendToRoom = false, TrimDescrip = false;
  } Descriptions;
  struct {
    bool IncludeDescription = false, IncludeDisclaimer = false, UseAlias = false,
         UseSubjectStyle = false, DisplayOptions = false, IncludeTimeZone = false;
    int DefaultMsg = 1;
    // DateFormat: "1" the long date, "2" the short one, "" none: before the load, and for good if
    // what is stored is neither.
    std::string AliasName, SubjectStyle{kDefaultGarland}, DateFormat;
  } EMail;
  struct {
    bool Active = false, ShowProperties = false, NoPrompt = false, Notify = false;
  } WavScan;
  struct {
    bool CaseSensitive = false;
    std::array<bool, 4> ListActive{};
    std::array<std::string, 4> ListWavPath;
  } HotWords;
  struct {
    int ManagerUIMode = 0;  // Mode/UIMode: 0 tabs, 1 list
    int IMAnswerMode = 0, MaxLogs = 30;
    bool RepeatAnswer = false, ShowAnswerWin = false, IMWavsEnabled = false, TabsOn = false,
         EnterSends = false, TabSwitches = false, MultipleRows = false, LogIMs = false,
         LogCountNotify = false, AutoAcceptAIM = false, CloseIMsOnExit = false,
         TabExtraBtns = false, ListExtraBtns = false, ClickGraysArrow = false;
    bool StyleTabs = false, PositionTop = false;
  } IM;
  FadeSettings Fader;
};

// The load procedures, in the groups that start-up calls. Each reads its keys by one rule: the word
// that "" stands for is the default, a word that isn't listed leaves the field as it is.
void LoadUserColors(const SettingsStore& store, Settings& settings);
struct Globals;
void LoadToolbarGroup(const SettingsStore& store, Settings& settings, Globals& globals);
void LoadWavListGroup(const SettingsStore& store, Settings& settings);
void LoadEMailGroup(const SettingsStore& store, Settings& settings);
void LoadWavScanGroup(const SettingsStore& store, Settings& settings);
void LoadHotWordsGroup(const SettingsStore& store, Settings& settings);
void LoadIMGroup(const SettingsStore& store, Settings& settings, bool canManageIMs);
void LoadSiblingKeys(const SettingsStore& store, Settings& settings);
void LoadFaderGroup(const SettingsStore& store, Settings& settings);

}  // namespace corvel
