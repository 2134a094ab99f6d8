#include "core/frmCV7.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/features/access.h"
#include "core/features/chat_tools.h"
#include "core/features/client.h"
#include "core/features/facts_and_clock.h"
#include "core/features/instant_messages.h"
#include "core/find_client.h"
#include "core/helpers.h"
#include "core/looks.h"
#include "core/main.h"
#include "core/not_built.h"
#include "core/report_error.h"
#include "core/settings_im.h"
#include "core/settings_shell.h"
#include "core/toolbar_menus.h"

namespace corvel {

namespace {

// Private messages of the client's text views: a line has come, the text has been replaced.
constexpr MessageId kViewLine = 0x2803, kViewText = 0x2C00;
// The client's own exit command.
constexpr std::uint32_t kClientExit = 8207;
// The command ids that the program's rows in the client's Window menu have.
constexpr std::uint32_t kLastWindowListId = 50;
constexpr int kFirstListPosition = 10, kListSeparator = 9;

constexpr std::uint32_t CommandId(WParam wParam) {
  return static_cast<std::uint32_t>(wParam & 0xFFFF);
}

// Hands what a hook catches to whoever owns it. Whose events they are is looked up each time. A
// RunTimeError goes no further than this, since the client waits for the answer.
template <class Events>
void HandTo(forms::SubClass& hook, Events events) {
  hook.onWndMessageX = [&hook, events](HookedMessage& message) {
    GoOn([&] { events().OnMessage(message, hook); });
  };
  hook.onWndMessage = [events](LParam value) { events().OnRaised(value); };
}

}  // namespace

frmCV7::frmCV7(Program& p)
    : ProgramForm(p, "frmCV7", kTitle),
      cmdMenu(*this, "cmdMenu", "&Menu"),
      cmdWavs(*this, "cmdWavs", "&Wavs"),
      cmdHugs(*this, "cmdHugs", "&Hug"),
      cmdIMs(*this, "cmdIMs", "&IMs"),
      cmdPeople(*this, "cmdPeople", "&People"),
      sbcMenu(*this, "sbcMenu", {wm::kClose, wm::kCommand, wm::kInitMenuPopup}),
      sbcCmdLine(*this, "sbcCmdLine", {wm::kChar}),
      sbcSendIcon(*this, "sbcSendIcon", {wm::kLButtonDown, wm::kLButtonUp}),
      sbcChatWin(*this, "sbcChatWin", {wm::kSetText, kViewLine, kViewText}),
      SubClass3(*this, "SubClass3", {wm::kRButtonUp}),
      sbcMDI(*this, "sbcMDI", {wm::kDestroy, kViewLine, kViewText}),
      sbcRealMDI(*this, "sbcRealMDI", {wm::kMdiCreate}),
      chat(*this, "Chat"),
      Timer1(*this, "Timer1", 300, false),
      Timer2(*this, "Timer2", 10, true),
      tmrAnswerer(*this, "tmrAnswerer", 1000, true),
      tmrIMWav(*this, "tmrIMWav", 1000, true),
      mnuMenu(MakeMainMenu(p)),
      mnuWavs(MakeWavsMenu(p)),
      mnuIMs(MakeIMsMenu(p)),
      mnuHotWords(MakePeopleMenu(p)),
      mnuEditor(MakeEditorMenu(p)),
      mnuTrayMnu(MakeTrayMenu(p)) {
  WireButtons();
  WireHooks();
  WireTimers();
}

void frmCV7::WireButtons() {
  struct PopupButton {
    forms::FlatButton& button;
    forms::Menu& menu;
    const char* tip;
  };
  for (const PopupButton& one :
       {PopupButton{cmdMenu, mnuMenu, "The program's own commands"},
        PopupButton{cmdWavs, mnuWavs, "Wavs and fades"}, PopupButton{cmdIMs, mnuIMs, "IMs"},
        PopupButton{cmdPeople, mnuHotWords, "Finding people and rooms"}}) {
    one.button.SetPopupArrow(true);
    one.button.SetToolTip(one.tip);
    one.button.onClick = [this, &menu = one.menu] { PopupMenu(menu); };
  }
  const Commands& commands = program.hub.commands;
  const bool hugs = commands.IsBuilt(Command::kSendHug);
  cmdHugs.SetToolTip(std::string(hugs ? "Sends the current hug." : kNotBuiltTip) +
                     " Right-click for the editors.");
  if (hugs) cmdHugs.onClick = [&commands] { commands.Run(Command::kSendHug); };
  // The editors have no button of their own, so this one stays enabled for them.
  cmdHugs.onRightClick = [this] { PopupMenu(mnuEditor); };
}

void frmCV7::WireHooks() {
  const Hub& hub = program.hub;
  sbcMenu.onWndMessageX = [this](HookedMessage& m) { sbcMenu_WndMessageX(m); };
  sbcMenu.onWndMessage = [this](LParam value) { sbcMenu_WndMessage(value); };
  HandTo(sbcCmdLine, [&hub]() -> HookEvents& { return hub.chatTools->Input(); });
  HandTo(sbcSendIcon, [&hub]() -> HookEvents& { return hub.chatTools->SendIcon(); });
  HandTo(sbcChatWin, [&hub]() -> HookEvents& { return hub.chatTools->View(); });
  HandTo(SubClass3, [&hub]() -> HookEvents& { return hub.chatTools->PeopleList(); });
  HandTo(sbcMDI, [&hub]() -> HookEvents& { return hub.instantMessages->View(); });
  HandTo(sbcRealMDI, [&hub]() -> HookEvents& { return hub.instantMessages->MdiClient(); });
  chat.onChatMsg = [&hub](std::string_view sender, std::string_view text) {
    GoOn([&] { hub.chatTools->ChatLine(sender, text); });
  };
}

void frmCV7::WireTimers() {
  const Hub& hub = program.hub;
  Timer1.onTimer = [this] { Timer1_Timer(); };
  Timer2.onTimer = [this] { Timer2_Timer(); };
  tmrAnswerer.onTimer = [&hub] { GoOn([&hub] { hub.instantMessages->AnswererTick(); }); };
  tmrIMWav.onTimer = [&hub] { GoOn([&hub] { hub.instantMessages->WavTick(); }); };
}

// --- Load and unload -----------------------------------------------------------------------------

void frmCV7::Form_Load() {
  if (program.g.Unloading) {
    Unload();
    return;
  }
  SetFormColor(program, *this);
  ColorButtons();
  sbcMenu.SetHWnd(program.g.hAOL);
  Timer1.SetEnabled(true);
  ResizeButtons();
  RestoreToolbarPlace();
  if (program.settings.Clock.Show) program.hub.factsAndClock->ShowClock();
  SetOwner(program.g.hAOL);
  SetRowsByVersion();
  if (program.g.AccessMode == 0 || !program.hub.access->SetUp()) Show(false);
}

void frmCV7::Form_Message(MessageId id, WParam, LParam lParam) {
  if (id == kTrayMessage) program.hub.access->OnTray(lParam);
}

void frmCV7::RestoreToolbarPlace() {
  PlaceSetting& place = program.settings.Toolbar.Place;
  RestorePlace(program, *this, place);
  if (!place.Top.IsStored()) SetTop(0);  // clear of the client's windows
}

void frmCV7::SetRowsByVersion() {
  ShowRow(Command::kFadeDesigner, program.hub.client->CanFade());
  if (program.hub.client->HasMainWindow())
    SetRowCaption(Command::kHideWelcome, "Hide AOL Main Window");
}

void frmCV7::ForEachRow(Command command, const std::function<void(forms::MenuRow&)>& change) {
  for (forms::Menu* const menu :
       {&mnuMenu, &mnuWavs, &mnuIMs, &mnuHotWords, &mnuEditor, &mnuTrayMnu})
    if (forms::MenuRow* const row = menu->Find(static_cast<int>(command))) change(*row);
}

void frmCV7::SetRowCaption(Command command, const char* caption) {
  ForEachRow(command, [caption](forms::MenuRow& row) { row.caption = caption; });
}

void frmCV7::ShowRow(Command command, bool visible) {
  ForEachRow(command, [visible](forms::MenuRow& row) { row.visible = visible; });
}

void frmCV7::ShowSiblingRows() {
  const auto& general = program.settings.General;
  ShowRow(Command::kPalroster, general.ShowPRMenu);
  ShowRow(Command::kBackdrape, general.ShowBDMenu);
}

bool frmCV7::Form_QueryUnload(bool byUser) {
  if (byUser) {  // the toolbar's close box is the way out of the program
    UnloadAllForms(program, true);
    if (!program.g.Unloading) return false;
  }
  SavePlace(*this, program.settings.Toolbar.Place);
  return true;
}

void frmCV7::Form_Unload() {
  Pause(program, 0.5);
  UnhookSeven();
  Pause(program, 0.5);
  RemoveWindowListRows();
}

// In the order in which they are unhooked.
std::array<forms::SubClass*, 7> frmCV7::Hooks() {
  return {&sbcChatWin, &sbcCmdLine, &sbcMDI, &sbcMenu, &sbcRealMDI, &sbcSendIcon, &SubClass3};
}

void frmCV7::UnhookSeven() {
  for (forms::SubClass* const hook : Hooks()) hook->SetHWnd({});
}

void frmCV7::UnhookSubclasses() {
  UnhookSeven();
  if (program.settings.IM.TabsOn) GoOn([this] { program.hub.instantMessages->UnhookManaged(); });
}

// The rows that the program has put at the end of the client's Window menu, and the separator in
// front of them. They are known by their ids, so that rows of the client's own never go with them.
void frmCV7::RemoveWindowListRows() {
  Menus& menus = platform().menus;
  const MenuHandle menu = program.hub.client->WindowMenu();
  bool removed = false;
  for (int at = menus.Count(menu) - 1; at >= kFirstListPosition; --at) {
    const std::uint32_t id = menus.IdAt(menu, at);
    if (id == 0 || id > kLastWindowListId) continue;
    removed |= menus.Delete(menu, at, menu_flag::kByPosition);
  }
  if (removed) menus.Delete(menu, kListSeparator, menu_flag::kByPosition);
}

void frmCV7::DisableTimers() {
  for (forms::Timer* const timer : {&Timer1, &Timer2, &tmrAnswerer, &tmrIMWav})
    timer->SetEnabled(false);
}

// --- The toolbar ---------------------------------------------------------------------------------

void frmCV7::ShowToolbar() {
  if (program.g.AccessMode != 0)  // the default isn't written back
    program.settings.Toolbar.MenuAccess.Set(0);
  Show();
  ColorButtons();
}

void frmCV7::ColorButtons() {
  for (forms::FlatButton* const button : {&cmdMenu, &cmdWavs, &cmdHugs, &cmdIMs, &cmdPeople})
    SetButtonColor(program, false, *button);
}

void frmCV7::ResizeButtons() {
  using forms::Cell;
  std::vector<forms::Box> buttons{Cell(cmdMenu), Cell(cmdWavs), Cell(cmdHugs), Cell(cmdIMs),
                                  Cell(cmdPeople)};
  Arrange(program.settings.Toolbar.Vertical ? forms::Column(std::move(buttons))
                                            : forms::Row(std::move(buttons)));
}

// --- The client's own closing --------------------------------------------------------------------

// The client must not close by itself while its windows are hooked and some of them sit in ours:
// what would close it is held back, and comes again behind our own way down.
void frmCV7::sbcMenu_WndMessageX(HookedMessage& message) {
  const bool exits = message.id == wm::kCommand && CommandId(message.wParam) == kClientExit;
  const bool closes = message.id == wm::kClose && !program.g.AOLClosing;
  if (!exits && !closes) {
    GoOn([&] { program.hub.access->ClientFrame().OnMessage(message, sbcMenu); });
    return;
  }
  if (exits) program.g.AOLClosing = true;
  message.consume = true;
  message.result = 0;
  sbcMenu.Raise(static_cast<LParam>(message.id));
}

void frmCV7::sbcMenu_WndMessage(LParam value) {
  if (value != static_cast<LParam>(wm::kClose) && value != static_cast<LParam>(wm::kCommand)) {
    program.hub.access->ClientFrame().OnRaised(value);
    return;
  }
  UnhookSubclasses();
  program.g.AOLClosing = true;
  UnloadAllForms(program, false);
  if (const Window client = FindClientFrame(program)) {
    Pause(program, 1);
    platform().windows.Post(client, wm::kClose, 0, 0);
  }
  // A way down that waits beneath, or for the user's answer to a window, has no client to wait for.
  FinishWayDown(program);
  program.forms.UnloadAll();
}

}  // namespace corvel
