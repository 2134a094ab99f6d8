#include "shell/access_modes.h"

#include "core/dialogs.h"
#include "core/frmCV7.h"
#include "core/main.h"
#include "core/settings_shell.h"
#include "shell/client_menu.h"

namespace corvel {
namespace {

constexpr LParam kMouseDoubleClick = 515, kMouseRightUp = 517;
constexpr std::string_view kTrayTip = "Corvel 32 - Toolbar: Double-click; Menu: Right-click";
// The client's commands that place its windows side by side or behind one another.
constexpr std::uint32_t kTile = 1212, kCascade = 1213;
// The program's rows in the client's Window menu, one for each window.
constexpr std::uint32_t kLastWindowListId = 50;

std::uint32_t CommandId(WParam wParam) { return static_cast<std::uint32_t>(wParam & 0xFFFF); }

}  // namespace

frmCV7* AccessModes::Central() const { return program_.forms.Loaded<frmCV7>(); }

AccessModes::AccessModes(Program& program, AolClient& client)
    : program_(program), client_(client), clientFrame_(*this) {}

void AccessModes::Join(Hub& hub) {
  hub.access = this;
  hub.commands.Set(Command::kHideAsTray, [this] { HideAsTray(); });
  hub.commands.Set(Command::kHideAsMenu, [this] { HideAsMenu(); });
  hub.commands.Set(Command::kShowToolbar, [this] { ShowToolbar(); });
}

bool AccessModes::SetUp() {
  if (program_.g.AccessMode == 1)
    AddTrayIcon();
  else if (program_.g.AccessMode == 2)
    AddMenuToAOL();
  return true;
}

void AccessModes::TakeDown() {
  if (program_.g.AccessMode == 1) RemoveTrayIcon();
  if (program_.g.AccessMode != 2) return;
  if (insteadOfTray_)  // the key keeps the user's choice: the next start tries the tray again
    client_menu::Remove(program_);
  else
    RemoveMenuFromAOL();
}

void AccessModes::RowsChanged() {
  if (program_.g.AccessMode == 2) AddMenuToAOL();
}

void AccessModes::Remember(int mode) {
  insteadOfTray_ = false;
  program_.settings.Toolbar.MenuAccess.Set(mode);
}

void AccessModes::HideAsTray() {
  Remember(1);
  if (frmCV7* const central = Central()) central->Hide();
  AddTrayIcon();
}

void AccessModes::HideAsMenu() {
  Remember(2);
  if (frmCV7* const central = Central()) central->Hide();
  AddMenuToAOL();
}

void AccessModes::ShowToolbar() {
  RemoveTrayIcon();  // a second way that does nothing any more would only puzzle
  if (program_.g.AccessMode == 2) RemoveMenuFromAOL();
  if (frmCV7* const central = Central()) central->ShowToolbar();
}

// --- The tray ------------------------------------------------------------------------------------

void AccessModes::AddTrayIcon() {
  frmCV7* const central = Central();
  if (!central) return;
  if (program_.platform.shell.AddTrayIcon(central->Handle(), kTrayMessage, kTrayTip)) return;
  MsgBoxEx(program_,
           "~B~CRThere is no taskbar currently available!~B~CN~N ~NCorvel 32 will default to AOL "
           "menu bar mode.",
           style::kOk + style::kExclamation);
  // Not the key that the next start reads: it tries the tray again.
  program_.settings.Menu.Access.Set("Menu");
  if (program_.g.Closing || program_.g.AccessMode != 1) return;  // changed while the user read
  program_.g.AccessMode = 2;
  insteadOfTray_ = true;
  AddMenuToAOL();
}

void AccessModes::RemoveTrayIcon() {
  if (frmCV7* const central = Central()) program_.platform.shell.RemoveTrayIcon(central->Handle());
}

void AccessModes::OnTray(LParam mouse) {
  if (program_.g.Closing || program_.g.AccessMode != 1) return;
  if (mouse == kMouseDoubleClick) ShowToolbar();
  if (mouse == kMouseRightUp) PopUpTrayMenu();
}

void AccessModes::PopUpTrayMenu() {
  WindowSystem& windows = program_.platform.windows;
  const Window modal = client_.ModalWindow();
  frmCV7* const central = Central();
  if (!central || (modal && windows.IsVisible(modal))) return;
  if (!client_.HasMainWindow()) {
    const Window welcome = client_.WelcomeWindow();
    const bool hidden = welcome && !windows.IsVisible(welcome);
    central->SetRowCaption(Command::kHideWelcome,
                           hidden ? "Show Welcome Window" : "Hide Welcome Window");
  }
  central->PopUpTrayMenu();
}

// --- The client's menu ---------------------------------------------------------------------------

void AccessModes::AddMenuToAOL() {
  client_menu::Remove(program_);  // an earlier one, perhaps left there by a crash
  if (client_menu::Insert(program_, client_)) return;
  // Without any way to them the commands would be lost.
  if (frmCV7* const central = Central()) central->Show(false);
}

void AccessModes::RemoveMenuFromAOL() {
  client_menu::Remove(program_);
  program_.settings.Toolbar.MenuAccess.SetForNextStart(0);
}

void AccessModes::ClientFrameEvents::OnMessage(HookedMessage& message, forms::SubClass& hook) {
  if (message.id != wm::kCommand) return;
  const std::uint32_t id = CommandId(message.wParam);
  if (modes_.TilesAroundManager(id))
    message.consume = true;
  else if (id <= kLastWindowListId)
    modes_.BringListedWindowUp(id);
  else if (client_menu::CommandOf(id))
    hook.Raise(static_cast<LParam>(id));
}

// The manager fills the client: arranging the other windows would only tear it from its place.
bool AccessModes::TilesAroundManager(std::uint32_t id) {
  if (id != kTile && id != kCascade) return false;
  return bool(client_.ManagerOnTop());
}

// A row of the list reads "3 Caption": the caption names the window.
void AccessModes::BringListedWindowUp(std::uint32_t id) {
  Menus& menus = program_.platform.menus;
  WindowSystem& windows = program_.platform.windows;
  const MenuHandle menu = client_.WindowMenu();
  for (int at = 0; at < menus.Count(menu); ++at) {
    if (menus.IdAt(menu, at) != id || id == 0) continue;
    const std::string text = menus.TextAt(menu, at);
    const auto blank = text.find(' ');
    if (blank == std::string::npos) return;
    const Window window = client_.DocumentTitled(std::string_view(text).substr(blank + 1));
    if (windows.IsIconic(window)) windows.Show(window, show::kRestore);
    windows.BringToTop(window);
    return;
  }
}

void AccessModes::RunClientMenuRow(std::uint32_t id) {
  if (id == client_menu::kExit) {  // without a question: the menu itself is the client's
    if (frmCV7* const central = Central()) central->UnhookSubclasses();
    UnloadAllForms(program_, false);
    return;
  }
  if (const auto command = client_menu::CommandOf(id)) program_.hub.commands.Run(*command);
}

void AccessModes::ResetCaptions() {
  if (program_.g.AccessMode != 2) return;
  client_menu::SetCaption(program_, Command::kTurnIMsOff, "&Turn IM's Off");
  client_menu::SetCaption(program_, Command::kHideWelcome, "&Hide Welcome Window");
}

}  // namespace corvel
