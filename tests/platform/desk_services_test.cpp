// What the desk tells of sound, shell, printer and dialogs, and how a test sets them.
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

TEST_F(ServicesTest, SoundsAreTold) {
  Sound& sound = system().sound;
  desk().files().Put("C:\\one.wav", WaveFile(1500));
  sound.Play("C:\\one.wav", sound_flag::kAsync);
  desk().RunFor(1499);
  EXPECT_EQ(services.Playing(), "C:\\one.wav");
  desk().RunFor(1);
  EXPECT_FALSE(services.IsPlaying());
  sound.Play("C:\\none.wav", sound_flag::kAsync);
  EXPECT_FALSE(services.IsPlaying());
  sound.Stop();
  EXPECT_EQ(Journal("sound"), (Words{{"C:\\one.wav"}, {"C:\\none.wav"}}));
  EXPECT_EQ(Journal("sound-stopped"), (Words{{}}));
}

TEST_F(ServicesTest, TheShellTellsWhatItWasAskedFor) {
  Shell& shell = system().shell;
  EXPECT_TRUE(shell.Open({}, "http://example.com/"));
  desk().files().Put("C:\\old.wav", "x");
  EXPECT_TRUE(shell.Recycle({}, "C:\\OLD.wav"));
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
  shell.AddTrayIcon(owner, wm::kUser + 5, "Corvel 32");
  EXPECT_EQ(services.TrayIcons(), std::vector<std::string>{"Corvel 32"});
  EXPECT_EQ(services.ShownInTray(), TrayPicture::kNormal);
  shell.ChangeTrayIcon(owner, TrayPicture::kImsOff);
  EXPECT_EQ(services.ShownInTray(), TrayPicture::kImsOff);
  EXPECT_TRUE(services.TrayMouse(wm::kRButtonDown));
  desk().RunDue();
  EXPECT_EQ(log.seen, std::vector<LParam>{wm::kRButtonDown});
  system().ownWindows.Destroy(owner);
  EXPECT_FALSE(services.TrayMouse(wm::kRButtonDown));
  EXPECT_TRUE(services.TrayIcons().empty());
  services.SetTaskbar(false);
  EXPECT_FALSE(shell.AddTrayIcon(owner, wm::kUser + 5, "Corvel 32"));
}

TEST_F(ServicesTest, TheWebAnswersByPathAfterItsTime) {
  services.webTable().Set("/ver", {.text = "9.1.0"});
  services.webTable().Set("/down", {.text = "not told", .error = 12029, .afterMs = 1000});
  const auto ask = [&](const char* address) {
    const std::int64_t begin = desk().NowMs();
    const auto request = system().web.Begin("agent", address);
    while (!request->IsOver()) desk().Round(begin + 100'000);
    return std::to_string(desk().NowMs() - begin) + ": " + std::to_string(request->Error()) +
           request->Text();
  };
  EXPECT_EQ(ask("http://www.example.com/ver"), "200: 09.1.0");
  EXPECT_EQ(ask("HTTP://localhost:80/ver?now"), "200: 09.1.0");
  EXPECT_EQ(ask("http://a/down"), "1000: 12029");
  EXPECT_EQ(ask("http://a"), "200: 12007");
  services.webTable().Set("/silent", {.text = "too late", .afterMs = 3'600'000});
  EXPECT_EQ(ask("http://a/silent"), "30000: 12002");
  EXPECT_EQ(ask(""), "200: 12006");
  services.webTable().Set("/", {.text = "home"});
  EXPECT_EQ(ask("http://a"), "200: 0home");
  EXPECT_EQ(Journal("web").size(), 7u);
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
}

TEST_F(ServicesTest, ADialogIsAPromptUntilItIsAnswered) {
  std::string asked;
  desk().After(0, 100, [&] {
    ASSERT_EQ(desk().Prompts().size(), 1u);
    asked = desk().Prompts()[0]->text;
    desk().Prompts()[0]->answered = true;
  });
  EXPECT_EQ(system().dialogs.OpenFile({}, "WAV Files", "*.wav"), std::nullopt);
  EXPECT_EQ(asked, "WAV Files");
  EXPECT_TRUE(desk().Prompts().empty());
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
}

TEST_F(ServicesTest, TheClientsLibraryAnswersWithinItsBuffers) {
  ClientLibrary& library = system().clientLibrary;
  services.answers.version = [](std::string_view folder) { return "4.0 " + std::string(folder); };
  services.answers.isOnline = [] { return 1; };
  EXPECT_EQ(library.GetVersion("C:\\AOL"), "4.0");
  EXPECT_EQ(library.IsOnline(), 1);
}

TEST_F(ServicesTest, TheMachineIsOneOfItsTimeUnlessItIsSetOtherwise) {
  EXPECT_EQ(system().system.WindowsPlatform(), 1);
  services.SetWindowsPlatform(2);
  EXPECT_EQ(system().system.WindowsPlatform(), 2);
  services.SetDisplay(8, 640, 480);
  EXPECT_EQ(system().display.ScreenSize(), (Size{640, 480}));
  EXPECT_EQ(system().display.BitsPerPixel(), 8);
}

}  // namespace
}  // namespace corvel
