#include "core/start_checks.h"

#include "base/error.h"
#include "base/text.h"
#include "core/dialogs.h"
#include "core/find_client.h"
#include "core/helpers.h"
#include "core/settings_shell.h"

namespace corvel {

namespace {

constexpr int kWindows9x = 1, kWindowsNT = 2;
constexpr int kLowColorBits = 8;

constexpr const char* kRuntimeFiles[] = {
    "dwqrvspy.dll", "dwspy5.dll",  "qrvproxy.dll", "qrverrhd.dll", "qrvbtns.ocx",  "qrvbar.ocx",
    "qrvspy32.ocx", "dwsbc36.ocx", "mscomctl.ocx", "dwspy36.dll",  "launch32.dll", "inetwh32.dll"};

// Parents before what lies in them.
constexpr const char* kFolders[] = {"data",     "data\\email",     "data\\hotwords",
                                    "data\\im", "data\\quickfind", "im logs",
                                    "incoming", "outgoing",        "styles"};

// Both siblings hook the same windows of the client.
void CheckForSibling(Program& program, const std::string& name) {
  const auto processes = program.platform.processes.Snapshot();
  if (!processes) return;
  const std::string file = Lower(name) + ".exe";
  for (const ProcessEntry& process : *processes) {
    if (Lower(process.path).find(file) == std::string::npos) continue;
    RefuseStart(program,
                "~B~CRCorvel 32 has detected that " + name +
                    " is currently running!~B~CN~N ~NCorvel 32 is ~Bnot compatible with " + name +
                    "~B.  Running both together can cause errors.~N ~NIt should also be noted "
                    "that Corvel 32 already has every feature of the " +
                    name + " program!  :)~N ~NCorvel will now end.");
  }
}

void RunLiveUpdate(Program& program) {
  if (program.hub.commands.IsBuilt(Command::kCheckForUpdates))
    program.hub.commands.Run(Command::kCheckForUpdates);
  else
    MsgBoxEx(program, "This feature is not built yet.");
  EndProgram();
}

}  // namespace

[[noreturn]] void RefuseStart(Program& program, const std::string& text) {
  MsgBoxEx(program, text, style::kOk + style::kExclamation);
  EndProgram();
}

void MainStep(Program& program, const ErrorPlace& place, const std::function<void()>& step) {
  Reported(program, place, step,
           [](const RunTimeError& error) { return error.Number() == err::kPathFileAccess; });
}

void CheckWindowsVersion(Program& program) {
  const int platform = program.platform.system.WindowsPlatform();
  if (platform == kWindows9x) return;
  // The doubled tilde is no slip of ours: the message has always looked so.
  if (platform == kWindowsNT)
    RefuseStart(
        program,
        "~B~CRWindows NT detected!~B~CN~~N ~NCorvel 32 is not compatible with Windows NT.~N "
        "~NAborting startup!");
  RefuseStart(program, "Corvel 32 can only run under Windows 95 or Windows 98.");
}

void ChooseLook(Program& program) {
  Globals& g = program.g;
  g.LowColor = program.platform.display.BitsPerPixel() <= kLowColorBits;
  g.UIMode = 0;
  if (!g.LowColor) program.settings.Root.UIMode.Read();
  program.settings.Load(LoadGroup::kLook);
}

void CommandLine(Program& program, std::string_view line) {
  if (line == "CHANGEAOL") {
    GetAOLPath(program, ClientFolderMode::kChange);
    EndProgram();
  }
  // No update while the user is signed on: the program starts as ever.
  if (line == "LIVEUPDATE" && program.platform.clientLibrary.IsOnline() != 1)
    RunLiveUpdate(program);
}

void CheckPreviousInstance(Program& program) {
  if (!program.platform.processes.PreviousInstance()) return;
  RefuseStart(
      program,
      "~B~CRCorvel 32 is already running!~B~CN~N ~NNo more than one instance of Corvel 32 may "
      "run at a time.~N ~NAborting startup!");
}

void CheckForShadewright(Program& program) { CheckForSibling(program, "Shadewright"); }
void CheckForTellbox(Program& program) { CheckForSibling(program, "Tellbox"); }

void IntegrityCheck(Program& program) {
  program.g.SysDir = GetSysDir(program);
  for (const char* const file : kRuntimeFiles) {
    if (FileExists(program, program.g.SysDir + "\\" + file)) continue;
    RefuseStart(
        program,
        std::string("~B~CRMissing runtime file!~B~CN~N ~NCorvel 32 has detected that one of its "
                    "critical runtime files, ~B") +
            file +
            "~B is missing.~N ~NPlease perform a full reinstallation of Corvel 32 to correct "
            "this problem.");
  }
  for (const char* const folder : kFolders)
    Reported(program, {"modMain", "IntegrityCheck"},
             [&] { MakeDirIfMissing(program, program.InFolder(folder)); });
}

}  // namespace corvel
