// What the desk's registry, drive and clipboard can do beyond the seam: faults, locks, the journal.
#include "base/error.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tests/platform/desk_home.h"
#include "tests/platform/services_home.h"

#include <functional>

namespace corvel {
namespace {

using Words = std::vector<std::string>;

class DeskStageTest : public ServicesHome {
 protected:
  static std::string At(std::string_view name) { return "C:\\Stage\\" + std::string(name); }
  // The number of the run-time error, or 0.
  static int ErrorOf(const std::function<void()>& call) {
    try {
      call();
      return 0;
    } catch (const RunTimeError& error) {
      return error.Number();
    }
  }
  static RegistryValue Text(std::string text) { return {ValueType::kText, std::move(text) + '\0'}; }

  const std::string kRoot = "Software\\QRV Software\\Corvel";
  Registry& registry = system().registry;
  Files& files = system().files;
  Clipboard& clipboard = system().clipboard;
  desk::DeskFiles& drive = desk().files();

  DeskStageTest() { drive.PutFolder("C:\\Stage"); }
};

TEST_F(DeskStageTest, TheJournalTellsOfSettings) {
  registry.Write("\\" + kRoot + "\\IM", "Style", Text("tabs"));
  registry.Write(kRoot, "UIMode", Text("2"));
  registry.Write(kRoot, "Binary", {ValueType::kBinary, "x"});
  registry.Write("Software\\QRV Software\\Corvel2", "Other", Text("x"));
  registry.DeleteValue(kRoot + "\\IM", "Style");
  registry.DeleteKey("Software\\QRV Software\\Corvel2");
  EXPECT_EQ(Journal("setting"), (std::vector<Words>{{"IM", "Style", "tabs"}, {"", "UIMode", "2"}}));
  EXPECT_EQ(Journal("setting-deleted"), (std::vector<Words>{{"IM", "Style"}}));
}

TEST_F(DeskStageTest, TheRegistryCanRefuseEveryChange) {
  registry.Write(kRoot, "UIMode", Text("1"));
  desk().registry().FailWrites(true);
  EXPECT_FALSE(registry.Write(kRoot, "UIMode", Text("2")));
  EXPECT_FALSE(registry.DeleteValue(kRoot, "UIMode"));
  EXPECT_FALSE(registry.DeleteKey(kRoot));
  EXPECT_EQ(registry.Read(kRoot, "UIMode", 2)->bytes, Text("1").bytes);
}

TEST_F(DeskStageTest, AFullDiskLosesNothing) {
  files.Write(At("log.txt"), "12345");
  drive.SetFreeSpace(5);
  EXPECT_EQ(ErrorOf([&] { files.Write(At("log.txt"), "123456"); }), 61);
  EXPECT_EQ(ErrorOf([&] { files.Append(At("log.txt"), "123456"); }), 61);
  EXPECT_EQ(ErrorOf([&] { files.Write(At("new.txt"), "123456"); }), 61);
  EXPECT_EQ(files.Read(At("log.txt")), "12345");
  EXPECT_EQ(drive.AllPaths(), Words{At("log.txt")});
  files.Write(At("log.txt"), "");  // frees what it had
  files.Write(At("new.txt"), std::string(10, 'x'));
  EXPECT_EQ(ErrorOf([&] { files.Append(At("new.txt"), "x"); }), 61);
  files.Delete(At("new.txt"));
  files.Append(At("log.txt"), std::string(10, 'x'));
}

TEST_F(DeskStageTest, ALockedFileKeepsItsFolderAndIsNotTakenAway) {
  drive.Put(At("open.wav"), "x");
  drive.Lock(At("open.wav"), true);
  EXPECT_EQ(ErrorOf([&] { files.Rename("C:\\Stage", "C:\\Z"); }), 70);
  EXPECT_FALSE(drive.TakeAway(At("open.wav")));
  drive.Lock(At("open.wav"), false);
  EXPECT_TRUE(drive.TakeAway(At("open.wav")));
}

TEST_F(DeskStageTest, AFaultHitsTheNthCallOnItsPathOnly) {
  files.Write(At("a.dat"), "a");
  drive.FailCall(2, 61, "A.DAT");
  files.Append(At("a.dat"), "b");
  files.Append(At("other.dat"), "b");
  EXPECT_EQ(drive.FaultsPending(), 1u);
  EXPECT_TRUE(files.Exists(At("a.dat")));
  EXPECT_EQ(ErrorOf([&] { files.Append(At("a.dat"), "c"); }), 61);
  EXPECT_EQ(drive.FaultsPending(), 0u);
  EXPECT_EQ(files.Read(At("a.dat")), "ab");
  drive.FailCall(1, 70);
  EXPECT_FALSE(files.WriteProfile(At("p.ini"), "s", "k", "v"));
  EXPECT_FALSE(files.Exists(At("p.ini")));
}

TEST_F(DeskStageTest, ADriveCanBeEmpty) {
  drive.SetDrive('D', DriveKind::kCd, false);
  EXPECT_EQ(files.DriveState("d:"), 68);
  EXPECT_EQ(ErrorOf([&] { files.Read("D:\\x"); }), 71);
  EXPECT_FALSE(files.Exists("D:\\*.*"));
  EXPECT_FALSE(files.IsFolder("D:\\"));
  drive.SetDrive('D', DriveKind::kCd);
  files.Write("D:\\x", "disc");
  EXPECT_EQ(files.Drives(), (Words{"a:", "c:", "d:"}));
}

TEST_F(DeskStageTest, TheJournalTellsOfChangesThatHappened) {
  files.Write(At("a"), "1");
  ErrorOf([&] { files.Write(At("no\\a"), "1"); });
  files.Append(At("a"), "2");
  files.Copy(At("a"), At("b"));
  files.Rename(At("b"), At("c"));
  files.Delete(At("c"));
  drive.Put(At("stage"), "");
  EXPECT_EQ(Journal("file"), (std::vector<Words>{{At("a")}, {At("a")}, {At("b")}, {At("c")}}));
  EXPECT_EQ(Journal("file-deleted"), (std::vector<Words>{{At("c")}}));
}

TEST_F(DeskStageTest, AStrangerCanHoldTheClipboard) {
  desk().clipboard().Put("", "kept");
  desk().clipboard().HoldOpenByStranger(true);
  EXPECT_FALSE(clipboard.Open({}));
  clipboard.Empty();
  desk().clipboard().HoldOpenByStranger(false);
  EXPECT_TRUE(clipboard.Open({}));
  EXPECT_TRUE(desk().clipboard().IsOpen());
  desk().clipboard().ProcessEnded(desk().Current());
  EXPECT_FALSE(desk().clipboard().IsOpen());
  EXPECT_EQ(desk().clipboard().Peek(""), "kept");
  EXPECT_EQ(desk().clipboard().Peek("AOLMAIL"), std::nullopt);
}

// --- Who has what, and what is left of it ------------------------------------------------------

TEST(DeskOwnership, ClipboardSoundAndMachineAreEachProcesssOwn) {
  test::DeskHome home;
  Platform& system = home.platform();
  home.desk.files().Put("C:\\a.wav", WaveFile(1000));
  home.Run([&] {
    EXPECT_TRUE(system.clipboard.Open({}));
    EXPECT_TRUE(system.sound.Play("C:\\a.wav", sound_flag::kAsync));
    EXPECT_EQ(system.system.ProgramFolder(), "C:\\Corvel");
  });
  home.desk.RunAs(home.otherId, [&] {
    EXPECT_FALSE(system.clipboard.Open({}));
    system.clipboard.Close();  // not its own
    EXPECT_TRUE(home.desk.clipboard().IsOpen());
    EXPECT_TRUE(system.sound.Play("C:\\a.wav", sound_flag::kAsync | sound_flag::kNoStop));
    system.sound.Stop();
    EXPECT_EQ(system.system.ProgramFolder(), "C:\\Other");
  });
  EXPECT_TRUE(home.desk.services().IsPlaying());
  home.desk.Kill(home.program);
  EXPECT_FALSE(home.desk.services().IsPlaying());
  EXPECT_FALSE(home.desk.clipboard().IsOpen());
}

TEST(DeskOwnership, WhatAProcessHoldsIsTold) {
  test::DeskHome home;
  home.Run([&] {
    home.platform().clipboard.Open({});
    home.platform().shell.AddTrayIcon(Window{99}, wm::kUser, "tip");
    home.desk.files().Put("C:\\a.wav", WaveFile(1000));
    home.platform().media.Send("open C:\\a.wav type WaveAudio alias a");
  });
  const Window theirs =
      home.other().Make("w", {.className = "W", .caption = {}, .systemClass = {}});
  std::unique_ptr<UpdateLock> lock;
  home.Run([&] { lock = home.platform().windows.LockUpdates(theirs); });
  EXPECT_EQ(home.desk.LeftOpen(home.program),
            (Words{"the clipboard", "a tray icon", "the media device \"a\"",
                   "a lock on the drawing of a window"}));
  home.desk.Kill(home.program);
  EXPECT_TRUE(home.desk.services().TrayIcons().empty());
  EXPECT_EQ(home.desk.windows().LockedForUpdates(), Window{});
  const auto second = home.platform().windows.LockUpdates(theirs);
  lock.reset();
  EXPECT_EQ(home.desk.windows().LockedForUpdates(), theirs) << "the lock of another is left alone";
}

TEST(DeskOwnership, MediaDevicesAreEachProcesssOwn) {
  test::DeskHome home;
  home.desk.files().Put("C:\\a.wav", WaveFile(1000));
  const auto send = [&](ProcessId process, const char* command) {
    std::uint32_t error = 0;
    home.desk.RunAs(process, [&] { error = home.platform().media.Send(command).error; });
    return error;
  };
  for (const ProcessId process : {home.program, home.otherId})
    EXPECT_EQ(send(process, "open C:\\a.wav alias a"), 0u);
  EXPECT_EQ(send(home.program, "close all"), 0u);
  EXPECT_EQ(send(home.program, "status a length"), media_error::kNotOpen);
  EXPECT_EQ(send(home.otherId, "status a length"), 0u);
  EXPECT_EQ(send(home.otherId, "play a"), media_error::kUnsupported);
}

}  // namespace
}  // namespace corvel
