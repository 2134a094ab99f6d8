#include "app/compose.h"

#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/settings_fader.h"
#include "core/settings_shell.h"

namespace corvel {

namespace {

void FillClientSlots(ClientSlots& slots, AolClient& client) {
  slots.GetAOLVersion = [&client] { client.GetAOLVersion(); };
  slots.LoadAOLStrings = [&client] { client.LoadAOLStrings(); };
  slots.GetScreenNames = [&client] { client.GetScreenNames(); };
  slots.MSNCheck = [&client] { client.MSNCheck(); };
  slots.LookForRoom = [&client] { client.LookForRoom(); };
  slots.IsAOLOnline = [&client](bool showMessage) { return client.IsAOLOnline(showMessage); };
  slots.GetUserSN = [&client] { return client.GetUserSN(); };
  slots.IsWriteMailWindow = [&client](Window window) { return client.IsWriteMailWindow(window); };
  slots.FindChildByClass = [&client](Window parent, std::string_view className, int n) {
    return client.FindChildByClass(parent, className, n);
  };
  slots.FindChildByTitle = [&client](Window parent, std::string_view title, int n) {
    return client.FindChildByTitle(parent, title, n);
  };
  slots.GetAPIText = [&client](Window window) { return client.GetAPIText(window); };
  slots.RunKeyword = [&client](const std::string& target) { client.RunKeyword(target); };
}

// A sibling program is started by its stored path, if it is there.
void StartSibling(Program& program, const std::string& path) {
  if (FileExists(program, path)) program.platform.processes.Run(path, show::kNormal);
}

void AskedForSibling(Program& program, const std::string& path) {
  if (FileExists(program, path))
    StartSibling(program, path);
  else
    MsgBoxEx(program, "The program ~B~CB" + path + "~B~CN was not found.",
             style::kOk + style::kExclamation);
}

void FillSiblings(Program& program) {
  const auto& general = program.settings.General;
  Hub& hub = program.hub;
  hub.StartPalroster = [&] { StartSibling(program, general.PalrosterPath); };
  hub.StartBackdrape = [&] { StartSibling(program, general.BackdrapePath); };
  hub.commands[Command::kPalroster] = [&] { AskedForSibling(program, general.PalrosterPath); };
  hub.commands[Command::kBackdrape] = [&] { AskedForSibling(program, general.BackdrapePath); };
}

void KillHourglass(AolClient& client) {
  if (client.IsAOLOnline(true)) client.AOLCursor();
}

void FillCommands(Program& program, AolClient& client, WavLibrary& wavLibrary) {
  auto& commands = program.hub.commands;
  commands[Command::kWavList] = [&wavLibrary] { wavLibrary.ShowWavList(); };
  commands[Command::kDescriptions] = [&wavLibrary] { wavLibrary.EditDescriptions(); };
  commands[Command::kHushlet] = [&wavLibrary] { wavLibrary.Hushlet(); };
  commands[Command::kKillHourglass] = [&client] { KillHourglass(client); };
  commands[Command::kHelp] = [&program] { ShowHelp(program, "Table of Contents"); };
  commands[Command::kTechSupport] = [&program] { ShowHelp(program, "Tech Support"); };
  commands[Command::kExit] = [&program] { UnloadAllForms(program, true); };
}

void FillAccess(Hub& hub, AccessModes& modes) {
  hub.SetUpAccess = [&modes] { modes.SetUp(); };
  hub.TakeDownAccess = [&modes] { modes.TakeDown(); };
  hub.TrayMessage = [&modes](LParam mouse) { modes.OnTray(mouse); };
  hub.MenuMessage = [&modes](HookedMessage& message) { modes.OnClientMenu(message); };
  hub.ClientMenuRow = [&modes](std::uint32_t id) { modes.RunClientMenuRow(id); };
  hub.ResetAccessCaptions = [&modes] { modes.ResetCaptions(); };
  hub.commands[Command::kHideAsTray] = [&modes] { modes.HideAsTray(); };
  hub.commands[Command::kHideAsMenu] = [&modes] { modes.HideAsMenu(); };
  hub.commands[Command::kShowToolbar] = [&modes] { modes.ShowToolbar(); };
}

// Faded text that the room refuses would be refused again with the next line.
void SwitchFaderOff(Program& program) {
  program.settings.Fader.On.Set(false);
}

}  // namespace

void Compose(Program& program, AolClient& client, WavLibrary& wavLibrary,
             AccessModes& accessModes) {
  FillClientSlots(program.hub.client, client);
  FillCommands(program, client, wavLibrary);
  FillSiblings(program);
  FillAccess(program.hub, accessModes);
  program.hub.SwitchFaderOff = [&program] { SwitchFaderOff(program); };
}

}  // namespace corvel
