#include "core/find_client.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/features/client.h"
#include "core/helpers.h"
#include "core/settings_shell.h"
#include "core/start_checks.h"

namespace corvel {

namespace {

constexpr std::string_view kClientProgram = "waol.exe";

// The folder of a path that holds the client's program name, "" for any other.
std::string ClientFolderIn(const std::string& path) {
  const auto name = Lower(path).find(kClientProgram);
  return name == std::string::npos || name == 0 ? std::string() : path.substr(0, name - 1);
}

[[noreturn]] void Refuse16BitRunning(Program& program) {
  RefuseStart(
      program,
      "~CRA 16 bit version of AOL is currently running!~CN~N ~NCorvel 32 is not compatible with "
      "the 16 bit versions of AOL.");
}

// The folder of the running client: by the list of processes or, without one, by asking its process
// for the module.
std::string RunningClientFolder(Program& program) {
  Platform& platform = program.platform;
  if (const auto processes = platform.processes.Snapshot()) {
    for (const ProcessEntry& process : *processes)
      if (const std::string folder = ClientFolderIn(process.path); !folder.empty()) return folder;
    return {};
  }
  const ProcessId process = platform.windows.ProcessOf(program.g.hAOL);
  const std::string folder = ClientFolderIn(platform.processes.ModulePath(process, "WAOL.EXE"));
  if (folder.empty()) Refuse16BitRunning(program);
  return folder;
}

void WaitForClientFrame(Program& program) {
  Window frame;
  while (!program.platform.windows.Exists(frame)) {
    program.platform.events.Pump({"StartAOL", WaitFor::kClient});
    if (program.g.Unloading) EndProgram();
    frame = FindClientFrame(program);
  }
}

void WelcomeNewUser(Program& program) {
  MsgBoxEx(program,
           "~B~CRWelcome to Corvel 32!~B~CN~N ~NBefore we begin, Corvel 32 needs to know the "
           "location of your current AOL folder so it can start AOL for you.~N ~NPlease click "
           "~BOK~B to choose your AOL folder now!~N ~N~B~CBNote:~B~CNYou will not see this prompt "
           "again once a valid AOL folder is chosen.");
}

[[noreturn]] void EndWithoutFolder(Program& program, ClientFolderMode mode) {
  if (mode == ClientFolderMode::kFirstRun)
    RefuseStart(program,
                "~B~CRNo AOL directory selected.~B~CN~N ~NCorvel 32 requires a path to your AOL "
                "Directory to function properly.~N ~NAborting Startup!");
  EndProgram();
}

std::string WithoutLastSlash(std::string path) {
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

bool HasClient(Program& program, const std::string& folder) {
  return !folder.empty() && FileExists(program, folder + "\\aol.exe");
}

}  // namespace

Window FindClientFrame(Program& program) { return program.hub.client->FindFrame(); }

void AOLIsRunning(Program& program) {
  Globals& g = program.g;
  g.hAOL = FindClientFrame(program);
  if (!g.hAOL)
    RefuseStart(program, "~B~CRAmerica Online window not found!~B~CN~N ~NAborting startup.");
  g.AOLPath = RunningClientFolder(program);
  if (!IsAOL32Bit(program)) Refuse16BitRunning(program);
  program.settings.Root.AOLPath.Set(g.AOLPath);
  program.platform.windows.Show(g.hAOL, show::kMaximized);
}

void StartAOL(Program& program) {
  Globals& g = program.g;
  g.AOLPath = WithoutLastSlash(program.settings.Root.AOLPath.Read());
  if (!HasClient(program, g.AOLPath)) GetAOLPath(program, ClientFolderMode::kFirstRun);
  if (!IsAOL32Bit(program))
    RefuseStart(program,
                "~CRYou are attempting to start a 16 bit version of AOL!~CN~N ~NCorvel 32 is not "
                "compatible with the 16 bit versions of AOL.");
  if (!program.platform.processes.Run(g.AOLPath + "\\aol.exe", show::kNormal))
    RefuseStart(program, "~B~CRAmerica Online could not be started!~B~CN~N ~NAborting startup.");
  WaitForClientFrame(program);
}

bool GetAOLPath(Program& program, ClientFolderMode mode) {
  if (mode == ClientFolderMode::kFirstRun) WelcomeNewUser(program);
  const std::string path = WithoutLastSlash(ChooseFolder(program, ClientFolderQuestion()));
  if (path.empty()) EndWithoutFolder(program, mode);
  // Kept in memory too: where the tree can't be written, this start still works.
  program.settings.Root.AOLPath.Set(path);
  program.g.AOLPath = path;
  return mode == ClientFolderMode::kChange &&
         AskYesNo(program,
                  "The next time you start Corvel 32, it will start the AOL program located in the "
                  "~B~CB" +
                      Upper(path) +
                      "~B~CN directory.~N ~NWould you like to start Corvel 32 and AOL now?");
}

bool IsAOL32Bit(Program& program) {
  return FileExists(program, program.g.AOLPath + "\\iwengx32.dll");
}

}  // namespace corvel
