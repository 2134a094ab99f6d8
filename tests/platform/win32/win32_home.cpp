// Real windows as a home of the conformance suite; see win32_home.h.
#include "tests/platform/win32/win32_home.h"

#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_processes.h"
#include "tests/platform/win32/wine_path.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace corvel::test {
namespace {

std::string Word(Window window) { return std::to_string(window.value); }
std::string Word(bool flag) { return flag ? "1" : "0"; }

constexpr char kFolder[] = "C:\\CONFORM", kPrinted[] = "C:\\CONFORM\\printed.ps";

std::string Beside(const char* name) {
  char path[MAX_PATH];
  return FolderOf({path, GetModuleFileNameA(nullptr, path, MAX_PATH)}) + "\\" + name;
}

void EmptyFolder(const std::string& folder) {
  WIN32_FIND_DATAA found;
  const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = found.cFileName, path = folder + "\\" + name;
    if (name == "." || name == "..") continue;
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      EmptyFolder(path);
      RemoveDirectoryA(path.c_str());
    } else {
      DeleteFileA(path.c_str());
    }
  } while (FindNextFileA(search, &found));
  FindClose(search);
}

void ChooseRow(HWND menu, int row) {
  for (int i = 0; i <= row; ++i) PostMessageA(menu, WM_KEYDOWN, VK_DOWN, 1);
  PostMessageA(menu, WM_KEYDOWN, row < 0 ? VK_ESCAPE : VK_RETURN, 1);
}

void AnswerDialog(HWND dialog, const Answer& answer) {
  // The boxes of the system's own dialogs; that for a name is another one on later systems.
  constexpr int kFileNames[] = {0x480, 0x47C}, kRed = 706;
  for (const int name : kFileNames)
    if (!answer.path.empty()) SetDlgItemTextA(dialog, name, answer.path.c_str());
  for (int i = 0; answer.color && i < 3; ++i)
    SetDlgItemInt(dialog, kRed + i, static_cast<UINT>(*answer.color >> 8 * i & 0xFF), FALSE);
  PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(answer.button), 0);
}

}  // namespace

std::unique_ptr<Home> MakeHome() { return std::make_unique<Win32Home>(); }

OtherProgram::OtherProgram() {
  STARTUPINFOA start{};
  start.cb = sizeof(start);
  if (!CreateProcessA(Beside("other.exe").c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                      nullptr, &start, &process_))
    throw std::runtime_error("other.exe can't be started");
  channel_ = WaitForChannel();
}

void OtherProgram::End() {
  TerminateProcess(process_.hProcess, 0);
  WaitForSingleObject(process_.hProcess, INFINITE);
}

OtherProgram::~OtherProgram() {
  End();
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

HWND OtherProgram::WaitForChannel() const {
  constexpr int kTries = 1000;
  constexpr DWORD kBetween = 10;
  for (int i = 0; i < kTries; ++i) {
    const HWND found = FindWindowA(kOtherChannel, std::to_string(process_.dwProcessId).c_str());
    if (found) return found;
    Sleep(kBetween);
  }
  throw std::runtime_error("other.exe does not come up");
}

Win32Other::Win32Other(OwnWindows& own) : own_(own) {
  channel_ = own_.Create(
      {.className = kHomeChannel, .caption = {}, .visible = false, .systemClass = {}}, *this);
}

Win32Other::~Win32Other() { own_.Destroy(channel_); }

MessageResult Win32Other::OnMessage(Window window, const Message& message) {
  if (message.id != WM_COPYDATA) return own_.Default(window, message);
  reply_ = WordsIn(message.lParam);
  return 1;
}

// The reply comes while the request is on its way, after those of all requests made meanwhile.
Words Win32Other::Request(const Words& words) {
  reply_.clear();
  if (!SendWords(program_.channel(), win32::ToHwnd(channel_), words))
    throw std::runtime_error("other.exe does not answer: " + words[0]);
  return std::exchange(reply_, {});
}

std::uint32_t Win32Other::RequestNumber(const Words& words) {
  return static_cast<std::uint32_t>(std::stoul(Request(words).at(0)));
}

Window Win32Other::Make(const std::string& name, const NewWindow& w) {
  return {RequestNumber(
      {"make", name, w.className, w.caption, Word(w.parent), std::to_string(w.place.left),
       std::to_string(w.place.top), std::to_string(w.place.width), std::to_string(w.place.height),
       Word(w.visible), Word(w.enabled), std::to_string(w.id), Word(w.mdiChild), w.systemClass})};
}

void Win32Other::Destroy(Window window) { Request({"destroy", Word(window)}); }

Window Win32Other::ShowDialog(Window owner, const std::string& caption, const std::string& text) {
  return {RequestNumber({"dialog", Word(owner), caption, text})};
}

void Win32Other::MakeMenu(Window window, const std::vector<std::string>& rows) {
  Words words{"menu", Word(window)};
  words.insert(words.end(), rows.begin(), rows.end());
  Request(words);
}

void Win32Other::AnswerWith(MessageId id, MessageResult result) {
  Request({"answer", std::to_string(id), std::to_string(result)});
}

void Win32Other::Record(std::vector<MessageId> ids) {
  Words words{"record"};
  for (const MessageId id : ids) words.push_back(std::to_string(id));
  Request(words);
}

std::uint32_t Win32Other::Allocate(const std::string& bytes) {
  return RequestNumber({"allocate", bytes});
}

void Win32Other::SendText(Window window, MessageId id, const std::string& text) {
  Request({"send-text", Word(window), std::to_string(id), text});
}

bool Win32Other::StartSound(const std::string& path) { return RequestNumber({"sound", path}) != 0; }

void Win32User::WillAnswer(Answer answer) {
  constexpr UINT kBetween = 50;
  Forget();
  answer_ = std::move(answer);
  timer_ = SetTimer(nullptr, 0, kBetween, OnTimer);
}

void Win32User::Forget() {
  if (timer_) KillTimer(nullptr, std::exchange(timer_, 0));
}

void CALLBACK Win32User::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  const HWND dialog = FindWindowA("#32770", nullptr), menu = FindWindowA("#32768", nullptr);
  const HWND open = dialog && IsWindowVisible(dialog) ? dialog : menu;
  if (!open || !IsWindowVisible(open)) return;
  Forget();
  win32::Callback::Run([open] {
    if (answer_.before) answer_.before();
    return 0;
  });
  if (open == menu)
    ChooseRow(menu, answer_.row);
  else
    AnswerDialog(dialog, answer_);
}

// To the system an open file is one, whoever has opened it.
void Win32Home::HoldOpen(const std::string& path) {
  held_.Reset();
  if (!path.empty())
    held_ = win32::OwnedHandle(
        CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

std::string Win32Home::ShortLivedProgram() {
  const std::string path = "C:\\ends.exe";
  CopyFileA(Beside("other.exe").c_str(), path.c_str(), FALSE);
  return path;
}

std::string Win32Home::CommandLine() {
  std::string line;
  for (int i = 1; i < __argc; ++i) line += std::string(i > 1 ? " " : "") + __argv[i];
  return line;
}

bool Win32Home::HasTaskbar() { return FindWindowA("Shell_TrayWnd", nullptr) != nullptr; }

// The folder of a drive without a disk isn't there.
void Win32Home::SetDrive(char letter, DriveKind kind, bool hasDisk) {
  const std::string disk = std::string(kFolder) + "\\DRIVE-" + letter;
  if (hasDisk) CreateDirectoryA(disk.c_str(), nullptr);
  if (!drives_) drives_.emplace();
  drives_->Set(letter, kind, hasDisk ? PathBelow(disk) : PathBelow(kFolder) + "/no disk");
}

WebServer& Win32Home::Server() {
  if (!server_) server_.emplace();
  return *server_;
}

std::string Win32Home::Serve(const std::string& path, const std::string& text) {
  return Server().Serve(path, text);
}

std::string Win32Home::SilentAddress() { return Server().SilentAddress(); }

void Win32Home::SetPrinter(bool isThere) {
  printer_.reset();
  if (isThere) printer_.emplace(kPrinted);
}

Log Win32Home::Printed() { return PrintedLines(platform().files.Read(kPrinted)); }

// The mark that an instance sets is known to the whole system.
bool Win32Home::IsSeenByAnotherInstance() { return win32::Win32Processes().PreviousInstance(); }

std::string Win32Home::Folder() {
  SetCurrentDirectoryA("C:\\");  // a dialog for paths may have gone into it
  CreateDirectoryA(kFolder, nullptr);
  EmptyFolder(kFolder);
  return kFolder;
}

void Win32Home::RunFor(std::int64_t ms) {
  const DWORD end = GetTickCount() + static_cast<DWORD>(ms);
  const auto pump = [&] { platform().events.Pump({"the test", WaitFor::kTime, end}); };
  while (static_cast<std::int32_t>(end - GetTickCount()) > 0) pump();
  other_.Settle();
  pump();
}

}  // namespace corvel::test
