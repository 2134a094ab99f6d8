// The hub: one table of slots by which the core calls what it does not know.
//
// The core owns the timers, hooks and menus, and no feature's data. A slot says when it is called
// and what its answer means; app/compose.cpp fills it. Those two files show how the whole program
// meets. An empty slot means that its feature isn't there: the core then leaves the step out, and a
// menu row or button for it is greyed and says so.
#pragma once

#include "platform/hooks.h"
#include "platform/window_types.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace corvel {

// What can be chosen in the toolbar's menus, the tray and the client's menu alike.
enum class Command {
  kOptions,
  kKillHourglass,
  kUploadAndChat,
  kHideWelcome,
  kTechSupport,
  kAdvertise,
  kWebSite,
  kPalroster,
  kBackdrape,
  kExportImport,
  kHelp,
  kCheckForUpdates,
  kAbout,
  kExit,
  kHideAsTray,
  kHideAsMenu,
  kShowToolbar,
  kWavList,
  kHushlet,
  kFadeDesigner,
  kIMManager,
  kTurnIMsOff,
  kQuickFind,
  kRoomBuster,
  kAliases,
  kAimAddresses,
  kWebPages,
  kGarlandEditor,
  kHugEditor,
  kKeywordEditor,
  kHotWords,
  kEMailMessages,
  kDescriptions,
  kSendHug,
};

// Always filled: how the core asks the client's windows. aolbridge answers.
struct ClientSlots {
  // Start-up, once, in this order. They may tell the user and end the program.
  std::function<void()> GetAOLVersion, LoadAOLStrings, GetScreenNames, MSNCheck;
  // Each Timer1 tick: looks for the room and leaves it, or 0, in hChatRoom.
  std::function<void()> LookForRoom;
  // True while signed on; `showMessage` tells the user if not. Pumps events.
  std::function<bool(bool showMessage)> IsAOLOnline;
  // The signed-on name. Waits for the Welcome window.
  std::function<std::string()> GetUserSN;
  // The window itself if it is a write-mail window, else 0.
  std::function<Window(Window)> IsWriteMailWindow;
  std::function<Window(Window parent, std::string_view className, int n)> FindChildByClass;
  std::function<Window(Window parent, std::string_view title, int n)> FindChildByTitle;
  std::function<std::string(Window window)> GetAPIText;
  std::function<void(const std::string& target)> RunKeyword;
};

// Calls a slot if its feature is there.
inline void CallSlot(const std::function<void()>& slot) {
  if (slot) slot();
}

struct Hub {
  ClientSlots client;

  // Menu rows, by what they do. No entry: the feature isn't there.
  std::map<Command, std::function<void()>> commands;

  // --- LoadCorvel, after the central window stands, in this order; AOL 4.0 and 5.0 only for the
  // first two of them that say so.
  std::function<void()> InitializeIMManager;             // 4.0, 5.0, if TabsOn
  std::function<void()> ScanIncoming;                    // takes in fade schemes from \incoming\.
  std::function<void()> ShowFact;                        // if PopupFact
  std::function<std::string()> ChooseFact;               // as the splash loads: its fact of the day
  std::function<void()> StartPalroster, StartBackdrape;  // if LaunchPR, LaunchBD
  std::function<void()> LogCountCheck;

  // --- Hooks, run inside the client's window procedure: decide quickly.
  std::function<void(HookedMessage&)> ChatInputMessage;   // sbcCmdLine
  std::function<void(HookedMessage&)> SendIconMessage;    // sbcSendIcon
  std::function<void(HookedMessage&)> ChatViewMessage;    // sbcChatWin, AOL 3.0
  std::function<void(HookedMessage&)> PeopleListMessage;  // SubClass3
  std::function<void(HookedMessage&)> IMViewMessage;      // sbcMDI
  std::function<void(HookedMessage&)> MdiCreateMessage;   // sbcRealMDI
  std::function<void(HookedMessage&)> MenuMessage;        // sbcMenu: WM_INITMENUPOPUP and commands
  std::function<void(std::string_view sender, std::string_view text)> ChatLine;  // Chat, 4.0, 5.0

  // --- Timer1, in its order.
  std::function<void()> ShowFadePanel, HideFadePanel;  // the room has come, has gone
  std::function<void()> HideKeywordPopup;
  std::function<void()> ShowMailBar, HideMailBar;  // the mail fade bar
  std::function<void()> TidyIMsAfterSignOff;       // each tick while signed off
  std::function<void(Window mail)> PlayMailWav;    // a read-mail window is on top
  std::function<void(Window mail)> CheckForWavDL;
  std::function<void()> ForgetLastMail;  // none is
  // --- Timer2.
  std::function<void()> SwitchFaderOff;  // the room refused a faded line
  std::function<bool(const std::string& name)> IsIgnored;
  // --- The other two timers, every second.
  std::function<void()> AnswererTick, IMWavTick;

  // --- Windows shown at load of the central window.
  std::function<void()> ShowClock;

  // --- The ways to the commands: AccessMode.
  std::function<void()> SetUpAccess, TakeDownAccess;  // 1 and 2: as the central window loads, goes
  std::function<void(LParam mouse)> TrayMessage;
  std::function<void(std::uint32_t id)> ClientMenuRow;  // a value that MenuMessage has raised
  std::function<void()> ResetAccessCaptions;            // the user has signed off

  // --- The way down.
  std::function<void()> GiveBackIMs;  // before anything else is undone
  std::function<void()> UnhookIMs;    // part of UnhookSubclasses
};

}  // namespace corvel
