// The stage on Windows; see win32_stage.h.
#include "tools/win32/win32_stage.h"

#include "base/error.h"
#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/win32_event_loop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <windows.h>

namespace corvel::tools {
namespace {

constexpr int kMostStarts = 20;
constexpr DWORD kBetweenStartsMs = 100;
constexpr std::uint32_t kClientComesMs = 20'000, kProcessEndsMs = 5000;
constexpr std::int64_t kLongestHangMs = 60'000;
constexpr char kNotRunning[] = "the client is not running";
constexpr const char* kClientProgram = "C:\\AOL\\waol.exe";

void CopyProgram(const std::string& from, const char* to) {
  if (!CopyFileA(from.c_str(), to, FALSE))
    throw std::runtime_error("can't copy " + from + " to " + to);
}

void EndProcess(ProcessId id) {
  const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
  if (!process) return;
  TerminateProcess(process, 1);
  WaitForSingleObject(process, kProcessEndsMs);
  CloseHandle(process);
}

const char* LocaleWord(practice::Locale locale) {
  constexpr const char* kWords[] = {"us", "uk", "ca", "au", "de"};
  return kWords[static_cast<std::size_t>(locale)];
}

std::string Joined(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ",") + name;
  return list;
}

}  // namespace

Win32Stage::Win32Stage(std::string folder, Options options)
    : folder_(std::move(folder)), options_(std::move(options)), begin_(GetTickCount()) {
  script_.note = [this](std::string_view kind, std::vector<std::string> words) {
    Note(kind, std::move(words));
  };
  SetMachine();
  PutFile("C:\\Corvel\\corvel32.exe", "MZ");  // runs in this very process
  script_.realMenus = options_.byHand;
  if (options_.byHand) byHand_ = std::make_unique<ByHand>(*this);
}

Win32Stage::~Win32Stage() { EndAll(); }

// --- Time ----------------------------------------------------------------------------------------

std::int64_t Win32Stage::NowMs() const { return GetTickCount() - begin_; }

std::string Win32Stage::InnermostWait() {
  return script_.waits.size() < 2 ? "" : script_.waits.back().name;
}

// The program's own main loop, and whoever acts beside it.
void Win32Stage::Run(Actor& actor) {
  actor_ = &actor;
  home_.events().SetIdle([this, &actor] { return OnIdle(actor); });
  while (!actor.IsOver()) {
    try {
      scripted_.platform().events.Pump({"WinMain", WaitFor::kUser});
      EndFinished();
    } catch (const ProcessExit&) {  // of the program that has come up: another one refuses to
      programs_.clear();
    }
  }
  actor_ = nullptr;
  home_.events().SetIdle({});
  programs_.clear();
}

// What goes with a process goes with its program here, where the process stays.
void Win32Stage::EndFinished() {
  const auto ended = std::erase_if(programs_, [](const auto& one) { return one->Finished(); });
  if (ended > 0 && programs_.empty()) home_.LetGoOfClients();
}

bool Win32Stage::OnIdle(Actor& actor) {
  if (actor.IsOver()) return false;
  TakeWitness();
  NoteForms();
  if (options_.rests && options_.rests()) return false;
  return RunTask() || actor.Act();
}

Deed Win32Stage::Post(std::function<void()> run) {
  const int id = ++lastTask_;
  openTasks_.insert(id);
  tasks_.push_back({id, std::move(run)});
  return {.over = [this, id] { return !openTasks_.contains(id); }};
}

bool Win32Stage::RunTask() {
  if (tasks_.empty()) return false;
  const Task task = std::move(tasks_.front());
  tasks_.pop_front();
  struct Over {
    std::set<int>& open;
    int id;
    ~Over() { open.erase(id); }
  } const over{openTasks_, task.id};
  task.run();
  return true;
}

// --- The scene -----------------------------------------------------------------------------------

void Win32Stage::SetWallClock(const CivilTime& now) {
  script_.clockAhead =
      MillisecondsFromCivil(now) - MillisecondsFromCivil(home_.platform().clock.Now());
}

void Win32Stage::SetDisplay(int bitsPerPixel, int width, int height) {
  script_.bitsPerPixel = bitsPerPixel;
  script_.screen = {width, height};
}

void Win32Stage::NextDraws(const std::vector<double>& draws) {
  script_.draws.insert(script_.draws.end(), draws.begin(), draws.end());
}

// --- The client ----------------------------------------------------------------------------------

void Win32Stage::InstallClient(bool start) {
  PutFile("C:\\AOL\\iwengx32.dll", "MZ");
  PutFile("C:\\AOL\\idb\\main.idx", practice::AccountIndex(setup.screenNames));
  WritePracticeSettings();
  CopyProgram(folder_ + "\\practice.exe", kClientProgram);
  CopyProgram(folder_ + "\\aol.exe", "C:\\AOL\\aol.exe");
  if (!start) return;
  StartClient();
  if (!channel_.WaitUntilThere(kClientComesMs))
    throw std::runtime_error("the practice client does not come up; " + WhatClientSays());
}

// The file has just been written, and may still be held for a moment.
void Win32Stage::StartClient() {
  for (int tries = 0; tries < kMostStarts; ++tries, Sleep(kBetweenStartsMs))
    if (home_.platform().processes.Run(kClientProgram, show::kNormal)) return;
  throw std::runtime_error(std::string("can't start ") + kClientProgram + ", error " +
                           std::to_string(GetLastError()));
}

std::string Win32Stage::WhatClientSays() {
  if (const HWND box = FindWindowA("#32770", "Practice client")) {
    char text[512] = "";
    SendDlgItemMessageA(box, 0xFFFF, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return std::string("it says: ") + text;
  }
  const auto processes = home_.platform().processes.Snapshot();
  const bool runs = processes && std::any_of(processes->begin(), processes->end(), [](auto& one) {
                      return EqualNoCase(one.path, kClientProgram);
                    });
  return runs ? "it runs without a word" : "it has ended";
}

void Win32Stage::WritePracticeSettings() {
  PutFile("C:\\AOL\\practice.ini",
          "[client]\r\nversion=" + setup.version + "\r\nlocale=" + LocaleWord(setup.locale) +
              "\r\nnames=" + Joined(setup.screenNames) +
              "\r\nsigned-on=" + (setup.signedOnAs.empty() ? "nobody" : setup.signedOnAs) +
              "\r\ndelay=" + std::to_string(setup.delayMs) + "\r\npeople=off\r\n");
}

void Win32Stage::ChangeClient() {
  if (HasClient()) WritePracticeSettings();
}

void Win32Stage::CrashClient() {
  DWORD process = 0;
  GetWindowThreadProcessId(FindWindowA(practice::kChannelClass, nullptr), &process);
  EndProcess(process);
}

// Over when it hangs, if that begins at once.
Deed Win32Stage::HangClient(const Hang& hang) {
  const auto length = static_cast<std::uint32_t>(hang.forMs.value_or(kLongestHangMs));
  const bool asked = practice::PracticeChannel().Hang(
      length, static_cast<std::uint32_t>(hang.afterMs), hang.thenCrashes ? "crash" : "goes on");
  win32::Callback::Rethrow();
  if (!asked) return {.refusal = kNotRunning};
  if (hang.afterMs > 0) return {};
  return {.over = [this, until = NowMs() + length] { return ClientHangs() || NowMs() >= until; }};
}

// Each call has a channel of its own: while one waits, a hook's handler may make the next. What a
// client that hangs is to do waits until it goes on, like a user's click.
Deed Win32Stage::DoInClient(const std::vector<std::string>& words,
                            std::shared_ptr<practice::Reply> reply) {
  if (byHand_ && ClientHand::Knows(words)) {
    std::string refusal = byHand_->client.Do(words);
    return refusal.empty() ? Begun() : Deed{.refusal = std::move(refusal)};
  }
  if (!ClientRuns()) return {.refusal = kNotRunning};
  return {.over = [this, words, reply, ticket = std::optional<std::string>()]() mutable {
    if (ClientHangs()) return false;
    practice::PracticeChannel channel;
    if (!ticket) ticket = channel.Begin(words);
    auto answer = ticket ? channel.ReplyTo(*ticket) : practice::Reply{kNotRunning, {}};
    win32::Callback::Rethrow();
    if (answer) *reply = *std::move(answer);
    return answer.has_value();
  }};
}

practice::Reply Win32Stage::AskClient(const std::vector<std::string>& words) {
  practice::Reply reply = practice::PracticeChannel().Ask(words);
  win32::Callback::Rethrow();
  return reply;
}

// What has left the client comes into the journal.
void Win32Stage::TakeWitness() {
  if (takingWitness_ || !channel_.IsThere() || channel_.Hangs()) return;
  takingWitness_ = true;
  for (auto& [kind, words] : channel_.TakeWitness()) Note(kind, std::move(words));
  takingWitness_ = false;
  win32::Callback::Rethrow();
}

std::string Win32Stage::Library::GetVersion(std::string_view) {
  return stage.setup.version.substr(0, 3);
}

int Win32Stage::Library::IsOnline() {
  return practice::PracticeChannel().IsOnline().value_or(false) ? 1 : 0;
}

std::vector<std::string> Win32Stage::Library::GetScreenNames(std::string_view) {
  const std::vector<std::string> none(6, std::string(1, '\0'));
  return practice::PracticeChannel().ScreenNames().value_or(none);
}

// --- The program ---------------------------------------------------------------------------------

Deed Win32Stage::Start(const std::string& commandLine) {
  return Post([this, commandLine] { StartProgram(commandLine); });
}

void Win32Stage::StartProgram(const std::string& commandLine) {
  script_.commandLine = commandLine;
  script_.previousInstance = ProgramRuns();
  programs_.push_back(std::make_unique<CorvelProcess>(scripted_.platform()));
  programs_.back()->Start();
}

bool Win32Stage::ProgramRuns() {
  return std::any_of(programs_.begin(), programs_.end(),
                     [](const auto& program) { return !program->Finished(); });
}

// In a wait of its own, not in the main loop.
bool Win32Stage::ProgramWaitsForUser() {
  return script_.waits.size() > 1 && script_.waits.back().whom == WaitFor::kUser;
}

void Win32Stage::EndAll() {
  script_.ended = true;
  const auto processes = home_.platform().processes.Snapshot();
  if (!processes) return;
  for (const ProcessEntry& process : *processes)
    if (Lower(process.path).starts_with("c:\\aol\\")) EndProcess(process.id);
}

// --- The user's hand -----------------------------------------------------------------------------

bool Win32Stage::TrayMouse(LParam mouseMessage) {
  return script_.trayIcon &&
         home_.platform().windows.Post(script_.trayIcon->owner, script_.trayIcon->message, 0,
                                       mouseMessage);
}

// --- What came of it -----------------------------------------------------------------------------

int Win32Stage::HookCount() {
  std::set<Window> hooked;
  for (const auto& [hook, window] : script_.hooks)
    if (home_.platform().hooks.IsAttached(hook)) hooked.insert(window);
  return static_cast<int>(hooked.size());
}

void Win32Stage::NoteForms() {
  std::set<std::string> now;
  for (const FormView& form : Forms())
    if (form.state->visible) now.insert(form.state->name);
  for (const std::string& name : shown_)
    if (!now.contains(name)) Note("hidden", {name});
  for (const std::string& name : now)
    if (!shown_.contains(name)) Note("shown", {name});
  shown_ = std::move(now);
}

std::vector<std::string> Win32Stage::LeftOpen() {
  std::vector<std::string> left;
  if (ProgramRuns()) return left;
  for (const FormView& form : Forms()) left.push_back("the window " + form.state->name);
  if (HookCount() > 0) left.push_back("a hook into the client");
  if (HasTrayIcon()) left.push_back("a tray icon");
  return left;
}

}  // namespace corvel::tools
