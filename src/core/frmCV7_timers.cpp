// The main loop: what frmCV7's two own timers do at each tick.
//
// Nothing in a tick reaches the user as an error: each step stands for itself, and the next one
// runs whatever became of it. Any step that waits lets other ticks and hooks run inside, so the way
// down can have been gone by the time it comes back.
#include "base/text.h"
#include "core/dialogs.h"
#include "core/features/access.h"
#include "core/features/chat_tools.h"
#include "core/features/client.h"
#include "core/features/fader_windows.h"
#include "core/features/instant_messages.h"
#include "core/features/read_mail_watch.h"
#include "core/find_client.h"
#include "core/frmCV7.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/report_error.h"

namespace corvel {

namespace {

constexpr const char* kFadeNewsPage = "http://corvel.example/news/fading.html";

// The child windows of a chat room that are hooked.
struct RoomWindows {
  Window view, input, list, sendIcon;
  bool AllThere() const { return view && input && list && sendIcon; }
};

RoomWindows FindRoomWindows(Program& program, Window room) {
  WindowSystem& windows = program.platform.windows;
  const auto first = [&](const char* className) {
    return windows.FindChild(room, {}, className, std::nullopt);
  };
  RoomWindows found;
  if (program.g.AOLVer == "3") {
    found.view = first("_AOL_VIEW");
    found.input = first("_AOL_EDIT");
  } else {
    found.view = first("RICHCNTL");
    if (found.view) found.input = windows.FindChild(room, found.view, "RICHCNTL", std::nullopt);
  }
  found.list = first("_AOL_LISTBOX");
  found.sendIcon = windows.Next(found.input);
  if (program.g.AOLVer != "3" && program.g.AOLLocale == locale::kUk)
    found.sendIcon = windows.Next(found.sendIcon);
  return found;
}

// The text behind the first colon of an IM's caption.
std::string SenderInCaption(const std::string& caption) {
  const auto colon = caption.find(':');
  return colon == std::string::npos ? std::string() : Trim(caption.substr(colon + 1));
}

}  // namespace

void frmCV7::Timer1_Timer() {
  if (program.g.Unloading) {
    Timer1.SetEnabled(false);
    Unload();
    return;
  }
  using StepOfTick = void (frmCV7::*)();
  for (const StepOfTick step : {&frmCV7::RenewHooks, &frmCV7::FollowRoom, &frmCV7::WatchMailBar,
                                &frmCV7::FollowOnline, &frmCV7::WatchReadMail}) {
    if (program.g.Closing) return;
    GoOn([this, step] { (this->*step)(); });
  }
}

// A client that hung when it was to be hooked is hooked as soon as it can be.
void frmCV7::RenewHooks() {
  for (forms::SubClass* const hook : Hooks()) hook->Renew();
  chat.Renew();
  program.hub.instantMessages->RenewHooks();
}

void frmCV7::FollowRoom() {
  program.hub.client->LookForRoom();
  if (program.g.hChatRoom && !ChatHooked) HookRoom();
  if (!program.g.hChatRoom && ChatHooked) UnhookRoom();
}

void frmCV7::HookRoom() {
  if (program.g.AOLVer.empty()) return;  // a client that nobody knows
  const RoomWindows room = FindRoomWindows(program, program.g.hChatRoom);
  if (!room.AllThere()) return;  // still being built: the next tick tries again
  if (program.g.IsVersion4Or5()) {
    if (program.settings.Fader.ShowFadePanelWithChat && !program.g.FadePanelUp) {
      program.g.FadePanelUp = true;
      if (!program.hub.faderWindows->ShowPanelWithRoom()) program.g.FadePanelUp = false;
    }
    chat.Attach(program.g.hChatRoom);
  } else {
    sbcChatWin.SetHWnd(room.view);
  }
  sbcCmdLine.SetHWnd(room.input);
  sbcSendIcon.SetHWnd(room.sendIcon);
  SubClass3.SetHWnd(room.list);
  ChatHooked = true;
}

void frmCV7::UnhookRoom() {
  ChatHooked = false;
  SubClass3.SetHWnd({});
  sbcCmdLine.SetHWnd({});
  sbcSendIcon.SetHWnd({});
  if (program.g.IsVersion4Or5())
    chat.Detach();
  else
    sbcChatWin.SetHWnd({});
  GoOn([this] { program.hub.chatTools->RoomHasGone(); });
  if (program.g.FadePanelUp) {
    program.g.FadePanelUp = false;
    program.hub.faderWindows->HidePanel();
  }
}

void frmCV7::WatchMailBar() {
  Globals& g = program.g;
  if (!program.settings.EFade.ShowToolbar || !g.IsVersion4Or5()) return;
  WindowSystem& windows = platform().windows;
  g.hMailWin = program.hub.client->IsWriteMailWindow(windows.TopChild(g.hMDI));
  if (!g.hMailWin) {
    if (!MailBarUp) return;
    MailBarUp = false;
    program.hub.faderWindows->HideMailBar();
  } else if (!MailBarUp) {
    MailBarUp = true;
    if (program.hub.faderWindows->ShowMailBar())
      windows.SetFocus(g.hMailWin);  // the mail keeps the caret
  }
}

void frmCV7::FollowOnline() {
  Globals& g = program.g;
  if (program.hub.client->IsAOLOnline(false)) {
    if (g.IsOnline) return;
    g.CurrentSN = program.hub.client->GetUserSN();
    g.IsOnline = !g.Unloading;
    return;
  }
  if (g.Unloading) return;
  GoOn([this] { program.hub.instantMessages->TidyAfterSignOff(); });
  if (!g.IsOnline) return;
  g.CurrentSN.clear();
  ResetCaptionsOfSignedOff();
  g.IsOnline = false;
}

// The same on every version: where the row read "Hide AOL Main Window" since the load, it reads
// otherwise from the first sign-off on.
void frmCV7::ResetCaptionsOfSignedOff() {
  SetRowCaption(Command::kTurnIMsOff, "Turn IMs Off");
  program.hub.access->ResetCaptions();
  SetRowCaption(Command::kHideWelcome, "Hide Welcome Window");
}

void frmCV7::WatchReadMail() {
  const Hub& hub = program.hub;
  const bool plays = program.settings.EWav.PlayMailWav, scans = program.settings.WavScan.Active;
  if (!plays && !scans) return;
  const Window top = platform().windows.TopChild(program.g.hMDI);
  const Window label =
      hub.client->FindChildByClass(top, "_AOL_STATIC", program.g.AOLLocale == locale::kUk ? 9 : 3);
  if (!label || Lower(hub.client->GetAPIText(label)) != "reply") {
    hub.readMail->ForgetLastMail();
    return;
  }
  if (plays) hub.readMail->PlayMailWav(top);
  if (scans && !program.g.Unloading) hub.readMail->CheckForWavDL(top);
}

void frmCV7::Timer2_Timer() {
  if (!FindClientFrame(program)) UnloadAllForms(program, false);
  if (program.g.Unloading) {
    Unload();
    return;
  }
  if (program.g.Closing) return;
  GoOn([this] { DismissRefusalBox(); });
  GoOn([this] { DismissInvitation(); });
  GoOn([this] { CloseIgnoredIM(); });
}

// The room refuses faded text with a box of its own; it goes before the user sees it.
void frmCV7::DismissRefusalBox() {
  if (!program.settings.Fader.On) return;
  WindowSystem& windows = platform().windows;
  const Window box = windows.Find("#32770", program.g.strings.AOLTitle);
  if (!box) return;
  const Window text = program.hub.client->FindChildByClass(box, "Static", 2);
  if (!HoldsNoCase(program.hub.client->GetAPIText(text), "message is too long or too complex"))
    return;
  windows.EndDialog(box, -1);
  const bool wantsToRead = AskYesNo(
      program,
      "~B~CRThis AOL Chat Room is unable to accept faded text at this time.~B~CN~N ~NThe Corvel "
      "chat room fader feature will be switched off so you may continue to chat normally.~N "
      "~NWould you like to read more information about this problem?");
  if (wantsToRead && program.settings.General.UseExternalBrowser)
    OpenWithShell(program, this, kFadeNewsPage);
  else if (wantsToRead)
    program.hub.client->RunKeyword(kFadeNewsPage);
  program.hub.faderWindows->SwitchOff();
}

void frmCV7::DismissInvitation() {
  if (!program.settings.General.DismissBuddyInvites) return;
  const Window invitation =
      program.hub.client->FindChildByTitle(program.g.hMDI, "Invitation From: ", 1);
  if (!invitation) return;
  Pause(program, 0.5);
  platform().windows.Send(invitation, wm::kClose, 0, 0);
}

// With the manager off there is nobody else to turn an ignored IM away.
void frmCV7::CloseIgnoredIM() {
  if (program.settings.IM.TabsOn) return;
  const Window im =
      program.hub.client->FindChildByTitle(program.g.hMDI, ">Instant Message From: ", 1);
  if (!im) return;
  if (program.hub.instantMessages->IsIgnored(SenderInCaption(program.hub.client->GetAPIText(im))))
    platform().windows.Send(im, wm::kClose, 0, 0);
}

}  // namespace corvel
