// The stage on the desk; see desk_stage.h.
#include "tools/desk/desk_stage.h"

#include "platform/desk/desk_menus.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "practice/desk/desk_home.h"
#include "tools/desk/desk_program.h"

#include <algorithm>
#include <utility>

namespace corvel::tools {

DeskStage::DeskStage(std::uint64_t seed) {
  desk_.services().SetSeed(seed);
  SetMachine();
  InstallProgram(desk_.platform());
}

void DeskStage::InstallProgram(Platform& platform) {
  InstallCorvelOnDesk(desk_, platform, [this](ProcessId process) { started_.insert(process); });
}

DeskStage::~DeskStage() { EndAll(); }

std::string DeskStage::InnermostWait() {
  return desk_.Pumps().empty() ? "" : desk_.Pumps().back().wait.name;
}

void DeskStage::Run(Actor& actor) {
  actor_ = &actor;
  desk_.SetAgent(this);
  while (!actor.IsOver()) desk_.Round(desk_.NowMs() + 1000);
  desk_.SetAgent(nullptr);
}

// --- The scene -----------------------------------------------------------------------------------

void DeskStage::SetWindowsPlatform(int platform) { desk_.services().SetWindowsPlatform(platform); }
void DeskStage::SetDisplay(int bitsPerPixel, int width, int height) {
  desk_.services().SetDisplay(bitsPerPixel, width, height);
}
void DeskStage::SetTaskbar(bool present) { desk_.services().SetTaskbar(present); }
void DeskStage::NextDraws(const std::vector<double>& draws) { desk_.services().NextDraws(draws); }

Registry& DeskStage::registry() { return desk_.registry(); }
void DeskStage::PutFile(std::string_view path, std::string_view bytes) {
  desk_.files().Put(path, bytes);
}
void DeskStage::RemoveFile(std::string_view path) { desk_.files().Remove(path); }
std::optional<std::string> DeskStage::Peek(std::string_view path) {
  return desk_.files().Peek(path);
}

void DeskStage::FailFile(int call, int errorNumber, const std::string& part) {
  desk_.files().FailCall(call, errorNumber, part);
}
void DeskStage::SetDrive(char letter, DriveKind kind, bool hasDisk) {
  desk_.files().SetDrive(letter, kind, hasDisk);
}
desk::WebTable& DeskStage::web() { return desk_.services().webTable(); }
void DeskStage::SetFreeSpace(std::int64_t bytes) { desk_.files().SetFreeSpace(bytes); }
void DeskStage::LockFile(std::string_view path, bool locked) { desk_.files().Lock(path, locked); }

// --- The client ----------------------------------------------------------------------------------

void DeskStage::InstallClient(bool start) {
  practice::InstallOnDesk(desk_, setup);
  if (start) practice::StartOnDesk(desk_);
}

void DeskStage::ChangeClient() {
  if (HasClient()) practice::ChangeSetup(desk_, setup);
}

practice::PracticeClient* DeskStage::Client() { return practice::RunningOnDesk(desk_); }
ProcessId DeskStage::ClientProcess() const { return desk_.FindProcess("waol.exe"); }

Deed DeskStage::DoInClient(const std::vector<std::string>& words,
                           std::shared_ptr<practice::Reply> reply) {
  practice::PracticeClient* const client = Client();
  if (!client) return {.refusal = "the client is not running"};
  const desk::TaskId task =
      desk_.PostTask(ClientProcess(), [client, words, reply] { *reply = client->Do(words); });
  return {.over = [this, task] { return !desk_.IsPending(task); }};
}

practice::Reply DeskStage::AskClient(const std::vector<std::string>& words) {
  practice::PracticeClient* const client = Client();
  practice::Reply reply{"the client is not running", {}};
  if (client) desk_.RunAs(ClientProcess(), [&] { reply = client->Ask(words); });
  return reply;
}

Deed DeskStage::HangClient(const Hang& hang) {
  const ProcessId client = ClientProcess();
  if (client == 0) return {.refusal = "the client is not running"};
  if (hang.afterMs == 0)
    BeginHang(client, hang);
  else
    desk_.After(0, hang.afterMs, [this, client, hang] { BeginHang(client, hang); });
  return {};
}

void DeskStage::ReleaseClient() { desk_.windows().SetHung(ClientProcess(), false); }
bool DeskStage::ClientHangs() { return desk_.windows().IsHung(ClientProcess()); }

void DeskStage::BeginHang(ProcessId client, const Hang& hang) {
  desk_.windows().SetHung(client, true);
  if (!hang.forMs) return;
  desk_.After(0, *hang.forMs, [this, client, crashes = hang.thenCrashes] {
    if (crashes)
      desk_.Kill(client);
    else
      desk_.windows().SetHung(client, false);
  });
}

// --- The program ---------------------------------------------------------------------------------

ProcessId DeskStage::StartProgram(const std::string& commandLine) {
  std::erase_if(programs_, [this](ProcessId program) { return !desk_.IsRunning(program); });
  programs_.push_back(desk_.Spawn(kProgramPath, commandLine));
  return programs_.back();
}

Deed DeskStage::Start(const std::string& commandLine) {
  return {.over = [this, program = StartProgram(commandLine)] { return IsUp(program); }};
}

ProcessId DeskStage::Program() const { return desk_.FindProcess("corvel32.exe"); }

bool DeskStage::IsUp(ProcessId program) const {
  return !desk_.IsRunning(program) || HasStarted(program) || desk_.WaitsForUser(program);
}

bool DeskStage::ProgramWaitsForUser() {
  return std::any_of(programs_.begin(), programs_.end(), [this](ProcessId program) {
    return desk_.IsRunning(program) && desk_.WaitsForUser(program);
  });
}

void DeskStage::EndAll() {
  for (const ProcessId program : programs_)
    if (desk_.IsRunning(program)) desk_.Kill(program);
  for (const char* name : {"waol.exe", "aol.exe"})
    while (const ProcessId process = desk_.FindProcess(name)) desk_.Kill(process);
}

// --- The user's hand -----------------------------------------------------------------------------

bool DeskStage::TrayMouse(LParam mouseMessage) { return desk_.services().TrayMouse(mouseMessage); }
bool DeskStage::HasTrayIcon() { return !desk_.services().TrayIcons().empty(); }
Menus& DeskStage::menus() { return desk_.platform().menus; }
int DeskStage::HookCount() { return static_cast<int>(desk_.windows().HookCount()); }

}  // namespace corvel::tools
