// See stage.h.
#include "tests/program/stage.h"

#include "platform/win32/win32_files.h"
#include "platform/win32/win32_registry.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace corvel::test {
namespace {

constexpr DWORD kBetweenLooks = 5, kStarts = 2000;
constexpr char kFormClass[] = "CorvelForm", kMenuClass[] = "#32768";
constexpr char kAgentClass[] = "Corvel.Hook.Agent";
constexpr char kSettings[] = "Software\\QRV Software\\Corvel\\";
const std::string kClientFolder = "C:\\AOL", kMark = "C:\\program-test.run";

win32::Win32Files& Drive() {
  static win32::Win32Files files;
  return files;
}

std::string OwnFolder() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string program = path;
  return program.substr(0, program.rfind('\\') + 1);
}

DWORD ProcessOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

std::string ClassOf(HWND window) {
  char name[100] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

BOOL CALLBACK Collect(HWND window, LPARAM windows) {
  reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

std::vector<HWND> ChildrenOf(HWND parent) {
  std::vector<HWND> children;
  EnumChildWindows(parent, Collect, reinterpret_cast<LPARAM>(&children));
  return children;
}

HWND ChildWith(HWND form, const std::string& text) {
  for (const HWND child : ChildrenOf(form))
    if (TextOf(child) == text) return child;
  return nullptr;
}

void PostClick(HWND window, UINT down, UINT up) {
  RECT area{};
  GetClientRect(window, &area);
  // In the middle, but on the first row of a list.
  const LPARAM at = MAKELPARAM(area.right / 2, std::min<LONG>(area.bottom / 2, 8));
  PostMessageA(window, down, 0, at);
  PostMessageA(window, up, 0, at);
}

void DeleteTree(const std::string& folder) {
  for (const FoundFile& found : Drive().Search(folder + "\\*")) {
    const std::string path = folder + "\\" + found.name;
    if (found.attributes & file_attribute::kFolder)
      DeleteTree(path);
    else
      DeleteFileA(path.c_str());
  }
  RemoveDirectoryA(folder.c_str());
}

void Copy(const std::string& file, const std::string& target) {
  if (!CopyFileA((OwnFolder() + file).c_str(), target.c_str(), FALSE))
    throw std::runtime_error(file + " can't be copied to " + target);
}

void LayClient() {
  Drive().MakeFolder(kClientFolder);
  Drive().MakeFolder(kClientFolder + "\\idb");
  Copy("practice.exe", kClientFolder + "\\waol.exe");
  Copy("aol.exe", kClientFolder + "\\aol.exe");
  Copy("runtime\\iwengx32.dll", kClientFolder + "\\iwengx32.dll");
}

// The runtime files that the system lacks.
void LayRuntime() {
  char system[MAX_PATH] = "";
  GetSystemDirectoryA(system, sizeof system);
  for (const FoundFile& found : Drive().Search(OwnFolder() + "runtime\\*")) {
    const std::string target = std::string(system) + "\\" + found.name;
    if (!found.name.ends_with(".a") && !Drive().Exists(target))
      Copy("runtime\\" + found.name, target);
  }
}

// The program refuses anything newer; what isn't Wine doesn't know this key.
void SeeWindows98() {
  for (const char* program : {"corvel32.exe", "waol.exe"})
    win32::Win32Registry().Write(std::string("Software\\Wine\\AppDefaults\\") + program, "Version",
                                 {ValueType::kText, std::string("win98\0", 6)});
}

// Nothing of a user's may go: the first run leaves a mark, and all that comes later is a test's.
bool OwnsTheMachine() {
  if (Drive().Exists(kMark)) return true;
  for (const std::string& folder : {kProgramFolder, kClientFolder})
    if (Drive().Exists(folder)) return false;
  if (win32::Win32Registry().KeyExists(kSettings)) return false;
  Drive().Write(kMark, "");
  return true;
}

}  // namespace

bool Until(const std::function<bool()>& isSo, DWORD milliseconds) {
  const DWORD begun = GetTickCount();
  while (!isSo()) {
    if (GetTickCount() - begun > milliseconds) return false;
    Sleep(kBetweenLooks);
  }
  return true;
}

bool Answers(HWND window, DWORD milliseconds) {
  DWORD_PTR reply = 0;
  return SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, milliseconds, &reply) != 0;
}

std::string TextOf(HWND window) {
  constexpr UINT kLongestAnswer = 1000;
  std::string text(2000, '\0');
  DWORD_PTR length = 0;
  if (!SendMessageTimeoutA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                           SMTO_NORMAL, kLongestAnswer, &length))
    return {};
  text.resize(length);
  return text;
}

// --- Processes -----------------------------------------------------------------------------------

Process::Process(const std::string& path, const std::string& arguments) {
  std::string line = path + (arguments.empty() ? "" : " " + arguments);
  STARTUPINFOA start{};
  start.cb = sizeof start;
  const std::string folder = path.substr(0, path.rfind('\\'));
  // A file that has just been written may still be held for a moment.
  const bool started = Until(
      [&] {
        return CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                              folder.c_str(), &start, &process_) != FALSE;
      },
      kStarts);
  if (!started)
    throw std::runtime_error(path + " can't be started: " + std::to_string(GetLastError()));
}

Process::~Process() {
  if (!Ends(0)) Kill();
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

bool Process::Ends(DWORD milliseconds) const {
  return WaitForSingleObject(process_.hProcess, milliseconds) == WAIT_OBJECT_0;
}

bool Process::EndsWell(DWORD milliseconds) const {
  DWORD code = 1;
  return Ends(milliseconds) && GetExitCodeProcess(process_.hProcess, &code) && code == 0;
}

std::int64_t Process::EndedAtMs() const {
  FILETIME made{}, ended{}, inSystem{}, inUse{};
  GetProcessTimes(process_.hProcess, &made, &ended, &inSystem, &inUse);
  const std::int64_t high = ended.dwHighDateTime;
  return (high << 32 | ended.dwLowDateTime) / 10'000;
}

void Process::Kill() const {
  TerminateProcess(process_.hProcess, 9);
  Ends(kPatience);
}

std::vector<HWND> Process::Windows() const {
  std::vector<HWND> windows;
  EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
  std::erase_if(windows, [this](HWND one) { return ProcessOf(one) != process_.dwProcessId; });
  return windows;
}

bool Process::AnswersEverywhere(DWORD milliseconds) const {
  const std::vector<HWND> windows = Windows();
  return std::all_of(windows.begin(), windows.end(), [milliseconds](HWND window) {
    return Answers(window, milliseconds) || !IsWindow(window);
  });
}

bool IsUp(const Program& program, DWORD milliseconds) {
  return Until([&] { return program.Toolbar() && IsWindowEnabled(Frame()); }, milliseconds);
}

Hang::Hang(HWND window)
    : thread_(OpenThread(THREAD_SUSPEND_RESUME, FALSE, GetWindowThreadProcessId(window, nullptr))) {
  SuspendThread(thread_);
}

Hang::~Hang() {
  ResumeThread(thread_);
  CloseHandle(thread_);
}

// --- The program ---------------------------------------------------------------------------------

HWND Program::Shown(const char* control) const {
  for (const HWND window : Windows())
    if (IsWindowVisible(window) && ClassOf(window) == kFormClass && ChildWith(window, control))
      return window;
  return nullptr;
}

bool Program::IsMade(const char* control) const {
  for (const HWND window : Windows())
    if (ClassOf(window) == kFormClass && ChildWith(window, control)) return true;
  return false;
}

HWND Program::Child(const char* form, const char* className) const {
  return FindWindowExA(Shown(form), nullptr, className, nullptr);
}

std::string Program::Texts() const {
  std::string texts;
  for (const HWND window : Windows())
    if (IsWindowVisible(window) && ClassOf(window) == kFormClass)
      for (const HWND child : ChildrenOf(window)) texts += TextOf(child) + "\n";
  return texts;
}

bool Program::Says(const std::string& part) const {
  return Until([&] { return Texts().find(part) != std::string::npos; });
}

bool Program::Press(const char* button) const {
  HWND found = nullptr;
  const bool isThere = Until([&] {
    const HWND form = Shown(button);
    found = form ? ChildWith(form, button) : nullptr;
    return found && IsWindowEnabled(found) && IsWindowEnabled(form);
  });
  if (isThere) PostClick(found, WM_LBUTTONDOWN, WM_LBUTTONUP);
  return isThere;
}

bool Program::RightClick(HWND control) const {
  PostClick(control, WM_RBUTTONDOWN, WM_RBUTTONUP);
  return control != nullptr;
}

bool Program::HasMenuOpen() const {
  for (const HWND window : Windows())
    if (ClassOf(window) == kMenuClass && IsWindowVisible(window)) return true;
  return false;
}

bool Program::ChooseByKeys(std::initializer_list<WPARAM> keys) const {
  if (!Until([this] { return HasMenuOpen(); })) return false;
  // A menu takes the keys of all windows of its thread.
  for (const WPARAM key : keys) PostMessageA(Toolbar(), WM_KEYDOWN, key, 1);
  return Until([this] { return !HasMenuOpen(); });
}

bool Program::OpenWavList() const {
  constexpr DWORD kUntilRoomIsKnown = 400;
  if (!Press("&Wavs") || !ChooseByKeys({VK_DOWN, VK_RETURN}) ||
      !Until([this] { return Shown("&Send") != nullptr; }))
    return false;
  Sleep(kUntilRoomIsKnown);
  return true;
}

bool Program::Close(const char* form) const {
  return Until([&] { return Shown(form) != nullptr; }) && PostMessageA(Shown(form), WM_CLOSE, 0, 0);
}

// --- Tests ---------------------------------------------------------------------------------------

void ProgramTest::SetUp() {
  ASSERT_EQ(Frame(), nullptr) << "a client runs already";
  for (const std::string& folder : {kProgramFolder, kClientFolder, std::string("C:\\Wavs")})
    DeleteTree(folder);
  win32::Win32Registry().DeleteKey(kSettings);
  LayClient();
  Drive().MakeFolder(kProgramFolder);
  CopyProgram(kProgramFolder);
  Drive().MakeFolder("C:\\Wavs");
  Put("C:\\Wavs\\boing.wav", "RIFF");
  Set("Categories", "Mine", "C:\\Wavs\\");
  Set("Wav List", "Default Category", "Mine");
}

void ProgramTest::TearDown() { clientProcess.reset(); }

void ProgramTest::Put(const std::string& path, const std::string& bytes) {
  Drive().Append(path, bytes);
}

std::string ProgramTest::Bytes(const std::string& path) {
  return Drive().Exists(path) ? Drive().Read(path) : std::string();
}

void ProgramTest::CopyProgram(const std::string& folder) {
  for (const char* file : {"corvel32.exe", "corvelhk.dll"}) Copy(file, folder + "\\" + file);
}

void ProgramTest::Set(const std::string& section, const std::string& name,
                      const std::string& text) {
  win32::Win32Registry().Write(kSettings + section, name,
                               {ValueType::kText, std::string(text.c_str(), text.size() + 1)});
}

std::string ProgramTest::Setting(const std::string& section, const std::string& name) {
  const auto value = win32::Win32Registry().Read(kSettings + section, name, 1000);
  return value ? std::string(value->bytes.c_str()) : std::string();
}

void ProgramTest::StartClient() {
  clientProcess.emplace(kClientFolder + "\\waol.exe", "version=4.0 names=PracticeOne delay=20");
  ASSERT_TRUE(client.WaitUntilThere(kPatience));
  ASSERT_TRUE(Until([&] { return client.Ask({"busy"}).answers == practice::Words{"0"}; }));
  ASSERT_EQ(client.Do({"room", "The Lobby", "Ann"}).error, "");
  ASSERT_TRUE(Until([&] { return client.Ask({"busy"}).answers == practice::Words{"0"}; }));
  ASSERT_TRUE(Chats("hello"));
}

bool ProgramTest::Chats(const std::string& line) {
  const DWORD begun = GetTickCount();
  const bool typed =
      client.Do({"type", line}).error.empty() && client.Do({"key", "enter"}).error.empty();
  return typed && IsSent(line, kPatience) && GetTickCount() - begun < 1000;
}

bool ProgramTest::IsSent(const std::string& line, DWORD milliseconds) {
  return Until(
      [&] {
        const auto seen = client.TakeWitness();
        return std::find(seen.begin(), seen.end(),
                         practice::PracticeChannel::Seen{"line", {line}}) != seen.end();
      },
      milliseconds);
}

bool ProgramTest::HasMenuRow(const char* caption) {
  return client.Ask({"menu", caption}).answers == practice::Words{"1"};
}

int ProgramTest::AgentsInClient() {
  int count = 0;
  for (HWND at = nullptr; (at = FindWindowExA(nullptr, at, kAgentClass, nullptr));)
    count += ProcessOf(at) == ProcessOf(Frame());
  return count;
}

}  // namespace corvel::test

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!corvel::test::OwnsTheMachine()) {
    std::cout << "A user's program, client or settings stand here, and the tests would empty them; "
                 "use a machine, or a prefix, of its own.\n";
    return 2;
  }
  corvel::test::LayRuntime();
  corvel::test::SeeWindows98();
  return RUN_ALL_TESTS();
}
