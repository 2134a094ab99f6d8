// Real windows as a home of the conformance suite; see win32_home.h.
#include "tests/platform/win32/win32_home.h"

#include "platform/win32/handles.h"

#include <stdexcept>
#include <utility>

namespace corvel::test {
namespace {

std::string Word(Window window) { return std::to_string(window.value); }
std::string Word(bool flag) { return flag ? "1" : "0"; }

std::string OtherPath() {
  char path[MAX_PATH];
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  std::string folder(path);
  return folder.substr(0, folder.rfind('\\') + 1) + "other.exe";
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

}  // namespace

std::unique_ptr<Home> MakeHome() { return std::make_unique<Win32Home>(); }

OtherProgram::OtherProgram() {
  STARTUPINFOA start{};
  start.cb = sizeof(start);
  if (!CreateProcessA(OtherPath().c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &start, &process_))
    throw std::runtime_error("other.exe can't be started");
  channel_ = WaitForChannel();
}

OtherProgram::~OtherProgram() {
  TerminateProcess(process_.hProcess, 0);
  WaitForSingleObject(process_.hProcess, INFINITE);
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

std::string Win32Home::Folder() {
  const std::string folder = "C:\\CONFORM";
  CreateDirectoryA(folder.c_str(), nullptr);
  EmptyFolder(folder);
  return folder;
}

void Win32Home::RunFor(std::int64_t ms) {
  const DWORD end = GetTickCount() + static_cast<DWORD>(ms);
  const auto pump = [&] { platform().events.Pump({"the test", WaitFor::kTime, end}); };
  while (static_cast<std::int32_t>(end - GetTickCount()) > 0) pump();
  other_.Settle();
  pump();
}

}  // namespace corvel::test
