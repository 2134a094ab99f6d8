// What the services of the Windows home do beyond the seam's promises.
#include "base/error.h"
#include "platform/win32/callback.h"
#include "platform/win32/file_errors.h"
#include "platform/win32/owned.h"
#include "platform/win32/replace_file.h"
#include "platform/win32/win32_client_library.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_system_info.h"
#include "tests/platform/win32/win32_home.h"

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

TEST_F(DriveTest, NothingIsLeftBesideAFileThatIsOpenElsewhere) {
  const OwnedHandle elsewhere(
      CreateFileA(kOld.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(elsewhere);
  EXPECT_EQ(ErrorOf([&] { files.Write(kOld, "new"); }), 70);
  EXPECT_NE(ErrorOf([&] { FileBeside(kOld).ReplaceInSteps(); }), 0);
  EXPECT_EQ(Names(), NameList{"Old.txt"});
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

TEST(FileErrors, ADriveThatIsNotReadyHasNoDisk) {
  for (const DWORD error : {ERROR_NOT_READY, ERROR_NOT_DOS_DISK})
    EXPECT_EQ(RunTimeErrorFor(error, "C:\\x"), 71);
  EXPECT_EQ(RunTimeErrorFor(ERROR_FILE_NOT_FOUND, "C:\\x"), 53);
  EXPECT_EQ(RunTimeErrorFor(ERROR_PATH_NOT_FOUND, "Q:\\x"), 68);
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

TEST(ClientLibrary, MayBeAnotherOfThatName) {
  Win32ClientLibrary library("kernel32.dll");  // which has no such functions
  EXPECT_EQ(library.GetVersion("C:\\AOL"), "");
  EXPECT_EQ(library.IsOnline(), 0);
  EXPECT_EQ(library.GetScreenNames("C:\\AOL\\"), std::vector<std::string>(6));
}

TEST(Dialogs, WhatIsThrownMeanwhileComesOutBehindTheDialog) {
  test::Win32Home home;
  home.user().WillAnswer({.button = IDOK, .before = [] { throw ProcessExit(); }});
  EXPECT_THROW(home.platform().dialogs.PlainMessage({}, "Text", "Title", MB_OK), ProcessExit);
  EXPECT_FALSE(Callback::IsThrown());
}

TEST(Dialogs, AFileNameIsPreset) {
  test::Win32Home home;
  home.user().WillAnswer({.button = IDOK});
  const auto path = home.platform().dialogs.SaveFile({}, "Waves", "*.wav", "path");
  EXPECT_TRUE(path && path->ends_with("\\path")) << path.value_or("");
}

}  // namespace
}  // namespace corvel::win32
