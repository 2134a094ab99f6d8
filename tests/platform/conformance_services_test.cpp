// The small services: sound, shell, printer, the system's dialogs, screen, clock, chance, machine.
#include "base/text.h"
#include "tests/platform/home.h"

#include <array>
#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class Services : public testing::Test {
 protected:
  std::string At(std::string_view name) { return kFolder + "\\" + std::string(name); }
  std::string Put(std::string_view name, std::string_view bytes) {
    platform.files.Write(At(name), bytes);
    return At(name);
  }
  Window OurWindow(WindowProcedure& procedure) {
    return platform.ownWindows.Create(
        {.className = "Ours", .caption = "ours", .place = {0, 0, 100, 100}, .systemClass = {}},
        procedure);
  }

  std::unique_ptr<Home> home = MakeHome();
  Platform& platform = home->platform();
  const std::string kFolder = home->Folder();
};

TEST_F(Services, ASoundPlaysUntilItsEndAStopOrAnother) {
  constexpr auto kPolite = sound_flag::kAsync | sound_flag::kNoStop;
  const std::string one = Put("one.wav", WaveFile(1500)), two = Put("two.wav", WaveFile(1500));
  Sound& sound = platform.sound;
  home->Run([&] {
    EXPECT_TRUE(sound.Play(one, sound_flag::kAsync));
    EXPECT_FALSE(sound.Play(two, kPolite));
    EXPECT_TRUE(sound.Play(two, sound_flag::kAsync));
    EXPECT_FALSE(sound.Play(one, kPolite));
    sound.Stop();
    EXPECT_TRUE(sound.Play(one, kPolite));
    home->RunFor(2000);
    EXPECT_TRUE(sound.Play(two, kPolite));
    sound.Stop();
  });
}

TEST_F(Services, AMissingSoundCountsAsStartedUnlessItIsWaitedFor) {
  EXPECT_TRUE(platform.sound.Play(At("none.wav"), sound_flag::kAsync));
  EXPECT_FALSE(platform.sound.Play(At("none.wav"), 0));
  EXPECT_FALSE(platform.sound.Play(Put("text.wav", "no wave at all"), 0));
  EXPECT_TRUE(platform.sound.Play(Put("short.wav", WaveFile(20)), 0));
}

TEST_F(Services, TheProxyStopsTheSoundOfTheClientWhileItIsAttached) {
  const std::string wave = Put("long.wav", WaveFile(60'000));
  OtherProcess& client = home->other();
  const Window frame =
      client.Make("frame", {.className = "AOL Frame25", .caption = {}, .systemClass = {}});
  ClientProxy& proxy = platform.proxy;
  home->Run([&] {
    EXPECT_TRUE(client.StartSound(wave));
    EXPECT_FALSE(proxy.Attach({}));
    proxy.StopSound();
    EXPECT_FALSE(client.StartSound(wave)) << "not attached";
    EXPECT_TRUE(proxy.Attach(frame));
    proxy.StopSound();
    EXPECT_TRUE(client.StartSound(wave));
    proxy.Detach();
    proxy.StopSound();
    EXPECT_FALSE(client.StartSound(wave)) << "detached";
  });
}

TEST_F(Services, TheShellOpensAndRecyclesWhatIsThere) {
  Shell& shell = platform.shell;
  home->Run([&] {
    EXPECT_TRUE(shell.Open({}, home->ShortLivedProgram()));
    EXPECT_FALSE(shell.Open({}, At("none.exe")));
    const std::string old = Put("old.wav", "x");
    platform.files.SetAttributes(old, file_attribute::kReadOnly);
    EXPECT_TRUE(shell.Recycle({}, At("OLD.wav")));
    EXPECT_FALSE(platform.files.Exists(old));
    EXPECT_FALSE(shell.Recycle({}, old));
    EXPECT_FALSE(shell.Recycle({}, kFolder));
    EXPECT_FALSE(shell.Help(At("none.hlp"), "Wavs"));
    EXPECT_FALSE(shell.Help(kFolder, "Wavs"));
  });
  EXPECT_TRUE(platform.files.IsFolder(kFolder));
}

TEST_F(Services, AWindowHasOneIconInTheTrayIfThereIsATaskbar) {
  Shell& shell = platform.shell;
  Counting procedure(platform.ownWindows);
  home->Run([&] {
    const Window owner = OurWindow(procedure);
    for (int i = 0; i < 2; ++i) {
      EXPECT_FALSE(shell.ChangeTrayIcon(owner, TrayPicture::kImsOff));
      EXPECT_EQ(shell.AddTrayIcon(owner, wm::kUser + 5, "Corvel 32"), home->HasTaskbar());
      EXPECT_FALSE(shell.AddTrayIcon(owner, wm::kUser + 5, "again"));
      for (const TrayPicture picture : {TrayPicture::kImsOff, TrayPicture::kNormal})
        EXPECT_EQ(shell.ChangeTrayIcon(owner, picture), home->HasTaskbar());
      shell.RemoveTrayIcon(owner);
      shell.RemoveTrayIcon(owner);
    }
    platform.ownWindows.Destroy(owner);
  });
}

TEST_F(Services, APrinterPrintsLines) {
  Printer& printer = platform.printer;
  home->SetPrinter(false);
  EXPECT_EQ(printer.Start("Wav List"), nullptr);
  EXPECT_FALSE(printer.HasFont("Courier New"));
  home->SetPrinter(true);
  EXPECT_TRUE(printer.HasFont("Courier New"));
  EXPECT_FALSE(printer.HasFont("No Such Font"));
  {
    const auto job = printer.Start("Wav List");
    ASSERT_TRUE(job);
    job->Line("boing", {.name = "Courier New", .points = 10});
    job->Line("Moo", {.name = "Times New Roman", .bold = true, .centered = true});
  }
  EXPECT_EQ(home->Printed(), (Log{"boing", "Moo"}));
  home->SetPrinter(false);
}

TEST_F(Services, DialogsForPathsGiveWhatIsTyped) {
  CommonDialogs& dialogs = platform.dialogs;
  const std::string wave = Put("a.wav", "x"), folder = At(std::string(100, 'f'));
  platform.files.MakeFolder(folder);
  // A buffer of 128 holds 127 characters.
  const std::string fits = folder + "\\" + std::string(126 - folder.size(), 'n');
  home->Run([&] {
    home->user().WillAnswer({.button = 1, .path = wave});
    EXPECT_EQ(dialogs.OpenFile({}, "Waves", "*.wav"), wave);
    home->user().WillAnswer({.button = 2, .path = wave});
    EXPECT_EQ(dialogs.OpenFile({}, "Waves", "*.wav"), std::nullopt);
    for (const bool tooLong : {false, true}) {
      home->user().WillAnswer({.button = 1, .path = fits + (tooLong ? "n" : "")});
      EXPECT_EQ(dialogs.SaveFile({}, "All", "*.*", "path"),
                tooLong ? std::nullopt : std::optional(fits));
    }
  });
}

TEST_F(Services, ADialogForColorsGivesTheChosenOne) {
  constexpr Color kStart = 0x00102030, kTyped = 0x00405060;
  std::array<Color, 16> custom{};
  custom[3] = 0x00ABCDEF;
  const auto before = custom;
  home->Run([&] {
    home->user().WillAnswer({.button = 1, .color = kTyped});
    EXPECT_EQ(platform.dialogs.ChooseColor({}, kStart, custom), kTyped);
    home->user().WillAnswer({.button = 2, .color = kTyped});
    EXPECT_EQ(platform.dialogs.ChooseColor({}, kStart, custom), std::nullopt);
  });
  EXPECT_EQ(custom, before);
}

TEST_F(Services, APlainMessageGivesTheButtonAndEventsGoOnMeanwhile) {
  constexpr int kYesNo = 4, kNo = 7;
  Counting procedure(platform.ownWindows);
  home->Run([&] {
    const Window owner = OurWindow(procedure);
    platform.events.StartTimer(owner, 1, 10);
    home->user().WillAnswer({.button = kNo, .before = [&] { home->RunFor(50); }});
    EXPECT_EQ(platform.dialogs.PlainMessage(owner, "Really?", "Corvel 32", kYesNo), kNo);
    platform.ownWindows.Destroy(owner);
  });
  EXPECT_GE(procedure.came[wm::kTimer], 1);
}

TEST_F(Services, TextExtentsAddUp) {
  Display& display = platform.display;
  EXPECT_EQ(display.TwipsPerPixel(), 15);
  EXPECT_GE(display.BitsPerPixel(), 8);
  EXPECT_GE(display.ScreenSize().width, 640);
  EXPECT_GE(display.ScreenSize().height, 480);
  const Size none = display.TextExtent("", {}), a = display.TextExtent("a", {}),
             w = display.TextExtent("W", {});
  EXPECT_EQ(none, (Size{0, a.height}));
  EXPECT_LT(display.TextExtent("i", {}).width, a.width);
  EXPECT_LT(a.width, w.width);
  EXPECT_EQ(display.TextExtent("aWa", {}), (Size{2 * a.width + w.width, a.height}));
  EXPECT_GT(display.TextExtent("aWa", {.bold = true}).width, 2 * a.width + w.width);
  EXPECT_EQ(display.TextExtent("aWa", {.bold = true}).height, a.height);
}

TEST_F(Services, TheClocksGoOnTogether) {
  const std::uint32_t tick = platform.clock.TickCount();
  const std::int64_t wall = MillisecondsFromCivil(platform.clock.Now());
  home->RunFor(500);
  const auto ticks = static_cast<int>(platform.clock.TickCount() - tick);
  EXPECT_GE(ticks, 500);
  EXPECT_LE(ticks, 2000);
  EXPECT_NEAR(static_cast<double>(MillisecondsFromCivil(platform.clock.Now()) - wall), ticks, 300);
  EXPECT_EQ(CutAtNul(platform.clock.TimeZoneName()), platform.clock.TimeZoneName());
  EXPECT_NE(platform.clock.TimeZoneName(), "");
}

// The machines that this runs on are set to the US; only how many digits a year has is their own.
TEST_F(Services, DatesAndTimesAreTextAsTheUserHasThem) {
  const CivilTime time{1999, 11, 21, 20, 15, 0, 0};
  EXPECT_EQ(platform.clock.DateText(time, DateForm::kLong), "Sunday, November 21, 1999");
  const std::string shortDate = platform.clock.DateText(time, DateForm::kShort);
  EXPECT_TRUE(shortDate == "11/21/99" || shortDate == "11/21/1999") << shortDate;
  EXPECT_EQ(platform.clock.TimeText(time), "8:15:00 PM");
}

TEST_F(Services, APumpComesBackInTime) {
  home->Run([&] {
    const std::uint32_t begin = platform.clock.TickCount(), end = begin + 200;
    while (static_cast<std::int32_t>(platform.clock.TickCount() - end) < 0)
      platform.events.Pump({"the test", WaitFor::kTime, end});
    EXPECT_LE(platform.clock.TickCount() - begin, 1000u);
  });
}

TEST_F(Services, DrawsFillTheRangeAndDifferAfterReseeding) {
  const auto drawInANewHome = [this](bool reseed) {
    home.reset();
    home = MakeHome();
    home->RunFor(20);
    Random& random = home->platform().random;
    if (reseed) random.Reseed();
    std::vector<double> draws(1000);
    for (double& draw : draws) draw = random.Draw();
    return draws;
  };
  const auto draws = drawInANewHome(false);
  double sum = 0;
  for (const double draw : draws) {
    ASSERT_TRUE(draw >= 0 && draw < 1);
    sum += draw;
  }
  EXPECT_NEAR(sum / 1000, 0.5, 0.05);
  EXPECT_NE(drawInANewHome(true), draws) << "also where a process begins with the same ones";
}

TEST_F(Services, TheMachineTellsItsFolders) {
  home->Run([&] {
    SystemInfo& system = platform.system;
    for (const std::string& folder :
         {system.ProgramFolder(), system.WindowsFolder(), system.SystemFolder()}) {
      EXPECT_TRUE(platform.files.IsFolder(folder)) << folder;
      EXPECT_FALSE(folder.ends_with('\\')) << folder;
    }
    EXPECT_EQ(Upper(system.WindowsFolder()), "C:\\WINDOWS");
    EXPECT_EQ(Upper(FolderOf(system.SystemFolder())), "C:\\WINDOWS");
    EXPECT_EQ(system.CommandLine(), home->CommandLine());
    EXPECT_TRUE(system.WindowsPlatform() == 1 || system.WindowsPlatform() == 2);
  });
}

TEST_F(Services, WithoutAClientItsLibraryKnowsNothing) {
  ClientLibrary& clientLibrary = platform.clientLibrary;
  EXPECT_EQ(clientLibrary.GetVersion("C:\\AOL"), "");
  EXPECT_EQ(clientLibrary.IsOnline(), 0);
  EXPECT_EQ(clientLibrary.GetScreenNames("C:\\AOL\\"), std::vector<std::string>(6));
}

}  // namespace
}  // namespace corvel::test
