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
#include "core/maker_pages.h"
#include "core/report_error.h"
#include "core/settings_fader.h"
#include "core/settings_im.h"
#include "core/settings_mail.h"
#include "core/settings_shell.h"

namespace corvel {

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
  const RoomParts room = program.hub.client->PartsOfRoom(program.g.hChatRoom);
  if (!room.AllThere()) return;  // still being built: the next tick tries again
  ShowFadePanelWithRoom();
  if (room.viewTellsLines)
    sbcChatWin.SetHWnd(room.view);
  else
    chat.Attach(program.g.hChatRoom);
  sbcCmdLine.SetHWnd(room.input);
  sbcSendIcon.SetHWnd(room.sendIcon);
  SubClass3.SetHWnd(room.list);
  ChatHooked = true;
}

void frmCV7::ShowFadePanelWithRoom() {
  Globals& g = program.g;
  if (!program.settings.Fader.ShowFadePanelWithChat || g.FadePanelUp) return;
  if (!program.hub.client->CanFade()) return;
  g.FadePanelUp = true;
  if (!program.hub.faderWindows->ShowPanelWithRoom()) g.FadePanelUp = false;
}

void frmCV7::UnhookRoom() {
  ChatHooked = false;
  SubClass3.SetHWnd({});
  sbcCmdLine.SetHWnd({});
  sbcSendIcon.SetHWnd({});
  sbcChatWin.SetHWnd({});
  chat.Detach();
  GoOn([this] { program.hub.chatTools->RoomHasGone(); });
  if (program.g.FadePanelUp) {
    program.g.FadePanelUp = false;
    program.hub.faderWindows->HidePanel();
  }
}

void frmCV7::WatchMailBar() {
  Globals& g = program.g;
  if (!program.settings.EFade.ShowToolbar || !program.hub.client->CanFade()) return;
  g.hMailWin = program.hub.client->WriteMailOnTop();
  if (!g.hMailWin) {
    if (!MailBarUp) return;
    MailBarUp = false;
    program.hub.faderWindows->HideMailBar();
  } else if (!MailBarUp) {
    MailBarUp = true;
    if (program.hub.faderWindows->ShowMailBar())
      platform().windows.SetFocus(g.hMailWin);  // the mail keeps the caret
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
  const Window mail = hub.client->ReadMailOnTop();
  if (!mail) {
    hub.readMail->ForgetLastMail();
    return;
  }
  if (plays) hub.readMail->PlayMailWav(mail);
  if (scans && !program.g.Unloading) hub.readMail->CheckForWavDL(mail);
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
  const Window box = program.hub.client->RefusalBox();
  if (!box) return;
  platform().windows.EndDialog(box, -1);
  const int button = MsgBoxEx(
      program,
      "~B~CRThis AOL Chat Room is unable to accept faded text at this time.~B~CN~N ~NThe Corvel "
      "chat room fader feature will be switched off so you may continue to chat normally.~N "
      "~NWould you like to read more information about this problem?",
      style::kYesNo + style::kExclamation);
  if (button == answer::kYes) OpenPage(program, this, maker::kFadeNews);
  program.hub.faderWindows->SwitchOff();
}

void frmCV7::DismissInvitation() {
  if (!program.settings.General.DismissBuddyInvites) return;
  const Window invitation = program.hub.client->BuddyInvitation();
  if (!invitation) return;
  Pause(program, 0.5);
  platform().windows.Send(invitation, wm::kClose, 0, 0);
}

// With the manager off there is nobody else to turn an ignored IM away.
void frmCV7::CloseIgnoredIM() {
  if (program.settings.IM.TabsOn) return;
  const Window im = program.hub.client->UnreadIM();
  if (im && program.hub.instantMessages->IsIgnored(program.hub.client->GetIMSender(im)))
    platform().windows.Send(im, wm::kClose, 0, 0);
}

}  // namespace corvel
