// The other process of the conformance test on real windows: makes windows on request and keeps a
// log of their messages.
#include "base/error.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_own_windows.h"
#include "tests/platform/home.h"
#include "tests/platform/win32/channel.h"

#include <cstring>
#include <map>
#include <set>
#include <utility>
#include <windows.h>
// After the system's own.
#include <mmsystem.h>

namespace corvel::test {
namespace {

std::uint32_t Number(const std::string& word) {
  return static_cast<std::uint32_t>(std::stoul(word));
}

// A menu bar from rows like "File/Open=101", "File/-", "Help=7".
HMENU MenuBar(const Words& rows) {
  const HMENU bar = CreateMenu();
  std::map<std::string, HMENU> popups;
  for (const std::string& row : rows) {
    const std::size_t slash = row.find('/');
    const bool inPopup = slash != std::string::npos;
    HMENU menu = bar;
    if (inPopup) {
      HMENU& popup = popups[row.substr(0, slash)];
      if (!popup) {
        popup = CreatePopupMenu();
        AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), row.substr(0, slash).c_str());
      }
      menu = popup;
    }
    const std::string rest = inPopup ? row.substr(slash + 1) : row;
    const std::size_t equals = rest.find('=');
    if (rest == "-")
      AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    else
      AppendMenuA(menu, MF_STRING, Number(rest.substr(equals + 1)), rest.substr(0, equals).c_str());
  }
  return bar;
}

// Memory at an address that fits in 31 bits, on the 64-bit editions too, and with room behind it
// that nobody has.
std::uint32_t AllocateLow(const std::string& bytes) {
  constexpr std::uintptr_t kFirst = 0x70000000, kLast = 0x7F000000, kStep = 0x10000;
  for (std::uintptr_t at = kFirst; at < kLast; at += kStep) {
    void* const block = VirtualAlloc(reinterpret_cast<void*>(at), bytes.size(),
                                     MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (!block) continue;
    std::memcpy(block, bytes.data(), bytes.size());
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(block));
  }
  return 0;
}

class Other : public WindowProcedure {
 public:
  explicit Other(win32::Win32EventLoop& events) : events_(events), own_(events) {
    channel_ = own_.Create({.className = kOtherChannel,
                            .caption = std::to_string(GetCurrentProcessId()),
                            .visible = false,
                            .systemClass = {}},
                           *this);
  }

  MessageResult OnMessage(Window window, const Message& message) override {
    if (message.id == WM_COPYDATA) return Answer(message);
    const auto name = names_.find(window);
    if (recorded_.count(message.id))
      log_.push_back(LogLine(name == names_.end() ? making_ : name->second, message));
    const auto answer = answers_.find(message.id);
    return answer != answers_.end() && window != channel_ ? answer->second
                                                          : own_.Default(window, message);
  }

 private:
  struct Row {
    const char* word;
    Words (Other::*act)(const Words&);
  };
  static const Row kRows[];

  MessageResult Answer(const Message& message);
  static Words One(Window window) { return {std::to_string(window.value)}; }
  static Window Handle(const std::string& word) { return {Number(word)}; }
  static int Place(const std::string& word) { return std::stoi(word); }

  // make NAME CLASS CAPTION PARENT left top width height visible enabled id mdi SYSTEMCLASS
  Words Make(const Words& w) {
    making_ = w[1];
    const Window made = own_.Create({.className = w[2],
                                     .caption = w[3],
                                     .parent = Handle(w[4]),
                                     .place = {Place(w[5]), Place(w[6]), Place(w[7]), Place(w[8])},
                                     .visible = w[9] == "1",
                                     .enabled = w[10] == "1",
                                     .id = Place(w[11]),
                                     .mdiChild = w[12] == "1",
                                     .systemClass = w[13]},
                                    *this);
    names_[made] = w[1];
    return One(made);
  }
  Words Destroy(const Words& w) {
    own_.Destroy(Handle(w[1]));
    return {};
  }
  Words Dialog(const Words& w) { return One(own_.ShowDialog(Handle(w[1]), w[2], w[3])); }
  Words Menu(const Words& w) {
    own_.SetMenuBar(Handle(w[1]), win32::FromHmenu(MenuBar({w.begin() + 2, w.end()})));
    return {};
  }
  Words AnswerWith(const Words& w) {
    answers_[Number(w[1])] = std::stol(w[2]);
    return {};
  }
  Words Record(const Words& w) {
    recorded_.clear();
    for (std::size_t i = 1; i < w.size(); ++i) recorded_.insert(Number(w[i]));
    return {};
  }
  Words TakeLog(const Words&) { return std::exchange(log_, {}); }
  Words Allocate(const Words& w) { return {std::to_string(AllocateLow(w[1]))}; }
  // Lets all that is waiting happen.
  Words Settle(const Words&) {
    while (HIWORD(GetQueueStatus(QS_ALLINPUT)) & (QS_POSTMESSAGE | QS_INPUT | QS_TIMER))
      events_.Pump({"settle", WaitFor::kTime, GetTickCount()});
    return {};
  }
  Words Sound(const Words& w) {
    return {std::to_string(sndPlaySoundA(w[1].c_str(), SND_ASYNC | SND_NOSTOP))};
  }
  // A private message with a text, sent within this process.
  Words SendText(const Words& w) {
    SendMessageA(win32::ToHwnd(Handle(w[1])), Number(w[2]), 0,
                 reinterpret_cast<LPARAM>(w[3].c_str()));
    return {};
  }

  win32::Win32EventLoop& events_;
  win32::Win32OwnWindows own_;
  Window channel_{};
  std::string making_;  // the name of the window that is being made
  std::map<Window, std::string> names_;
  std::map<MessageId, MessageResult> answers_;
  std::set<MessageId> recorded_;
  Log log_;
};

const Other::Row Other::kRows[] = {
    {"make", &Other::Make},          {"destroy", &Other::Destroy},   {"dialog", &Other::Dialog},
    {"menu", &Other::Menu},          {"answer", &Other::AnswerWith}, {"record", &Other::Record},
    {"log", &Other::TakeLog},        {"allocate", &Other::Allocate}, {"settle", &Other::Settle},
    {"send-text", &Other::SendText}, {"sound", &Other::Sound}};

MessageResult Other::Answer(const Message& message) {
  const Words words = WordsIn(message.lParam);
  for (const Row& row : kRows)
    if (words[0] == row.word)
      return SendWords(reinterpret_cast<HWND>(message.wParam), win32::ToHwnd(channel_),
                       (this->*row.act)(words));
  return 0;
}

}  // namespace
}  // namespace corvel::test

// Runs until its test ends it; as ends.exe it ends at once.
int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  char path[MAX_PATH];
  if (std::string(path, GetModuleFileNameA(nullptr, path, MAX_PATH)).ends_with("ends.exe"))
    return 0;
  corvel::win32::Win32EventLoop events;
  const corvel::test::Other other(events);
  try {
    for (;;) events.Pump({"the other process", corvel::WaitFor::kUser});
  } catch (const corvel::ProcessExit&) {
    return 0;
  }
}
