// frmCV7: the central window. It owns the timers and hooks that are the main loop, and is the
// toolbar when AccessMode is 0. Loaded for the whole run, shown or not.
#pragma once

#include "core/program.h"
#include "forms/menu.h"
#include "forms/subclass.h"
#include "forms/timer.h"

#include <array>
#include <functional>

namespace corvel {

// The tray icon's mouse messages come to the central window as this one.
inline constexpr MessageId kTrayMessage = 1025;

class frmCV7 : public ProgramForm {
 public:
  explicit frmCV7(Program& program);

  bool ChatHooked = false, MailBarUp = false;

  forms::FlatButton cmdMenu, cmdWavs, cmdHugs, cmdIMs, cmdPeople;
  forms::SubClass sbcMenu, sbcCmdLine, sbcSendIcon, sbcChatWin, SubClass3, sbcMDI, sbcRealMDI;
  forms::Chat chat;
  forms::Timer Timer1, Timer2, tmrAnswerer, tmrIMWav;
  forms::Menu mnuMenu, mnuWavs, mnuIMs, mnuHotWords, mnuEditor, mnuTrayMnu;

  void UnhookSubclasses();
  void DisableTimers();
  // Makes the toolbar the way to the commands, for this run and the next.
  void ShowToolbar();
  // Lays the buttons out by Pos.
  void ResizeButtons();
  void PopUpTrayMenu() { PopupMenu(mnuTrayMnu); }
  // The sibling programs' rows, by ShowPRMenu and ShowBDMenu.
  void ShowSiblingRows();
  // Every row of the toolbar's menus and the tray's that stands for this command.
  void SetRowCaption(Command command, const char* caption);
  void ShowRow(Command command, bool visible);

 protected:
  void Form_Load() override;
  void Form_Unload() override;
  bool Form_QueryUnload(bool byUser) override;
  void Form_Message(MessageId id, WParam wParam, LParam lParam) override;

 private:
  void WireButtons();
  void WireHooks();
  void WireTimers();
  void ColorButtons();
  void RestoreToolbarPlace();
  void SetRowsByVersion();
  void ForEachRow(Command command, const std::function<void(forms::MenuRow&)>& change);
  std::array<forms::SubClass*, 7> Hooks();
  void UnhookSeven();
  void RemoveWindowListRows();
  // Timer1, in its order (frmCV7_timers.cpp).
  void Timer1_Timer();
  void RenewHooks();
  void FollowRoom();
  void HookRoom();
  void ShowFadePanelWithRoom();
  void UnhookRoom();
  void WatchMailBar();
  void FollowOnline();
  void ResetCaptionsOfSignedOff();
  void WatchReadMail();
  // Timer2, in its order.
  void Timer2_Timer();
  void DismissRefusalBox();
  void DismissInvitation();
  void CloseIgnoredIM();
  void sbcMenu_WndMessageX(HookedMessage& message);
  void sbcMenu_WndMessage(LParam value);
};

}  // namespace corvel
