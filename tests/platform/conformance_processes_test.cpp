// Other processes: listing and starting them, reading their memory.
#include "base/text.h"
#include "tests/platform/home.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class ProcessesTest : public testing::Test {
 protected:
  // The paths of the running processes with this file name.
  Log Running(std::string_view fileName) {
    Log paths;
    for (const ProcessEntry& entry : processes.Snapshot().value_or(std::vector<ProcessEntry>{}))
      if (EqualNoCase(FileNameOf(entry.path), fileName)) paths.push_back(entry.path);
    return paths;
  }

  std::unique_ptr<Home> home = MakeHome();
  OtherProcess& other = home->other();
  Processes& processes = home->platform().processes;
};

TEST_F(ProcessesTest, AreListedWithTheirPaths) {
  const auto entries = processes.Snapshot();
  ASSERT_TRUE(entries);
  const auto found = std::find_if(entries->begin(), entries->end(),
                                  [&](const ProcessEntry& e) { return e.id == other.Id(); });
  ASSERT_NE(found, entries->end());
  EXPECT_NE(FolderOf(found->path), "");
  EXPECT_EQ(Lower(FileNameOf(found->path)), "other.exe");
  EXPECT_EQ(processes.ModulePath(other.Id(), "OTHER.EXE"), found->path);
  EXPECT_EQ(processes.ModulePath(other.Id(), "nothing.exe"), "");
  EXPECT_EQ(processes.ModulePath(0, "other.exe"), "");
}

TEST_F(ProcessesTest, AreStartedByCommandLine) {
  const std::string path = home->ShortLivedProgram();
  home->Run([&] {
    for (const std::string& line :
         {path, path + " -sTarget x", "\"" + path + "\"  a b", path.substr(0, path.rfind('.'))})
      EXPECT_TRUE(processes.Run(line, 0)) << line;
    for (const char* line : {"C:\\none such\\program.exe -s", "nosuch.exe", ""})
      EXPECT_FALSE(processes.Run(line, 1)) << line;
  });
  for (int i = 0; i < 20 && !Running(FileNameOf(path)).empty(); ++i) home->RunFor(500);
  EXPECT_EQ(Running("other.exe").size(), 1u);
  EXPECT_EQ(Running(FileNameOf(path)), Log{}) << "they have ended by themselves";
}

TEST_F(ProcessesTest, OfOneProgramKnowOfAnEarlierInstance) {
  home->Run([&] { EXPECT_FALSE(processes.PreviousInstance()); });
  EXPECT_TRUE(home->IsSeenByAnotherInstance());
  home->Run([&] { EXPECT_FALSE(processes.PreviousInstance()); });
}

TEST_F(ProcessesTest, GiveTheirMemoryWholeOrNotAtAll) {
  const std::uint32_t name = other.Allocate(std::string("HostName\0", 9));
  const auto memory = processes.Open(other.Id());
  ASSERT_TRUE(memory);
  EXPECT_EQ(memory->Read(name, 9), std::string("HostName\0", 9));
  EXPECT_EQ(memory->Read(name + 4, 4), "Name");
  EXPECT_FALSE(memory->Read(name, 0x10000000)) << "beyond its last page";
  EXPECT_FALSE(memory->Read(0, 4));
  EXPECT_EQ(processes.Open(0xFFFF0), nullptr);
}

}  // namespace
}  // namespace corvel::test
