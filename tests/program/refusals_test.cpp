// Folders and disks that refuse. Whoever starts the tests may make two: C:\Locked, a folder that
// can't be written to, with the program in it, and C:\Full, a disk of a few megabytes.
#include "base/error.h"
#include "platform/win32/win32_files.h"
#include "tests/program/stage.h"

namespace corvel::test {
namespace {

constexpr char kLocked[] = "C:\\Locked", kFull[] = "C:\\Full";
// The rows of the wav list's pop-up menu are told from below.
const std::initializer_list<WPARAM> kAddToFavWavs = {VK_UP, VK_UP, VK_RETURN};

class Refusals : public ProgramTest {
 protected:
  // The user adds the wav that the list shows to the FavWavs.
  static void AddFavWav(const Program& program) {
    ASSERT_TRUE(program.OpenWavList());
    ASSERT_TRUE(program.RightClick(program.Child("&Send", "LISTBOX")));
    ASSERT_TRUE(program.ChooseByKeys(kAddToFavWavs));
  }
};

int ErrorOf(const std::function<void()>& call) {
  try {
    call();
    return 0;
  } catch (const RunTimeError& error) {
    return error.Number();
  }
}

TEST_F(Refusals, AFolderThatCanNotBeWrittenToStopsNothing) {
  win32::Win32Files files;
  if (!files.IsFolder(kLocked)) GTEST_SKIP() << "no C:\\Locked has been made";
  const std::string library = std::string(kLocked) + "\\corvelhk.dll",
                    other = std::string(kLocked) + "\\new.txt";
  EXPECT_EQ(ErrorOf([&] { files.Write(other, "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { files.Append(other, "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { files.MakeFolder(other); }), 75);
  EXPECT_EQ(ErrorOf([&] { files.Copy(library, other); }), 75);
  EXPECT_EQ(ErrorOf([&] { files.Rename(library, other); }), 75);
  StartClient();
  const Program program(kLocked);
  EXPECT_TRUE(program.Says("IntegrityCheck"));
  ASSERT_TRUE(Until(
      [&] {  // the user goes on over each folder that can't be made
        if (program.Shown("&Go on")) program.Press("&Go on");
        return IsUp(program, 0);
      },
      6 * kPatience))
      << program.Texts();
  AddFavWav(program);
  EXPECT_TRUE(program.Says("Error 75"));
  EXPECT_TRUE(program.Press("&Go on"));
  ASSERT_TRUE(program.Close("&Wavs"));
  ASSERT_TRUE(program.Press("Yes"));
  EXPECT_TRUE(program.EndsWell());
  EXPECT_NE(Setting("Toolbar", "Top"), "") << "the settings stand elsewhere";
}

// Takes all the room that is left; gives it back at its end.
class Filler {
 public:
  Filler() {
    const HANDLE file = Make();
    for (DWORD size = 1 << 16, written = 0; size; size /= 2)
      while (WriteFile(file, std::string(size, 'x').data(), size, &written, nullptr) &&
             written == size)
        continue;
    CloseHandle(file);
  }
  ~Filler() { DeleteFileA(kPath); }
  Filler(const Filler&) = delete;
  Filler& operator=(const Filler&) = delete;

 private:
  static constexpr char kPath[] = "C:\\Full\\filler";
  static HANDLE Make() {
    return CreateFileA(kPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  }
};

TEST_F(Refusals, AFullDiskIsToldOfAndLosesNothing) {
  ULARGE_INTEGER free{}, size{};
  const bool isThere = GetDiskFreeSpaceExA(kFull, &free, &size, nullptr);
  if (!isThere || size.QuadPart > 64U << 20) GTEST_SKIP() << "no small disk C:\\Full has been made";
  const std::string favWavs = std::string(kFull) + "\\favwavs.dat", old = "ding\tc:\\d.wav\r\n";
  CopyProgram(kFull);
  DeleteFileA(favWavs.c_str());
  Put(favWavs, old + std::string(4096 - old.size(), '\n'));  // no room left behind it either
  win32::Win32Files files;
  StartClient();
  std::optional<Filler> filler(std::in_place);
  const std::string before = Bytes(favWavs);
  EXPECT_EQ(ErrorOf([&] { files.Write(favWavs, before + "x"); }), 61);
  EXPECT_EQ(ErrorOf([&] { files.Append(favWavs, std::string(5000, 'x')); }), 61);
  EXPECT_EQ(ErrorOf([&] { files.Copy("C:\\AOL\\waol.exe", favWavs); }), 61);
  EXPECT_EQ(Bytes(favWavs), before);
  const Program program(kFull);
  ASSERT_TRUE(IsUp(program));
  AddFavWav(program);
  ASSERT_TRUE(program.Says("Error 61"));
  EXPECT_EQ(Bytes(favWavs), before);
  filler.reset();
  EXPECT_TRUE(program.Press("&Retry"));
  EXPECT_TRUE(Until([&] { return Bytes(favWavs) == before + "boing\tc:\\wavs\\boing.wav\r\n"; }));
}

}  // namespace
}  // namespace corvel::test
