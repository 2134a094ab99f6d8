// practice.exe as a process of its own: its channel, its memory, its library, a second start.
#include "practice/win32/channel_client.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace corvel::practice {
namespace {

constexpr DWORD kPatience = 20000;

std::string Folder() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string program = path;
  return program.substr(0, program.rfind('\\') + 1);
}

// A started process; ended by force if a test leaves it running.
class Started {
 public:
  explicit Started(const std::string& arguments) {
    std::string line = "\"" + Folder() + "practice.exe\" " + arguments;
    STARTUPINFOA start{};
    start.cb = sizeof start;
    CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                   &process_);
  }
  ~Started() {
    if (!Ended(0)) TerminateProcess(process_.hProcess, 9);
    Ended(kPatience);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  Started(const Started&) = delete;
  Started& operator=(const Started&) = delete;
  bool Ended(DWORD milliseconds) const {
    return WaitForSingleObject(process_.hProcess, milliseconds) == WAIT_OBJECT_0;
  }
  HANDLE handle() const { return process_.hProcess; }

 private:
  PROCESS_INFORMATION process_{};
};

class PracticeExe : public testing::Test {
 protected:
  void Start(const std::string& arguments) {
    started_.emplace(arguments);
    ASSERT_TRUE(channel.WaitUntilThere(kPatience));
    Settle();
  }
  void Settle() {
    for (int i = 0; i < 1000 && channel.Ask({"busy"}).answers == Words{"1"}; ++i) Sleep(10);
  }
  void Do(const Words& words) {
    EXPECT_EQ(channel.Do(words).error, "") << words[0];
    Settle();
  }
  std::string Answer(const Words& words) {
    const Reply reply = channel.Ask(words);
    return reply.answers.empty() ? "error: " + reply.error : reply.answers[0];
  }
  static HWND Child(HWND parent, const char* className, const char* caption = nullptr) {
    return FindWindowExA(parent, nullptr, className, caption);
  }
  static HWND Frame() { return FindWindowA("AOL Frame25", nullptr); }
  static HWND Document(const char* caption) {
    return Child(Child(Frame(), "MDIClient"), "AOL Child", caption);
  }
  // Four bytes or a name out of the client's memory.
  template <class T>
  T Read(std::uint32_t address) {
    T value{};
    SIZE_T read = 0;
    ReadProcessMemory(started_->handle(),
                      reinterpret_cast<void*>(static_cast<std::uintptr_t>(address)), &value,
                      sizeof value, &read);
    EXPECT_EQ(read, sizeof value) << address;
    return value;
  }

  PracticeChannel channel;
  std::optional<Started> started_;
};

TEST_F(PracticeExe, PlaysWhatTheChannelTellsItTo) {
  Start("version=4.0 names=One,Two delay=20");
  EXPECT_EQ(Answer({"signed-on-as"}), "One");
  Do({"room", "Lobby", "Ann", "Bob"});
  Do({"say", "Ann", "<B>hi</B> all"});
  EXPECT_EQ(Answer({"line-seen", "Ann", "hi all"}), "1");
  Do({"type", "hello"});
  Do({"key", "enter"});
  Do({"im-to", "Bob", "psst"});
  EXPECT_EQ(channel.Do({"leave", "Carl"}).error, "Carl is not in the room");
  using Seen = PracticeChannel::Seen;
  EXPECT_EQ(channel.TakeWitness(),
            (std::vector<Seen>{{"line", {"hello"}}, {"im-sent", {"Bob", "psst"}}}));
  EXPECT_EQ(channel.TakeWitness(), std::vector<Seen>{});
}

TEST_F(PracticeExe, ShowsAStrangerItsWindowsAndItsMemory) {
  Start("version=4.0 delay=20");
  Do({"room", "Lobby", "Ann", "A Sixteen Letter"});
  const HWND room = Document("Lobby");
  ASSERT_NE(room, nullptr);
  EXPECT_TRUE(IsWindowVisible(room));
  char text[200] = "";
  SendMessageA(Child(room, "RICHCNTL"), WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, "OnlineHost:\t*** You are in \"Lobby\". ***");
  const HWND list = Child(room, "_AOL_LISTBOX");
  EXPECT_EQ(SendMessageA(list, LB_GETCOUNT, 0, 0), 3);
  const LRESULT data = SendMessageA(list, LB_GETITEMDATA, 2, 0);
  EXPECT_LT(data, 0x80000000LL) << "an address of 32 bits";
  const auto record = Read<std::uint32_t>(static_cast<std::uint32_t>(data) + 24);
  EXPECT_EQ(std::string(Read<std::array<char, 16>>(record + 6).data(), 16), "A Sixteen Letter");
}

TEST_F(PracticeExe, TakesATargetFromASecondStart) {
  Start("delay=20");
  const Started second("-saol://9293:Ann%20B");
  EXPECT_TRUE(second.Ended(kPatience));
  for (int i = 0; i < 500 && Document("Send Instant Message") == nullptr; ++i) Sleep(10);
  EXPECT_EQ(channel.TakeWitness(),
            (std::vector<PracticeChannel::Seen>{{"keyword", {"aol://9293:Ann%20B"}}}));
  EXPECT_FALSE(started_->Ended(0));
}

TEST_F(PracticeExe, EndsWhenItIsClosed) {
  Start("signed-on=nobody delay=20");
  EXPECT_EQ(channel.Do({"client-close"}).error, "");
  EXPECT_TRUE(started_->Ended(kPatience));
  EXPECT_EQ(channel.Do({"sign-on", "PracticeOne"}).error, "the client is not running");
  EXPECT_FALSE(channel.IsThere());
}

// launch32.dll as a program of another language calls it: by undecorated names.
class Library {
 public:
  Library() : module_(LoadLibraryA((Folder() + "runtime\\launch32.dll").c_str())) {}
  ~Library() { FreeLibrary(module_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  template <class F>
  F Get(const char* name) {
    return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

 private:
  HMODULE module_;
};

TEST_F(PracticeExe, AnswersThroughItsLibrary) {
  Library library;
  const auto version = library.Get<int(WINAPI*)(const char*, char*)>("AOLGetVersion");
  const auto online = library.Get<int(WINAPI*)()>("AOLIsOnline");
  const auto names =
      library.Get<int(WINAPI*)(const char*, char*, char*, char*, char*, char*, char*)>(
          "AOLGetScreenName");
  ASSERT_TRUE(version && online && names);
  EXPECT_EQ(online(), 0) << "no client runs";

  Start("version=3.0 names=One,Two signed-on=Two delay=20");
  char three[] = "xxxZ";
  version("C:\\AOL", three);
  EXPECT_STREQ(three, "3.0Z") << "three characters, and nothing behind them";
  EXPECT_EQ(online(), 1);
  std::string n[6];
  for (std::string& name : n) name.assign(175, ' ');
  names("C:\\AOL\\", n[0].data(), n[1].data(), n[2].data(), n[3].data(), n[4].data(), n[5].data());
  EXPECT_STREQ(n[0].c_str(), "One");
  EXPECT_STREQ(n[1].c_str(), "Two");
  EXPECT_STREQ(n[2].c_str(), "");
  EXPECT_STREQ(n[5].c_str(), "Two");
  Do({"sign-off"});
  EXPECT_EQ(online(), 0);
}

}  // namespace
}  // namespace corvel::practice

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
