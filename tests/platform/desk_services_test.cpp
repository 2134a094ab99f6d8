// Sound, shell, printer, dialogs, display, chance and the machine, on the desk.
#include "platform/desk/desk_services.h"

#include "platform/desk/desk_windows.h"
#include "tests/platform/services_home.h"

namespace corvel {
namespace {

using Words = std::vector<std::vector<std::string>>;

class ServicesTest : public ServicesHome {
 protected:
  desk::DeskServices& services = desk().services();
};

TEST_F(ServicesTest, ASoundPlaysAsLongAsItsFile) {
  Sound& sound = system().sound;
  desk().files().Put("C:\\one.wav", WaveFile(1500));
  desk().files().Put("C:\\two.wav", WaveFile(1500));
  EXPECT_TRUE(sound.Play("C:\\one.wav", sound_flag::kAsync));
  desk().RunFor(1499);
  EXPECT_FALSE(sound.Play("C:\\two.wav", sound_flag::kAsync | sound_flag::kNoStop));
  EXPECT_EQ(services.Playing(), "C:\\one.wav");
  desk().RunFor(1);
  EXPECT_TRUE(sound.Play("C:\\two.wav", sound_flag::kAsync | sound_flag::kNoStop));
  EXPECT_TRUE(sound.Play("C:\\one.wav", sound_flag::kAsync));
  EXPECT_EQ(services.Playing(), "C:\\one.wav");
  sound.Stop();
  EXPECT_FALSE(services.IsPlaying());
  EXPECT_EQ(Journal("sound"), (Words{{"C:\\one.wav"}, {"C:\\two.wav"}, {"C:\\one.wav"}}));
  EXPECT_EQ(Journal("sound-stopped"), (Words{{}}));
}

TEST_F(ServicesTest, AMissingSoundCountsAsStartedUnlessItIsWaitedFor) {
  EXPECT_TRUE(system().sound.Play("C:\\none.wav", sound_flag::kAsync));
  EXPECT_FALSE(services.IsPlaying());
  EXPECT_FALSE(system().sound.Play("C:\\none.wav", 0));
  desk().files().Put("C:\\text.wav", "no wave at all");
  EXPECT_TRUE(system().sound.Play("C:\\text.wav", sound_flag::kAsync));
  EXPECT_FALSE(services.IsPlaying());
}

TEST_F(ServicesTest, TheShellTellsWhatItWasAskedFor) {
  Shell& shell = system().shell;
  EXPECT_TRUE(shell.Open({}, "http://example.com/"));
  desk().files().Put("C:\\old.wav", "x", file_attribute::kReadOnly);
  EXPECT_TRUE(shell.Recycle({}, "C:\\OLD.wav"));
  EXPECT_FALSE(shell.Recycle({}, "C:\\old.wav"));
  EXPECT_FALSE(shell.Recycle({}, "C:\\WINDOWS"));
  EXPECT_FALSE(desk().files().Peek("C:\\old.wav"));
  EXPECT_FALSE(shell.Help("C:\\corvel32.hlp", "Wavs"));
  desk().files().Put("C:\\corvel32.hlp", "");
  EXPECT_TRUE(shell.Help("C:\\corvel32.hlp", "Wavs"));
  EXPECT_EQ(Journal("opened"), (Words{{"http://example.com/"}}));
  EXPECT_EQ(Journal("recycled"), (Words{{"C:\\OLD.wav"}}));
  EXPECT_EQ(Journal("help"), (Words{{"C:\\corvel32.hlp", "Wavs"}}));
}

class MessageLog : public WindowProcedure {
 public:
  explicit MessageLog(OwnWindows& windows) : windows_(windows) {}
  MessageResult OnMessage(Window window, const Message& message) override {
    if (message.id >= wm::kUser) seen.push_back(message.lParam);
    return windows_.Default(window, message);
  }
  std::vector<LParam> seen;

 private:
  OwnWindows& windows_;
};

TEST_F(ServicesTest, ATrayIconSendsItsMouseMessages) {
  MessageLog log(system().ownWindows);
  NewWindow tray;
  tray.className = "Tray";
  const Window owner = system().ownWindows.Create(tray, log);
  Shell& shell = system().shell;
  EXPECT_FALSE(services.TrayMouse(wm::kLButtonDown));
  EXPECT_TRUE(shell.AddTrayIcon(owner, wm::kUser + 5, "Corvel 32"));
  EXPECT_FALSE(shell.AddTrayIcon(owner, wm::kUser + 5, "again"));
  EXPECT_EQ(services.TrayIcons(), std::vector<std::string>{"Corvel 32"});
  EXPECT_TRUE(services.TrayMouse(wm::kRButtonDown));
  desk().RunDue();
  EXPECT_EQ(log.seen, std::vector<LParam>{wm::kRButtonDown});
  system().ownWindows.Destroy(owner);
  EXPECT_FALSE(services.TrayMouse(wm::kRButtonDown));
  EXPECT_TRUE(services.TrayIcons().empty());
  services.SetTaskbar(false);
  EXPECT_FALSE(shell.AddTrayIcon(owner, wm::kUser + 5, "Corvel 32"));
}

TEST_F(ServicesTest, ThePrinterPrintsIntoTheJournal) {
  {
    const auto job = system().printer.Start("Wav List");
    ASSERT_TRUE(job);
    job->Line("boing", {.name = "Courier New", .points = 10});
  }
  EXPECT_EQ(Journal("print"), (Words{{"Wav List"}}));
  EXPECT_EQ(Journal("print-line"), (Words{{"boing", "Courier New", "10"}}));
  EXPECT_TRUE(system().printer.HasFont("courier new"));
  services.SetPrinter(true, false);
  EXPECT_FALSE(system().printer.HasFont("Courier New"));
  services.SetPrinter(false, true);
  EXPECT_EQ(system().printer.Start("Wav List"), nullptr);
}

// A user who answers whatever comes with what the test has set.
class AnsweringUser : public desk::Agent {
 public:
  AnsweringUser(desk::Desk& desk, std::function<void(desk::Prompt&)> answer)
      : desk_(desk), answer_(std::move(answer)) {
    desk_.SetAgent(this);
  }
  ~AnsweringUser() override { desk_.SetAgent(nullptr); }
  bool Act() override {
    if (desk_.Prompts().empty() || desk_.Prompts().back()->answered) return false;
    answer_(*desk_.Prompts().back());
    return desk_.Prompts().back()->answered = true;
  }
  std::optional<std::int64_t> NextActAt() override { return std::nullopt; }

 private:
  desk::Desk& desk_;
  std::function<void(desk::Prompt&)> answer_;
};

TEST_F(ServicesTest, DialogsWaitForTheirAnswer) {
  std::string asked;
  const AnsweringUser user(desk(), [&](desk::Prompt& prompt) {
    asked = prompt.text;
    prompt.path = std::string(200, 'p');
    prompt.color = 255;
    prompt.button = prompt.style == 4 ? 6 : 1;
  });
  CommonDialogs& dialogs = system().dialogs;
  EXPECT_EQ(dialogs.OpenFile({}, "WAV Files", "*.wav"), std::string(127, 'p'));
  EXPECT_EQ(asked, "WAV Files");
  EXPECT_EQ(dialogs.SaveFile({}, "WAV Files", "*.wav", "path"), std::string(127, 'p'));
  std::array<Color, 16> custom{};
  EXPECT_EQ(dialogs.ChooseColor({}, 0, custom), 255);
  EXPECT_EQ(dialogs.PlainMessage({}, "Really?", "Corvel 32", 4), 6);
  EXPECT_EQ(asked, "Really?");
  EXPECT_TRUE(desk().Prompts().empty());
}

TEST_F(ServicesTest, DialogsThatAreCancelledGiveNothing) {
  const AnsweringUser user(desk(), [](desk::Prompt&) {});
  std::array<Color, 16> custom{};
  EXPECT_EQ(system().dialogs.OpenFile({}, "", ""), std::nullopt);
  EXPECT_EQ(system().dialogs.ChooseColor({}, 0, custom), std::nullopt);
}

TEST_F(ServicesTest, TextExtentsAddUp) {
  Display& display = system().display;
  EXPECT_EQ(display.TextExtent("", {}), (Size{0, 13}));
  const int a = display.TextExtent("a", {}).width, w = display.TextExtent("W", {}).width;
  EXPECT_LT(display.TextExtent("i", {}).width, a);
  EXPECT_LT(a, w);
  EXPECT_EQ(display.TextExtent("aWa", {}).width, 2 * a + w);
  EXPECT_EQ(display.TextExtent("aWa", {.bold = true}).width, 2 * a + w + 3);
  services.SetDisplay(8, 640, 480);
  EXPECT_EQ(display.ScreenSize(), (Size{640, 480}));
  EXPECT_EQ(display.BitsPerPixel(), 8);
}

TEST_F(ServicesTest, DrawsComeFromTheTestThenFromTheSeed) {
  Random& random = system().random;
  services.SetSeed(42);
  const double first = random.Draw(), second = random.Draw();
  EXPECT_NE(first, second);
  services.SetSeed(42);
  services.NextDraws({0.25, 0.75});
  const double expected[] = {0.25, 0.75, first, second};
  for (const double draw : expected) EXPECT_EQ(random.Draw(), draw);
  double sum = 0;
  for (int i = 0; i < 10000; ++i) {
    const double draw = random.Draw();
    ASSERT_TRUE(draw >= 0 && draw < 1);
    sum += draw;
  }
  EXPECT_NEAR(sum / 10000, 0.5, 0.02);
}

TEST_F(ServicesTest, TheClientsLibraryAnswersWithinItsBuffers) {
  ClientLibrary& library = system().clientLibrary;
  EXPECT_EQ(library.GetVersion("C:\\AOL"), "");
  EXPECT_EQ(library.IsOnline(), 0);
  EXPECT_EQ(library.GetScreenNames("C:\\AOL\\"), std::vector<std::string>(6));
  services.answers.version = [](std::string_view folder) { return "4.0 " + std::string(folder); };
  services.answers.isOnline = [] { return 1; };
  EXPECT_EQ(library.GetVersion("C:\\AOL"), "4.0");
  EXPECT_EQ(library.IsOnline(), 1);
}

TEST_F(ServicesTest, TheMachineIsOneOfItsTime) {
  SystemInfo& info = system().system;
  EXPECT_EQ(info.WindowsPlatform(), 1);
  EXPECT_EQ(info.WindowsFolder(), "C:\\WINDOWS");
  EXPECT_EQ(info.SystemFolder(), "C:\\WINDOWS\\SYSTEM");
  services.SetWindowsPlatform(2);
  EXPECT_EQ(info.WindowsPlatform(), 2);
}

}  // namespace
}  // namespace corvel
