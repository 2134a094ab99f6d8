// The desk put together; see desk.h.
#include "platform/desk/desk.h"

#include "base/text.h"
#include "platform/desk/desk_core.h"

namespace corvel::desk {
namespace {

std::string Described(const DeskWindows& windows, Window window, const std::string& className) {
  return "window \"" + className + "\" with caption \"" + windows.CaptionOf(window) + "\"";
}

}  // namespace

// --- Wiring --------------------------------------------------------------------------------------

void Desk::Impl::Wire() {
  windows = std::make_unique<DeskWindows>(desk);
  scheduler = std::make_unique<Scheduler>(processes, clock, windows->impl());
  menus = std::make_unique<DeskMenus>(desk);
  hooks = std::make_unique<DeskHooks>(desk);
  proxy = std::make_unique<DeskProxy>(desk);
  peers = std::make_unique<DeskPeers>(desk);
  deskProcesses = std::make_unique<DeskProcesses>(desk);
  files = std::make_unique<DeskFiles>(desk);
  registry = std::make_unique<DeskRegistry>(desk);
  clipboard = std::make_unique<DeskClipboard>(desk);
  services = std::make_unique<DeskServices>(desk);
  platform.emplace(Platform{.windows = *windows,
                            .menus = *menus,
                            .events = *scheduler,
                            .ownWindows = *windows,
                            .hooks = *hooks,
                            .proxy = *proxy,
                            .peers = *peers,
                            .display = services->display(),
                            .registry = *registry,
                            .files = *files,
                            .processes = *deskProcesses,
                            .system = services->system(),
                            .clientLibrary = services->clientLibrary(),
                            .clipboard = *clipboard,
                            .sound = services->sound(),
                            .shell = services->shell(),
                            .printer = services->printer(),
                            .dialogs = services->dialogs(),
                            .clock = clock,
                            .random = services->random(),
                            .media = services->media(),
                            .web = services->web()});
}

Desk::Desk() : impl_(std::make_unique<Impl>(*this)) { impl_->Wire(); }

Desk::~Desk() {
  for (std::size_t i = 0; i < impl_->processes.All().size(); ++i) {
    Process& process = *impl_->processes.All()[i];
    process.depth == 0 ? impl_->processes.End(process) : impl_->processes.Kill(process);
  }
}

Platform& Desk::platform() { return *impl_->platform; }

// --- Time ----------------------------------------------------------------------------------------

std::int64_t Desk::NowMs() const { return impl_->clock.NowMs(); }
void Desk::SetWallClock(const CivilTime& now) { impl_->clock.SetWall(now); }
void Desk::SetTimeZone(std::string name) { impl_->clock.SetZone(std::move(name)); }
void Desk::SetTickCount(std::uint32_t now) { impl_->clock.SetTickCount(now); }
void Desk::SetAgent(Agent* agent) { impl_->scheduler->SetAgent(agent); }
void Desk::Round(std::int64_t limit) { impl_->scheduler->Round(limit); }
void Desk::RunFor(std::int64_t ms) { impl_->scheduler->RunFor(ms); }
void Desk::RunDue() { impl_->scheduler->RunDue(); }

// --- Processes -----------------------------------------------------------------------------------

void Desk::Install(std::string path, BodyFactory factory) {
  impl_->deskProcesses->Install(std::move(path), std::move(factory));
}

ProcessId Desk::Spawn(std::string_view path, const std::string& commandLine) {
  return impl_->deskProcesses->Spawn(path, commandLine);
}

void Desk::Kill(ProcessId process) {
  if (Process* found = impl_->processes.Running(process)) impl_->processes.Kill(*found);
}

bool Desk::IsRunning(ProcessId process) const {
  return impl_->processes.Running(process) != nullptr;
}

ProcessId Desk::Current() const { return impl_->processes.Current().id; }

ProcessId Desk::FindProcess(std::string_view fileName) const {
  for (const auto& process : impl_->processes.All())
    if (process->life == Life::kRunning && EqualNoCase(FileNameOf(process->path), fileName))
      return process->id;
  return 0;
}

std::string Desk::CommandLineOf(ProcessId process) const {
  const Process* found = impl_->processes.Find(process);
  return found && found->life != Life::kGone ? found->commandLine : std::string();
}

std::string Desk::PathOf(ProcessId process) const {
  const Process* found = impl_->processes.Find(process);
  return found && found->life != Life::kGone ? found->path : std::string();
}

TaskId Desk::PostTask(ProcessId process, std::function<void()> task) {
  Process* found = process ? impl_->processes.Running(process) : &impl_->processes.Outside();
  return found ? impl_->scheduler->PostTask(*found, std::move(task)) : 0;
}

void Desk::RunAs(ProcessId process, const std::function<void()>& task) {
  Process* found = process ? impl_->processes.Running(process) : &impl_->processes.Outside();
  if (found) impl_->processes.Call(*found, task);
  impl_->processes.ThrowIfEnded();
}

void Desk::After(ProcessId process, std::int64_t ms, std::function<void()> task) {
  Process* found = process ? impl_->processes.Running(process) : &impl_->processes.Outside();
  if (found) impl_->scheduler->After(*found, ms, std::move(task));
}

bool Desk::IsPending(TaskId task) const { return impl_->scheduler->IsPending(task); }

const std::vector<Desk::PumpInProgress>& Desk::Pumps() const { return impl_->scheduler->Pumps(); }

bool Desk::WaitsForUser(ProcessId process) const {
  const auto& pumps = Pumps();
  for (auto it = pumps.rbegin(); it != pumps.rend(); ++it)
    if (it->process == process) return it->wait.whom == WaitFor::kUser;
  return false;
}

// --- Memory --------------------------------------------------------------------------------------

std::uint32_t Desk::Allocate(ProcessId process, std::string_view bytes) {
  Process* found = impl_->processes.Find(process);
  return found && found->life != Life::kGone ? found->memory.Allocate(bytes) : 0;
}

void Desk::Poke(ProcessId process, std::uint32_t address, std::string_view bytes) {
  if (Process* found = impl_->processes.Find(process)) found->memory.Poke(address, bytes);
}

void Desk::Free(ProcessId process, std::uint32_t address) {
  if (Process* found = impl_->processes.Find(process)) found->memory.Free(address);
}

// --- Parts ---------------------------------------------------------------------------------------

std::vector<std::shared_ptr<Prompt>>& Desk::Prompts() { return impl_->prompts; }
Journal& Desk::journal() { return impl_->journal; }
void Desk::Note(std::string_view kind, std::vector<std::string> words) {
  impl_->journal.Add(NowMs(), kind, std::move(words));
}
DeskWindows& Desk::windows() { return *impl_->windows; }
DeskMenus& Desk::menus() { return *impl_->menus; }
DeskPeers& Desk::peers() { return *impl_->peers; }
DeskFiles& Desk::files() { return *impl_->files; }
DeskRegistry& Desk::registry() { return *impl_->registry; }
DeskClipboard& Desk::clipboard() { return *impl_->clipboard; }
DeskServices& Desk::services() { return *impl_->services; }

// --- The end of a process ------------------------------------------------------------------------

void Desk::Impl::TakeAway(Process& process) {
  scheduler->ForgetProcess(process);
  hooks->ForgetProcess(process);
  proxy->ForgetProcess(process);
  clipboard->ProcessEnded(process.id);
  services->ProcessEnded(process.id);
  windows->impl().TakeAway(process);
}

void Desk::Impl::NoteLeftOpen(Process& process) {
  process.leftOpen = OpenNow(process);
  hooks->Drop(process);
  menus->Drop(process.id);
}

std::vector<std::string> Desk::Impl::OpenNow(const Process& process) const {
  std::vector<std::string> open;
  for (const Window window : windows->AllWindows())
    if (windows->ProcessOf(window) == process.id)
      open.push_back(Described(*windows, window, windows->ClassOf(window)));
  for (const std::string& className : hooks->NotDetached(process))
    open.push_back("hook on a window \"" + className + "\"");
  for (const Window window : scheduler->TimersOf(process))
    open.push_back("timer of the " + Described(*windows, window, windows->ClassOf(window)));
  if (const int loose = menus->LooseMenus(process.id))
    open.push_back(std::to_string(loose) + " menus that hang on no window");
  if (process.openedProcesses > 0)
    open.push_back(std::to_string(process.openedProcesses) + " opened processes");
  if (clipboard->IsOpen() && clipboard->Holder() == process.id) open.push_back("the clipboard");
  if (!services->TrayIconsOf(process.id).empty()) open.push_back("a tray icon");
  for (const std::string& alias : services->MediaOpenBy(process.id))
    open.push_back("the media device \"" + alias + "\"");
  if (windows->impl().updateLock.process == &process)
    open.push_back("a lock on the drawing of a window");
  return open;
}

std::vector<std::string> Desk::LeftOpen(ProcessId process) {
  if (Process* found = impl_->processes.Find(process))
    return found->life == Life::kGone ? found->leftOpen : impl_->OpenNow(*found);
  std::vector<std::string> all;
  for (const auto& ended : impl_->processes.All())
    for (const std::string& sentence : ended->leftOpen)
      if (ended->life == Life::kGone) all.push_back(ended->path + " left open: " + sentence);
  return all;
}

}  // namespace corvel::desk
