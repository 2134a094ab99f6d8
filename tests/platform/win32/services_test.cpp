// What the services of the Windows home do beyond the seam's promises, and what only a real system
// can show: open files, other processes, the system's own dialogs.
#include "base/error.h"
#include "platform/win32/callback.h"
#include "platform/win32/owned.h"
#include "platform/win32/replace_file.h"
#include "platform/win32/win32_client_library.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_dialogs.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_processes.h"
#include "platform/win32/win32_shell.h"
#include "platform/win32/win32_system_info.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>

namespace corvel::win32 {
namespace {

int ErrorOf(const std::function<void()>& call) {
  try {
    call();
    return 0;
  } catch (const RunTimeError& error) {
    return error.Number();
  }
}

// A folder with one hidden file "Old.txt".
class DriveTest : public testing::Test {
 protected:
  DriveTest() {
    if (!files.IsFolder(kFolder)) files.MakeFolder(kFolder);
    for (const FoundFile& found : files.Search(At("*"))) Remove(At(found.name));
    files.Write(kOld, "old");
    files.SetAttributes(kOld, file_attribute::kHidden);
  }
  ~DriveTest() override {
    for (const FoundFile& found : files.Search(At("*"))) Remove(At(found.name));
    RemoveDirectoryA(kFolder.c_str());
  }

  std::string At(const std::string& name) { return kFolder + "\\" + name; }
  void Remove(const std::string& path) {
    files.SetAttributes(path, 0);
    files.Delete(path);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const FoundFile& found : files.Search(At("*"))) names.push_back(found.name);
    return names;
  }
  OwnedHandle OpenElsewhere() {
    return OwnedHandle(
        CreateFileA(kOld.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  }

  using NameList = std::vector<std::string>;
  Win32Files files;
  const std::string kFolder = "C:\\CVSERVICE", kOld = At("Old.txt");
};

TEST_F(DriveTest, AReplacedFileKeepsItsNameAndAttributes) {
  files.Write(At("oLD.TXT"), "new");
  EXPECT_EQ(files.Read(kOld), "new");
  EXPECT_EQ(Names(), NameList{"Old.txt"});
  EXPECT_TRUE(files.Search(kOld).at(0).attributes & file_attribute::kHidden);
}

TEST_F(DriveTest, AFileThatIsOpenElsewhereStaysAndNothingIsLeftBeside) {
  {
    const OwnedHandle elsewhere = OpenElsewhere();
    ASSERT_TRUE(elsewhere);
    EXPECT_EQ(ErrorOf([&] { files.Read(kOld); }), 70);
    EXPECT_EQ(ErrorOf([&] { files.Append(kOld, "x"); }), 70);
    EXPECT_EQ(ErrorOf([&] { files.Delete(kOld); }), 70);
    EXPECT_NE(ErrorOf([&] { files.Write(kOld, "new"); }), 0);
    EXPECT_NE(ErrorOf([&] { FileBeside(kOld).ReplaceInSteps(); }), 0);
    EXPECT_EQ(Names(), NameList{"Old.txt"});
  }
  EXPECT_EQ(files.Read(kOld), "old");
}

TEST_F(DriveTest, ReplacingInStepsLeavesNothingBeside) {
  for (const char* name : {"old.TXT", "new.txt"}) {
    FileBeside beside(At(name));
    files.Append(beside.Path(), "new");
    beside.ReplaceInSteps();
    EXPECT_EQ(files.Read(At(name)), "new");
  }
  EXPECT_EQ(Names().size(), 2u);
  { const FileBeside forgotten(kOld); }
  EXPECT_EQ(Names().size(), 2u);
}

TEST_F(DriveTest, AProfileIsReadAsItStandsOnTheDrive) {
  const std::string file = At("list.dat");
  for (const char* text : {"one", "two"}) {
    files.Write(file, std::string("[Data]\r\nkey= \"") + text + "\" \r\n");
    EXPECT_EQ(files.ReadProfile(file, "data", "KEY"), text);
  }
  EXPECT_TRUE(files.WriteProfile(file, "Data", "key", "three\r\nother=x"));
  EXPECT_EQ(files.Read(file), "[Data]\r\nkey=three\r\n");
  EXPECT_TRUE(files.WriteProfile(At("none.dat"), "Data", "key", std::nullopt));
  EXPECT_FALSE(files.Exists(At("none.dat")));
}

TEST_F(DriveTest, TheShellTakesFilesOnly) {
  Win32Shell shell;
  EXPECT_FALSE(shell.Recycle({}, kFolder));
  EXPECT_FALSE(shell.Recycle({}, At("none.wav")));
  EXPECT_FALSE(shell.Help(At("none.hlp"), "topic"));
  EXPECT_EQ(Names(), NameList{"Old.txt"});
}

TEST(Processes, OursIsInTheListWithItsPath) {
  char path[MAX_PATH];
  GetModuleFileNameA(nullptr, path, sizeof path);
  Win32Processes processes;
  const auto list = processes.Snapshot();
  ASSERT_TRUE(list);
  const auto own = std::find_if(list->begin(), list->end(), [](const ProcessEntry& entry) {
    return entry.id == GetCurrentProcessId();
  });
  ASSERT_NE(own, list->end());
  EXPECT_STRCASEEQ(own->path.c_str(), path);
  EXPECT_NE(processes.ModulePath(own->id, "Kernel32.DLL"), "");
  EXPECT_EQ(processes.ModulePath(own->id, "none.dll"), "");
  EXPECT_EQ(processes.ModulePath(0, "kernel32.dll"), "");
}

TEST(Processes, MemoryIsReadByItsAddress) {
  constexpr std::uint32_t kAddress = 0x24680000;
  constexpr std::size_t kSize = 0x1000;
  void* const place = reinterpret_cast<void*>(static_cast<std::uintptr_t>(kAddress));
  char* const memory =
      static_cast<char*>(VirtualAlloc(place, kSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
  ASSERT_EQ(memory, place);
  std::memcpy(memory + kSize - 4, "name", 4);
  Win32Processes processes;
  const auto own = processes.Open(GetCurrentProcessId());
  ASSERT_TRUE(own);
  EXPECT_EQ(own->Read(kAddress + kSize - 4, 4), "name");
  EXPECT_EQ(own->Read(8, 4), std::nullopt);
  EXPECT_EQ(processes.Open(0xFFFFFFF1), nullptr);
  VirtualFree(memory, 0, MEM_RELEASE);
}

TEST(Processes, AProgramStartsIfThereIsOne) {
  Win32Processes processes;
  EXPECT_TRUE(processes.Run("cmd /c exit", 0));
  EXPECT_FALSE(processes.Run("C:\\none such\\program.exe -s", 1));
}

TEST(Processes, AnInstanceKnowsOfAnEarlierOne) {
  {
    Win32Processes first, second;
    EXPECT_FALSE(first.PreviousInstance());
    EXPECT_TRUE(second.PreviousInstance());
    EXPECT_FALSE(first.PreviousInstance());
  }
  EXPECT_FALSE(Win32Processes().PreviousInstance());
}

TEST(SystemInfo, TheCommandLineBeginsBehindTheProgram) {
  const std::pair<const char*, const char*> kTable[] = {
      {"\"C:\\Program Files\\a.exe\" CHANGEAOL", " CHANGEAOL"},
      {"C:\\a.exe  LIVEUPDATE", " LIVEUPDATE"},
      {"\"C:\\a b.exe\"", ""},
      {"a.exe", ""},
      {"\"unfinished", ""},
  };
  for (const auto& [line, rest] : kTable) EXPECT_EQ(WithoutProgram(line), rest) << line;
}

TEST(SystemInfo, FoldersAreThereAndEndInNoSlash) {
  Win32SystemInfo system;
  Win32Files files;
  for (const std::string& folder :
       {system.ProgramFolder(), system.WindowsFolder(), system.SystemFolder()}) {
    EXPECT_TRUE(files.IsFolder(folder)) << folder;
    EXPECT_FALSE(folder.ends_with('\\')) << folder;
  }
}

TEST(Clock, TellsLocalTimeAndItsZone) {
  Win32Clock clock;
  SYSTEMTIME before;
  GetLocalTime(&before);
  const CivilTime now = clock.Now();
  EXPECT_GE(now.year, before.wYear);
  EXPECT_TRUE(now.month >= 1 && now.month <= 12 && now.day >= 1 && now.day <= 31);
  const std::string zone = clock.TimeZoneName();
  EXPECT_FALSE(zone.empty());
  EXPECT_EQ(zone.find('\0'), std::string::npos);
}

TEST(Random, DrawsFillTheRangeAndDiffer) {
  Win32Random one, other;
  other.Reseed();
  int same = 0, low = 0;
  for (int i = 0; i < 1000; ++i) {
    const double draw = one.Draw();
    ASSERT_TRUE(draw >= 0 && draw < 1);
    low += draw < 0.5;
    same += draw == other.Draw();
  }
  EXPECT_TRUE(low > 400 && low < 600) << low;
  EXPECT_EQ(same, 0);
}

TEST(ClientLibrary, WithoutItNothingIsKnown) {
  Win32ClientLibrary library("none such.dll");
  EXPECT_EQ(library.GetVersion("C:\\AOL"), "");
  EXPECT_EQ(library.IsOnline(), 0);
  EXPECT_EQ(library.GetScreenNames("C:\\AOL\\"), std::vector<std::string>(6));
  Win32ClientLibrary other("kernel32.dll");  // which has no such functions
  EXPECT_EQ(other.IsOnline(), 0);
}

// A user: does one thing to the first dialog that comes up, from a timer inside the dialog's loop.
class User {
 public:
  explicit User(std::function<void(HWND)> act) {
    act_ = std::move(act);
    timer_ = SetTimer(nullptr, 0, 50, OnTimer);
  }
  ~User() { KillTimer(nullptr, timer_); }
  User(const User&) = delete;
  User& operator=(const User&) = delete;

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    const HWND dialog = FindWindowA("#32770", nullptr);
    if (!dialog || !IsWindowVisible(dialog)) return;
    Callback::Run([&] {
      act_(dialog);
      return 0;
    });
  }
  static inline std::function<void(HWND)> act_;
  UINT_PTR timer_;
};

void Press(HWND dialog, int button) {
  PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

TEST(Dialogs, APlainMessageGivesTheButton) {
  Win32CommonDialogs dialogs;
  const User user([](HWND dialog) { Press(dialog, IDNO); });
  EXPECT_EQ(dialogs.PlainMessage({}, "Text", "Title", MB_YESNO), IDNO);
}

TEST(Dialogs, WhatIsThrownMeanwhileComesOutBehindTheDialog) {
  Win32CommonDialogs dialogs;
  const User user([](HWND dialog) {
    Press(dialog, IDOK);
    throw ProcessExit();
  });
  EXPECT_THROW(dialogs.PlainMessage({}, "Text", "Title", MB_OK), ProcessExit);
  EXPECT_FALSE(Callback::IsThrown());
}

TEST(Dialogs, PathsAreAskedFor) {
  Win32CommonDialogs dialogs;
  {
    const User user([](HWND dialog) { Press(dialog, IDCANCEL); });
    EXPECT_EQ(dialogs.OpenFile({}, "Waves", "*.wav"), std::nullopt);
  }
  const User user([](HWND dialog) { Press(dialog, IDOK); });
  const auto path = dialogs.SaveFile({}, "Waves", "*.wav", "path");
  ASSERT_TRUE(path);
  EXPECT_TRUE(path->ends_with("\\path")) << *path;
}

TEST(Dialogs, AColorIsAskedFor) {
  constexpr Color kStart = 0x00102030;
  Win32CommonDialogs dialogs;
  std::array<Color, 16> custom{};
  custom[3] = 0x00ABCDEF;
  {
    const User user([](HWND dialog) { Press(dialog, IDOK); });
    EXPECT_EQ(dialogs.ChooseColor({}, kStart, custom), kStart);
  }
  const User user([](HWND dialog) { Press(dialog, IDCANCEL); });
  EXPECT_EQ(dialogs.ChooseColor({}, kStart, custom), std::nullopt);
  EXPECT_EQ(custom[3], 0x00ABCDEF);
}

}  // namespace
}  // namespace corvel::win32
