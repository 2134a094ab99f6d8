// The real corvel32.exe beside the practice client, each a process of its own: started, looked at
// and used from outside, with nothing of them in the test's own process.
#pragma once

#include "practice/win32/channel_client.h"

#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace corvel::test {

inline constexpr DWORD kPatience = 10000;
inline const std::string kProgramFolder = "C:\\Corvel";

inline HWND Frame() { return FindWindowA("AOL Frame25", nullptr); }  // the client's

// Looks again and again until it is so; false at the limit.
bool Until(const std::function<bool()>& isSo, DWORD milliseconds = kPatience);
// The window's process looks at its messages within that time.
bool Answers(HWND window, DWORD milliseconds);
std::string TextOf(HWND window);

// A process, ended by force if it is left running.
class Process {
 public:
  Process(const std::string& path, const std::string& arguments);
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  bool Ends(DWORD milliseconds = kPatience) const;
  bool EndsWell(DWORD milliseconds = kPatience) const;  // by itself, with the exit code 0
  std::int64_t EndedAtMs() const;  // of one that has ended; milliseconds of the system's clock
  void Kill() const;
  std::vector<HWND> Windows() const;  // top-level ones, hidden ones too
  // Everything that it shows takes messages.
  bool AnswersEverywhere(DWORD milliseconds) const;

 private:
  PROCESS_INFORMATION process_{};
};

// corvel32.exe as its user sees it. A form is known by a control that it has.
class Program : public Process {
 public:
  explicit Program(const std::string& folder = kProgramFolder)
      : Process(folder + "\\corvel32.exe", "") {}

  HWND Shown(const char* control) const;   // a visible form with a control of that text
  bool IsMade(const char* control) const;  // such a form stands, seen or not
  HWND Toolbar() const { return Shown("&Wavs"); }
  HWND Child(const char* form, const char* className) const;
  bool HasMenuOpen() const;
  std::string Texts() const;  // of all that is shown
  // Each waits for what it needs, and is false if that doesn't come.
  bool Says(const std::string& part) const;
  bool Press(const char* button) const;
  bool RightClick(HWND control) const;
  bool ChooseByKeys(std::initializer_list<WPARAM> keys) const;  // in the pop-up menu
  bool Close(const char* form) const;
  // With the room known by then, which the program looks for three times a second.
  bool OpenWavList() const;
};

// A program whose start is over: the client takes input again.
bool IsUp(const Program& program, DWORD milliseconds = kPatience);

// A thread that doesn't run while this stands: its process hangs.
class Hang {
 public:
  explicit Hang(HWND window);
  ~Hang();
  Hang(const Hang&) = delete;
  Hang& operator=(const Hang&) = delete;

 private:
  HANDLE thread_;
};

// C:\Corvel, C:\AOL and C:\Wavs as freshly installed, no settings; one client at a time.
class ProgramTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  static void Put(const std::string& path, const std::string& bytes);
  static std::string Bytes(const std::string& path);  // "" if it can't be read
  static void CopyProgram(const std::string& folder);
  static void Set(const std::string& section, const std::string& name, const std::string& text);
  static std::string Setting(const std::string& section, const std::string& name);

  // With a room open, which has the user's line "hello" already.
  void StartClient();
  // The user writes a line in the room, and it is sent within a second.
  bool Chats(const std::string& line);
  bool IsSent(const std::string& line, DWORD milliseconds);  // since the last such question
  bool HasMenuRow(const char* caption);
  static int AgentsInClient();  // what the program's library has in the client

  practice::PracticeChannel client;
  std::optional<Process> clientProcess;
};

}  // namespace corvel::test
