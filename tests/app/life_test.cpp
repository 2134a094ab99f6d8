// The life of the whole program beside the practice client: starts that are refused, and clients
// that go at any moment.
#include "core/settings_store.h"
#include "platform/desk/desk_peers.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tools/desk/desk_stage.h"

#include <gtest/gtest.h>

namespace corvel {
namespace {

// The user takes the first button of every message and goes on over every error, and remembers what
// they said.
class PatientUser : public desk::Agent {
 public:
  explicit PatientUser(desk::Desk& desk) : desk_(desk) { desk_.SetAgent(this); }
  ~PatientUser() override { desk_.SetAgent(nullptr); }

  bool Act() override {
    const bool acts = Answer("frmMsg", "Picture2", "Command1", 0);
    if (acts) icons.push_back(Control("frmMsg", "Picture1", -1)->state->picture);
    return acts || Answer("frmReport", "lblPlace", "cmdGoOn", -1);
  }
  std::optional<std::int64_t> NextActAt() override { return std::nullopt; }

  std::vector<std::string> messages;
  std::vector<Picture> icons;
  std::function<void()> insteadOfAnswering;

 private:
  std::optional<desk::DeskPeers::ControlView> Control(const char* form, const char* name,
                                                      int index) {
    return desk_.peers().FindControl(desk_.peers().FindForm(form)->window, name, index);
  }
  bool Answer(const char* name, const char* text, const char* button, int index) {
    const auto form = desk_.peers().FindForm(name);
    if (!form || !form->state->visible || form->window == pressed_) return false;
    pressed_ = form->window;
    messages.push_back(Control(name, text, -1)->state->text);
    if (insteadOfAnswering)
      insteadOfAnswering();
    else
      hand_.Click(Control(name, button, index)->window);
    return true;
  }

  desk::Desk& desk_;
  tools::DeskTouch touch_{desk_};
  tools::Hand hand_{touch_};
  Window pressed_;
};

struct IdleBody : desk::ProcessBody {
  void Start(const std::string&) override {}
  bool Finished() override { return false; }
};

struct Life {
  explicit Life(const std::string& version = "4.0") : user(stage.desk()) {
    stage.setup.version = version;
  }
  void PutClient() {
    stage.PutClient();
    stage.desk().RunFor(stage.StandMs());
  }
  void Start() { program = stage.StartProgram(""); }
  bool Runs() { return stage.desk().IsRunning(program); }
  bool ClientIsEnabled() {
    WindowSystem& windows = stage.desk().windows();
    return windows.IsEnabled(windows.Find("AOL Frame25", std::nullopt));
  }

  tools::DeskStage stage{1};
  PatientUser user;
  ProcessId program = 0;
};

TEST(Start, EveryRuntimeFileIsNeededAndTheFirstMissingOneIsNamed) {
  const char* const files[] = {"dwqrvspy.dll", "dwspy5.dll",  "qrvproxy.dll", "qrverrhd.dll",
                               "qrvbtns.ocx",  "qrvbar.ocx",  "qrvspy32.ocx", "dwsbc36.ocx",
                               "mscomctl.ocx", "dwspy36.dll", "launch32.dll", "inetwh32.dll"};
  for (const std::string file : files) {
    Life life;
    life.PutClient();
    life.stage.RemoveRuntimeFile(file);
    life.stage.RemoveRuntimeFile("inetwh32.dll");
    life.Start();
    life.stage.desk().RunFor(5000);
    ASSERT_EQ(life.user.messages.size(), 1u) << file;
    EXPECT_NE(life.user.messages[0].find("~B" + file + "~B is missing"), std::string::npos);
    EXPECT_FALSE(life.Runs());
  }
}

TEST(Start, ASiblingThatRunsIsNamed) {
  for (const std::string name : {"Shadewright", "Tellbox"}) {
    Life life;
    life.PutClient();
    const std::string path = "C:\\Program Files\\QRV\\" + name + ".EXE";
    life.stage.desk().Install(path, [](desk::Desk&) { return std::make_unique<IdleBody>(); });
    life.stage.desk().Spawn(path, "");
    life.Start();
    life.stage.desk().RunFor(5000);
    EXPECT_FALSE(life.Runs());
    EXPECT_EQ(life.user.messages,
              std::vector<std::string>{
                  "~B~CRCorvel 32 has detected that " + name +
                  " is currently running!~B~CN~N ~NCorvel 32 is ~Bnot compatible with " + name +
                  "~B.  Running both together can cause errors.~N ~NIt should also be noted that "
                  "Corvel 32 already has every feature of the " +
                  name + " program!  :)~N ~NCorvel will now end."});
  }
}

TEST(Start, A16BitClientIsRefusedAndKeepsItsInput) {
  Life life;
  life.PutClient();
  life.stage.desk().files().Remove("C:\\AOL\\iwengx32.dll");
  life.Start();
  life.stage.desk().RunFor(5000);
  EXPECT_FALSE(life.Runs());
  EXPECT_EQ(life.user.messages,
            std::vector<std::string>{
                "~CRA 16 bit version of AOL is currently running!~CN~N ~NCorvel 32 is not "
                "compatible with the 16 bit versions of AOL."});
  EXPECT_TRUE(life.ClientIsEnabled());
}

TEST(Start, AClientThatIsJustComingUpIsWaitedFor) {
  Life life;
  life.PutClient();
  desk::DeskWindows& windows = life.stage.desk().windows();
  const Window mdi = life.stage.Client()->Mdi(), frame = windows.Parent(mdi);
  windows.SetParent(mdi, {});  // it has a frame, and nothing stands in it yet
  life.stage.desk().After(0, 2000, [&] { windows.SetParent(mdi, frame); });
  life.Start();
  life.stage.desk().RunFor(6000);
  ASSERT_EQ(life.stage.Client()->Do({"room", "The Lobby", "Ann"}).error, "");
  life.stage.desk().RunFor(1000);
  EXPECT_EQ(life.stage.HookCount(), 5);
}

TEST(Start, AFolderThatCannotBeMadeStopsNothing) {
  Life life;
  life.PutClient();
  life.stage.desk().files().Put("C:\\Corvel\\outgoing", "a file where a folder should be");
  life.Start();
  life.stage.desk().RunFor(5000);
  EXPECT_TRUE(life.Runs());
  ASSERT_EQ(life.user.messages.size(), 1u);
  EXPECT_NE(life.user.messages[0].find("modMain, IntegrityCheck, line "), std::string::npos);
  EXPECT_TRUE(life.stage.desk().files().IsFolder("C:\\Corvel\\styles"));
  EXPECT_TRUE(life.stage.desk().files().IsFolder("C:\\Corvel\\im logs\\11-21-99")) << "today's";
}

TEST(Room, ThatRefusesFadedTextIsAWarning) {
  Life life;
  SettingsStore(life.stage.registry()).WriteKey("Fader", "On", "True");
  life.PutClient();
  life.Start();
  life.stage.desk().RunFor(3000);
  using Words = std::vector<std::string>;
  for (const Words& words : {Words{"room", "The Lobby", "Ann"}, Words{"refuse-next-line"},
                             Words{"type", "Hello"}, Words{"key", "enter"}}) {
    ASSERT_EQ(life.stage.Client()->Do(words).error, "") << words.front();
    life.stage.desk().RunFor(1000);
  }
  EXPECT_EQ(life.user.messages.size(), 1u);
  EXPECT_EQ(life.user.icons, std::vector<Picture>{Picture::kExclamation});
}

TEST(Life, AClientThatVanishesAtAnyMomentTakesTheProgramWithIt) {
  for (const char* version : {"3.0", "4.0", "5.0", "4.5"}) {
    for (const bool signedOn : {true, false}) {
      for (std::int64_t at = 0; at < 2500; at += 99) {
        SCOPED_TRACE(std::string(version) + (signedOn ? " on " : " off ") + std::to_string(at));
        Life life(version);
        if (!signedOn) life.stage.setup.signedOnAs.clear();
        life.PutClient();
        life.Start();
        // Not behind a RunFor, which comes back when the whole start has.
        life.stage.desk().After(0, at, [&] { life.stage.CrashClient(); });
        // One that came too late to see the client asks for its folder, and waits for that.
        bool asks = false;
        life.stage.desk().After(0, 30'000, [&] {
          asks = life.stage.desk().peers().FindForm("frmCMDialog").has_value();
          if (asks) life.stage.desk().Kill(life.program);
        });
        life.stage.desk().RunFor(31'000);
        ASSERT_FALSE(life.Runs());
        if (!asks) {
          ASSERT_EQ(life.stage.desk().LeftOpen(0), std::vector<std::string>{});
        }
      }
    }
  }
}

TEST(Life, AClientThatIsClosedAtAnyMomentClosesBehindTheProgram) {
  for (std::int64_t at = 1200; at < 3000; at += 97) {
    SCOPED_TRACE(at);
    Life life;
    life.PutClient();
    life.Start();
    life.stage.desk().After(0, at, [&] {
      WindowSystem& windows = life.stage.desk().windows();
      windows.Post(windows.Find("AOL Frame25", std::nullopt), wm::kClose, 0, 0);
    });
    life.stage.desk().RunFor(33'000);
    ASSERT_FALSE(life.Runs());
    ASSERT_EQ(life.stage.ClientProcess(), 0u);
    ASSERT_EQ(life.stage.desk().LeftOpen(0), std::vector<std::string>{});
  }
}

// Longer than anybody waits for it, so that whatever is asked of it just then fails.
TEST(Life, AClientThatHangsAtAnyMomentIsTakenUpAgain) {
  for (const char* version : {"3.0", "4.0", "5.0"}) {
    for (std::int64_t at = 10; at < 2500; at += 153) {
      SCOPED_TRACE(std::string(version) + " " + std::to_string(at));
      Life life(version);
      life.stage.setup.locale = practice::Locale::kUk;
      life.PutClient();
      life.Start();
      ASSERT_EQ(life.stage.Client()->Do({"room", "The Lobby", "Ann"}).error, "");
      life.stage.HangClient({.afterMs = at, .forMs = 8500});
      life.stage.desk().RunFor(17'000);
      ASSERT_TRUE(life.Runs() && life.stage.desk().peers().FindForm("frmCV7"));
      ASSERT_EQ(life.stage.HookCount(), 5);
      ASSERT_TRUE(life.ClientIsEnabled());
      ASSERT_EQ(life.user.messages, std::vector<std::string>{});
    }
  }
}

// Answers what tells that it is a room, and hangs before it can be hooked.
struct HangsBehindItsAnswer : HookHandler {
  explicit HangsBehindItsAnswer(tools::DeskStage& known) : stage(known) {}
  void OnHookedMessage(HookedMessage&) override {
    if (hangs++ == 0) stage.HangClient({.forMs = 7150});
  }
  tools::DeskStage& stage;
  int hangs = 0;
};

TEST(Life, ARoomWhoseHooksWereGivenUpIsHookedLater) {
  Life life;
  life.PutClient();
  life.Start();
  life.stage.desk().RunFor(3000);
  ASSERT_EQ(life.stage.Client()->Do({"room", "The Lobby", "Ann"}).error, "");
  life.stage.desk().RunFor(60);  // it stands, and nobody has looked for it yet
  HangsBehindItsAnswer handler(life.stage);
  desk::DeskWindows& windows = life.stage.desk().windows();
  HookId hook = 0;
  windows.EnumDescendants(life.stage.Client()->Mdi(), [&](Window window) {
    if (windows.ClassOf(window) != "RICHCNTL") return true;
    hook = life.stage.desk().platform().hooks.Attach(window, {{wm::kGetText}}, handler);
    return hook == 0;
  });
  life.stage.desk().RunFor(20'000);
  EXPECT_GT(handler.hangs, 1);
  life.stage.desk().platform().hooks.Detach(hook);
  EXPECT_EQ(life.stage.HookCount(), 5);
}

TEST(Life, AClientThatVanishesTakesAnOpenMessageAlong) {
  Life life;
  life.PutClient();
  life.Start();
  life.stage.desk().RunFor(3000);
  life.user.insteadOfAnswering = [&] { life.stage.desk().Kill(life.stage.ClientProcess()); };
  life.stage.hand().Close(life.stage.hand().FindForm("frmCV7").value().window);
  life.stage.desk().RunFor(5000);
  EXPECT_EQ(life.user.messages.size(), 1u);
  EXPECT_FALSE(life.Runs());
  EXPECT_EQ(life.stage.desk().LeftOpen(0), std::vector<std::string>{});
}

TEST(Life, AClientThatIsClosedTwiceLeavesNoTrayIcon) {
  Life life;
  life.stage.desk().registry().Write("Software\\QRV Software\\Corvel\\Toolbar", "MenuAccess",
                                     {ValueType::kText, std::string("Tray\0", 5)});
  life.PutClient();
  life.Start();
  life.stage.desk().RunFor(3000);
  ASSERT_TRUE(life.stage.HasTrayIcon());
  auto& windows = life.stage.desk().windows();
  for (int time = 0; time < 2; ++time)
    windows.Post(windows.Find("AOL Frame25", std::nullopt), wm::kClose, 0, 0);
  life.stage.desk().RunFor(10000);
  EXPECT_FALSE(life.Runs());
  EXPECT_EQ(life.stage.desk().LeftOpen(0), std::vector<std::string>{});
}

TEST(Life, InvitationsAreDismissedIfTheUserWantsThat) {
  for (const bool dismiss : {true, false}) {
    Life life;
    life.stage.desk().registry().Write(
        "Software\\QRV Software\\Corvel\\General", "DismissBuddyInvites",
        {ValueType::kText, dismiss ? std::string("True\0", 5) : std::string("False\0", 6)});
    life.PutClient();
    life.Start();
    life.stage.desk().RunFor(3000);
    ASSERT_EQ(life.stage.Client()->Do({"invite", "Ann"}).error, "");
    life.stage.desk().RunFor(3000);
    bool stands = false;
    life.stage.desk().windows().EnumDescendants(life.stage.Client()->Mdi(), [&](Window window) {
      stands |= life.stage.desk().windows().CaptionOf(window).find("Invitation From: ") == 0;
      return true;
    });
    EXPECT_EQ(stands, !dismiss);
  }
}

}  // namespace
}  // namespace corvel
