// Processes of the desk: how they start, and the many ways in which they end.
#include "base/error.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tests/platform/desk_home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class EmptyHook : public HookHandler {
 public:
  void OnHookedMessage(HookedMessage& message) override {
    if (onMessage) onMessage(message);
  }
  std::function<void(HookedMessage&)> onMessage;
};

// A program told what to do at its start, which says when it goes.
class Scripted : public desk::ProcessBody {
 public:
  struct Script {
    std::function<void()> start, end;
    bool finished = false;
    Log log;
  };
  explicit Scripted(Script& script) : script_(script) {}
  ~Scripted() override {
    script_.log.push_back("gone");
    if (script_.end) script_.end();
  }
  void Start(const std::string& commandLine) override {
    script_.log.push_back("start " + commandLine);
    if (script_.start) script_.start();
  }
  bool Finished() override { return script_.finished; }

 private:
  Script& script_;
};

class DeskProcesses : public testing::Test {
 protected:
  DeskProcesses() {
    desk.Install(kPath, [this](desk::Desk&) { return std::make_unique<Scripted>(script); });
  }
  ProcessId Start() {
    const ProcessId id = desk.Spawn(kPath, "line");
    desk.RunDue();
    return id;
  }
  Window OtherWindow(const char* name = "other", Window parent = {}) {
    return home.other().Make(
        name, {.className = name, .caption = name, .parent = parent, .systemClass = {}});
  }
  // A window of the started process.
  Window OwnWindow(ProcessId process) {
    Window window;
    desk.RunAs(process, [&] {
      window = platform.ownWindows.Create({.className = "Own", .caption = "own", .systemClass = {}},
                                          home.other());
    });
    return window;
  }
  void Pump() { platform.events.Pump({"a test", WaitFor::kClient, {}}); }

  static constexpr const char* kPath = "C:\\Some Folder\\app.exe";
  Scripted::Script script;
  DeskHome home;
  desk::Desk& desk = home.desk;
  Platform& platform = home.platform();
};

TEST_F(DeskProcesses, AreStartedByCommandLine) {
  const struct {
    const char* commandLine;
    const char* log;  // nullptr: no such program
  } cases[] = {{"C:\\Some Folder\\app.exe -sTarget x", "start -sTarget x"},
               {"\"c:\\some folder\\APP.EXE\"  a b", "start a b"},
               {"C:\\Some Folder\\app", "start "},
               {"app.exe", nullptr},
               {"\"", nullptr}};
  for (const auto& c : cases) {
    script.log.clear();
    script.finished = true;
    desk.RunAs(home.program, [&] {
      EXPECT_EQ(platform.processes.Run(c.commandLine, 1), c.log != nullptr) << c.commandLine;
    });
    desk.RunDue();
    EXPECT_EQ(script.log, c.log ? (Log{c.log, "gone"}) : Log{}) << c.commandLine;
  }
  desk.files().Remove(kPath);
  EXPECT_EQ(desk.Spawn(kPath, ""), 0u) << "its file has been deleted";
}

TEST_F(DeskProcesses, AreListedWithTheirPathsAndFoundByFileName) {
  const ProcessId id = Start();
  EXPECT_EQ(desk.FindProcess("APP.EXE"), id);
  EXPECT_EQ(desk.CommandLineOf(id), "line");
  EXPECT_EQ(platform.processes.Snapshot()->back().path, kPath);
  desk.Kill(id);
  EXPECT_EQ(desk.CommandLineOf(id), "");
}

TEST_F(DeskProcesses, EndByThemselvesAfterTheEventInWhichTheyFinish) {
  const ProcessId id = Start();
  const Window window = OwnWindow(id);
  desk.PostTask(id, [&] { script.finished = true; });
  script.end = [&] {
    EXPECT_EQ(desk.Current(), id);
    EXPECT_TRUE(platform.windows.Exists(window)) << "it goes in good order";
  };
  desk.RunDue();
  EXPECT_EQ(script.log, (Log{"start line", "gone"}));
  EXPECT_FALSE(desk.IsRunning(id));
  EXPECT_FALSE(platform.windows.Exists(window));
  EXPECT_EQ(desk.LeftOpen(id), (Log{"window \"Own\" with caption \"own\""}));
}

TEST_F(DeskProcesses, LeaveAtOnceByProcessExitFromAnyDepth) {
  const ProcessId id = Start();
  const Window window = OwnWindow(id);
  const Window helper = OtherWindow();
  bool wentOn = false, helperWentOn = false;
  home.other().onMessage = [&](Window w, const Message& m) {
    if (w == window && m.id == wm::kUser) throw ProcessExit{};
    if (w != helper || m.id != wm::kUser) return;
    EXPECT_EQ(platform.windows.Send(window, wm::kUser, 0, 0), 0);
    EXPECT_FALSE(platform.windows.Exists(window));
    EXPECT_EQ(script.log, (Log{"start line"})) << "a frame of it is still on the stack";
    helperWentOn = true;
  };
  desk.RunAs(id, [&] {
    platform.windows.Send(helper, wm::kUser, 0, 0);
    wentOn = true;
  });
  EXPECT_TRUE(helperWentOn);
  EXPECT_FALSE(wentOn) << "its own calls unwind";
  EXPECT_EQ(script.log, (Log{"start line", "gone"}));
  home.other().onMessage = nullptr;
}

TEST_F(DeskProcesses, WhenKilledLoseAllAtOnceWithoutAWord) {
  const ProcessId id = Start();
  const Window window = OwnWindow(id), hooked = OtherWindow("hooked");
  const Window guest = OtherWindow("guest");
  platform.windows.SetParent(guest, window);
  EmptyHook hook;
  std::unique_ptr<ProcessMemory> memory;
  const std::uint32_t address = desk.Allocate(id, "bytes");
  bool ran = false;
  const MessageId kinds[] = {wm::kChar, wm::kDestroy};
  desk.RunAs(id, [&] {
    platform.hooks.Attach(hooked, kinds, hook);
    platform.clipboard.Open(window);
    platform.events.StartTimer(window, 1, 10);
  });
  desk.RunAs(home.program, [&] { memory = platform.processes.Open(id); });
  ASSERT_EQ(memory->Read(address, 5), "bytes");
  desk.PostTask(id, [&] { ran = true; });
  desk.After(id, 10, [&] { ran = true; });
  platform.windows.Post(window, wm::kUser, 0, 0);
  home.other().Record({wm::kDestroy, wm::kUser, wm::kTimer});
  desk.Kill(id);
  EXPECT_EQ(script.log, (Log{"start line", "gone"}));
  EXPECT_EQ(home.other().TakeLog(), (Log{"guest:destroy"}));
  EXPECT_FALSE(platform.windows.Exists(window));
  EXPECT_FALSE(platform.windows.Exists(guest)) << "a guest goes down with its host";
  EXPECT_EQ(desk.windows().HookCount(), 0u);
  EXPECT_EQ(memory->Read(address, 5), std::nullopt);
  EXPECT_FALSE(desk.clipboard().IsOpen());
  EXPECT_EQ(platform.processes.Open(id), nullptr);
  desk.RunFor(100);
  EXPECT_FALSE(ran);
  EXPECT_EQ(home.other().TakeLog(), Log{});
}

TEST_F(DeskProcesses, KilledInAWaitUnwindWhenThePumpComesBack) {
  const ProcessId id = Start();
  bool cleanedUp = false, wentOn = false;
  struct Guard {
    desk::Desk& desk;
    Window window;
    bool& done;
    ~Guard() {  // what destructors do must come to its end
      desk.platform().windows.Send(window, wm::kUser, 0, 0);
      desk.platform().ownWindows.Destroy(window);
      desk.platform().events.Pump({"a destructor", WaitFor::kTime, {}});
      done = true;
    }
  };
  const Window window = OwnWindow(id);
  desk.After(home.otherId, 50, [&] { desk.Kill(id); });
  desk.RunAs(id, [&] {
    const Guard guard{desk, window, cleanedUp};
    for (int i = 0; i < 1000; ++i) Pump();
    wentOn = true;
  });
  EXPECT_TRUE(cleanedUp);
  EXPECT_FALSE(wentOn);
  EXPECT_EQ(script.log, (Log{"start line", "gone"}));
}

TEST_F(DeskProcesses, KilledByItsOwnHookLeaveTheSenderUnharmed) {
  const ProcessId id = Start();
  const Window box = OtherWindow();
  EmptyHook hook;
  hook.onMessage = [](HookedMessage&) { throw ProcessExit{}; };
  const MessageId kinds[] = {wm::kChar};
  desk.RunAs(id, [&] { platform.hooks.Attach(box, kinds, hook); });
  home.other().Record({wm::kChar});
  platform.windows.Send(box, wm::kChar, 'a', 0);
  EXPECT_FALSE(desk.IsRunning(id));
  EXPECT_EQ(home.other().TakeLog(), (Log{"other:char(97)"})) << "the window gets its message";
  EXPECT_EQ(desk.windows().HookCount(), 0u);
}

TEST_F(DeskProcesses, OfTheHookedWindowMayEndInsideTheHook) {
  const Window box = OtherWindow();
  EmptyHook hook;
  hook.onMessage = [&](HookedMessage&) { desk.Kill(home.otherId); };
  const MessageId kinds[] = {wm::kChar};
  bool wentOn = false;
  desk.RunAs(home.program, [&] {
    const HookId id = platform.hooks.Attach(box, kinds, hook);
    EXPECT_EQ(platform.windows.Send(box, wm::kChar, 'a', 0), 0);
    EXPECT_FALSE(platform.hooks.IsAttached(id));
    platform.hooks.Detach(id);
    wentOn = true;
  });
  EXPECT_TRUE(wentOn);
  EXPECT_FALSE(desk.IsRunning(home.otherId));
}

TEST_F(DeskProcesses, TellWhatTheyHaveNotReleased) {
  const ProcessId id = Start();
  const Window box = OtherWindow("Box");
  EmptyHook hook;
  const MessageId kinds[] = {wm::kChar};
  std::unique_ptr<ProcessMemory> memory;
  HookId kept = 0;
  desk.RunAs(id, [&] {
    kept = platform.hooks.Attach(box, kinds, hook);
    platform.hooks.Attach(box, kinds, hook);
    memory = platform.processes.Open(home.otherId);
    platform.menus.CreatePopup();
  });
  EXPECT_EQ(desk.LeftOpen(id).size(), 4u);
  script.end = [&] { platform.hooks.Detach(kept); };
  desk.Kill(id);
  const Log expected{"hook on a window \"Box\"", "1 menus that hang on no window",
                     "1 opened processes"};
  EXPECT_EQ(desk.LeftOpen(id), expected);
  EXPECT_EQ(desk.LeftOpen(0).size(), 3u);
}

TEST_F(DeskProcesses, HooksAreJournalledWithTheirWindowsClass) {
  const Window box = OtherWindow("Box"), dying = OtherWindow("Dying");
  EmptyHook hook;
  const MessageId kinds[] = {wm::kChar};
  const std::size_t before = desk.journal().Entries().size();
  desk.RunAs(home.program, [&] {
    const HookId id = platform.hooks.Attach(box, kinds, hook);
    platform.hooks.Attach(dying, kinds, hook);
    EXPECT_EQ(desk.windows().HookedWindows(), (std::vector<Window>{dying, box}));
    platform.hooks.Detach(id);
  });
  home.other().Destroy(dying);
  Log log;
  for (std::size_t i = before; i < desk.journal().Entries().size(); ++i)
    log.push_back(desk.journal().Entries()[i].kind + " " + desk.journal().Entries()[i].words[0]);
  EXPECT_EQ(log, (Log{"hook Box", "hook Dying", "unhook Box", "unhook Dying"}));
}

}  // namespace
}  // namespace corvel::test
