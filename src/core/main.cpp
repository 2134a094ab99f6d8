// The start, in its one order, and the way down.
#include "core/main.h"

#include "core/dialogs.h"
#include "core/features/access.h"
#include "core/features/client.h"
#include "core/features/facts_and_clock.h"
#include "core/features/fader_windows.h"
#include "core/features/instant_messages.h"
#include "core/features/siblings.h"
#include "core/find_client.h"
#include "core/frmCV7.h"
#include "core/frmMain.h"
#include "core/frmWatch.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "core/settings_im.h"
#include "core/settings_shell.h"
#include "core/start_checks.h"

namespace corvel {

namespace {

// While it stands the client takes no input: the user can't open or close what is just being read.
// However the start is left, the client gets it back.
class ClientDisabled {
 public:
  explicit ClientDisabled(Program& program) : program_(program) {
    program_.platform.windows.Enable(program_.g.hAOL, false);
  }
  ~ClientDisabled() { program_.platform.windows.Enable(program_.g.hAOL, true); }
  ClientDisabled(const ClientDisabled&) = delete;
  ClientDisabled& operator=(const ClientDisabled&) = delete;

 private:
  Program& program_;
};

// The splash as the start sees it.
class Splash {
 public:
  explicit Splash(Program& program)
      : program_(program), form_(program.forms.LoadNew<frmMain>(program)) {
    form_->Show();
  }

  void Report(std::string_view text) { form_->lblStatus.SetCaption(text); }
  void Progress(int percent) {
    form_->prgStatus.SetValue(percent);
    Pause(program_, 0.1);  // the window repaints
    EndIfClientIsGone();
  }
  void Close() {
    form_->Hide();
    form_->Unload();
  }
  // Nothing watches the client yet, so the start itself must see that it has gone.
  void EndIfClientIsGone() {
    const Globals& g = program_.g;
    if (g.hAOL && !program_.platform.windows.Exists(g.hAOL)) UnloadAllForms(program_, false);
    if (g.Unloading) EndProgram();
  }

 private:
  Program& program_;
  std::shared_ptr<frmMain> form_;
};

// A client that is just coming up has its frame first, and then what stands in it.
void FindMdi(Program& program) {
  constexpr std::uint32_t kLongestMs = 30'000;
  Globals& g = program.g;
  Platform& platform = program.platform;
  const std::uint32_t begun = platform.clock.TickCount();
  for (;;) {
    g.hMDI = program.hub.client->FindMdi();
    if (g.hMDI || !platform.windows.Exists(g.hAOL)) return;
    if (platform.clock.TickCount() - begun > kLongestMs) return;
    platform.events.Pump({"FindMdi", WaitFor::kClient, begun + kLongestMs});
  }
}

void FindOrStartClient(Program& program, Splash& splash) {
  for (const int percent : {5, 10, 15}) splash.Progress(percent);
  splash.Report("Starting America Online");
  splash.Progress(20);
  if (!FindClientFrame(program)) {
    StartAOL(program);
  } else {
    splash.Report("America Online Loaded");
    AOLIsRunning(program);
  }
  splash.Progress(25);
  program.g.hAOL = FindClientFrame(program);
  if (!program.g.hAOL) EndProgram();  // it has gone again
  FindMdi(program);
}

void DetermineVersion(Program& program, Splash& splash) {
  Globals& g = program.g;
  splash.Report("Determining AOL Version");
  splash.Progress(30);
  splash.Progress(40);
  MainStep(program, {"modMain", "Main"}, [&program] { program.hub.client->GetAOLVersion(); });
  MainStep(program, {"modMain", "Main"}, [&program] { program.hub.client->LoadAOLStrings(); });
  splash.EndIfClientIsGone();
  const Country country = program.hub.client->CountryOf();
  splash.Report("AOL Version " + g.AOLVer + ".0 " + std::string(country.name) + " Determined");
  g.AOLVerText = g.AOLVerFull + " " + std::string(country.code);
}

void ReadNames(Program& program, Splash& splash) {
  splash.Report("Retrieving Screen Names");
  MainStep(program, {"modMain", "Main"}, [&program] { program.hub.client->GetScreenNames(); });
  splash.EndIfClientIsGone();
  MainStep(program, {"modMain", "Main"}, [&program] { program.hub.client->MSNCheck(); });
  splash.Progress(50);
  splash.Report("Master Screen Name: " + program.g.SN[0]);
  splash.Progress(70);
}

void LoadUserSettings(Program& program, Splash& splash) {
  splash.Report("Loading User Settings");
  splash.Progress(80);
  program.settings.LoadForClient(program.hub.client->CanManageIMs());
  Reported(program, {"modMain", "LoadIMSettings"}, [&program] {  // today's log folder
    MakeDirIfMissing(program, program.InFolder("im logs"));
    MakeDirIfMissing(program,
                     program.InFolder("im logs\\" + DateMmDdYy(program.platform.clock.Now())));
  });
}

// The second half of the start. The central window watches the client from its load on, so the way
// down can begin inside any of these.
void LoadCorvel(Program& program) {
  Globals& g = program.g;
  const Settings& settings = program.settings;
  const Hub& hub = program.hub;
  const auto step = [&program](bool wanted, const std::function<void()>& body,
                               int line = __builtin_LINE()) {
    if (wanted && !program.g.Unloading) Reported(program, {"modMain", "LoadCorvel", line}, body);
  };
  step(true, [&program] {
    program.forms.Load<frmCV7>(program);
    program.forms.Load<frmWatch>(program);
  });
  step(true, [&program] {
    program.settings.Load(LoadGroup::kSiblings);
    if (frmCV7* const toolbar = program.forms.Loaded<frmCV7>()) toolbar->ShowSiblingRows();
    program.hub.access->RowsChanged();
  });
  g.WinDir = GetWinDir(program);
  g.SysDir = GetSysDir(program);
  if (hub.client->CanFade()) program.settings.Load(LoadGroup::kFader);
  step(hub.client->CanManageIMs() && settings.IM.TabsOn,
       [&hub] { hub.instantMessages->Initialize_IM_Manager(); });
  // Not without the library's help, but no reason to stop: what needs it does without.
  step(true, [&program] { program.platform.proxy.Attach(program.g.hAOL); });
  step(true, [&hub] { hub.faderWindows->ScanIncoming(); });
  step(settings.General.PopupFact, [&hub] { hub.factsAndClock->ShowFact(); });
  step(settings.General.LaunchPR, [&hub] { hub.siblings->StartPalroster(); });
  step(settings.General.LaunchBD, [&hub] { hub.siblings->StartBackdrape(); });
  step(true, [&hub] { hub.instantMessages->LogCountCheck(); });
}

void Start(Program& program) {
  Splash splash(program);
  FindOrStartClient(program, splash);
  const ClientDisabled disabled(program);
  DetermineVersion(program, splash);
  ReadNames(program, splash);
  LoadUserSettings(program, splash);
  splash.Report(std::string("Loading ") + kTitle);
  splash.Progress(90);
  splash.Progress(100);
  splash.Close();
  LoadCorvel(program);
}

// --- The way down --------------------------------------------------------------------------------

// What the client must have back, in an order that others rely on: IMs first, since their windows
// sit in ours, the proxy last, since it serves all the rest. Each step may come a second time, and
// none that fails keeps the next from running.
void GiveBackWindows(Program& program) {
  program.platform.windows.Enable(program.g.hAOL, true);
  if (program.settings.IM.TabsOn) GoOn([&] { program.hub.instantMessages->GiveBack(); });
}

void TakeDownToolbar(Program& program) {
  frmCV7* const toolbar = program.forms.Loaded<frmCV7>();
  if (!toolbar) return;
  toolbar->DisableTimers();
  GoOn([&] { program.hub.access->TakeDown(); });
  toolbar->Hide();
}

void LetGoOfRoom(Program& program) {
  frmCV7* const toolbar = program.forms.Loaded<frmCV7>();
  if (toolbar) toolbar->chat.Detach();
}

void LetGoOfClient(Program& program) {
  program.platform.sound.Stop();
  program.platform.proxy.Detach();
  const std::string sessionIgnores = program.InFolder("data\\ignoretemp.dat");
  GoOn([&] {
    if (FileExists(program, sessionIgnores)) program.platform.files.Delete(sessionIgnores);
  });
  program.g.Unloading = true;
}

void TearDown(Program& program) {
  program.g.Closing = true;
  GiveBackWindows(program);
  Pause(program, 0.5);
  TakeDownToolbar(program);
  Pause(program, 0.5);
  LetGoOfRoom(program);
  Pause(program, 0.1);
  LetGoOfClient(program);
}

bool UserWantsToExit(Program& program) {
  return AskYesNo(program,
                  "~B~CRAre you sure you wish to exit Corvel 32?~B~CN~N ~NDoing so will restore "
                  "your AOL workspace background to it's default color.");
}

}  // namespace

void Main(Program& program) {
  Globals& g = program.g;
  g.Unloading = g.Closing = false;
  g.HelpFile = program.InFolder("corvel32.hlp");
  g.ProgramVersion = kProgramVersion;
  CheckWindowsVersion(program);
  ChooseLook(program);
  CommandLine(program, program.platform.system.CommandLine());
  CheckPreviousInstance(program);
  CheckForShadewright(program);
  CheckForTellbox(program);
  IntegrityCheck(program);
  Start(program);
}

void UnloadAllForms(Program& program, bool ask) {
  // The way down waits, and a timer or hook inside those waits may want to begin it once more.
  if (program.g.Closing) return;
  if (ask && !UserWantsToExit(program)) return;
  if (program.g.Closing) return;  // the client has gone while the user was asked
  const forms::Forms::EventScope scope(program.forms);  // frmCV7 outlives its own unloading here
  TearDown(program);
  program.forms.UnloadAll();
}

void FinishWayDown(Program& program) {
  if (!program.g.Closing || program.g.Unloading) return;
  GiveBackWindows(program);
  TakeDownToolbar(program);
  LetGoOfRoom(program);
  LetGoOfClient(program);
}

void StopProgram(Program& program) {
  UnloadAllForms(program, false);
  FinishWayDown(program);
  EndProgram();
}

}  // namespace corvel
