// The virtual clock and the order of things that are due.
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tests/platform/desk_home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class DeskScheduler : public testing::Test {
 protected:
  void Say(const std::string& what) { said.push_back(std::to_string(desk.NowMs() - begin) + what); }
  void RunAsProgram(const std::function<void()>& code) { home.Run(code); }
  // A window of the program whose timer ticks and user messages are said.
  Window Make(const char* name, WindowProcedure& procedure) {
    Window window;
    home.Run([&] {
      window = platform.ownWindows.Create(
          {.className = name, .caption = name, .visible = false, .systemClass = {}}, procedure);
    });
    return window;
  }

  DeskHome home;
  desk::Desk& desk = home.desk;
  Platform& platform = home.platform();
  std::int64_t begin = desk.NowMs();
  Log said;
};

class Sayer : public WindowProcedure {
 public:
  explicit Sayer(std::function<void(const Message&)> say) : say_(std::move(say)) {}
  MessageResult OnMessage(Window, const Message& message) override {
    if (message.id == wm::kTimer || message.id >= wm::kUser) say_(message);
    return 0;
  }

 private:
  std::function<void(const Message&)> say_;
};

TEST_F(DeskScheduler, RunsPostedThingsInOrderThenTimersEarliestFirst) {
  Sayer sayer([&](const Message& m) { Say(":" + std::to_string(m.wParam)); });
  const Window window = Make("w", sayer);
  platform.events.StartTimer(window, 30, 30);
  platform.events.StartTimer(window, 15, 15);
  platform.events.StartTimer(window, 31, 30);
  desk.After(home.program, 30, [&] { Say(":later"); });
  desk.After(home.program, 30, [&] { Say(":latest"); });
  platform.windows.Post(window, wm::kUser, 1, 0);
  desk.PostTask(home.program, [&] { Say(":task"); });
  platform.windows.Post(window, wm::kUser, 2, 0);
  desk.RunFor(30);
  EXPECT_EQ(said, (Log{"0:1", "0:task", "0:2", "15:15", "30:later", "30:latest", "30:30", "30:15",
                       "30:31"}));
}

TEST_F(DeskScheduler, TimersAreNotMadeUpForAndHaveAFloor) {
  Sayer sayer([&](const Message& m) { Say(":" + std::to_string(m.wParam)); });
  const Window window = Make("w", sayer);
  platform.events.StartTimer(window, 1, 1);
  desk.RunFor(25);
  EXPECT_EQ(said, (Log{"10:1", "20:1"}));
  said.clear();
  // A message to a hung process holds the program up for seven seconds.
  desk.windows().SetHung(home.otherId, true);
  const Window frame = home.other().Make("f", {.className = "F", .caption = {}, .systemClass = {}});
  RunAsProgram([&] { platform.windows.Send(frame, wm::kUser, 0, 0); });
  desk.RunFor(20);
  EXPECT_EQ(said, (Log{"7025:1", "7035:1", "7045:1"}));
}

TEST_F(DeskScheduler, WhatIsPostedInARoundWaitsForTheNext) {
  int rounds = 0;
  std::function<void()> again = [&] {
    if (++rounds < 3) desk.PostTask(home.program, again);
  };
  desk.PostTask(home.program, again);
  desk.Round(desk.NowMs());
  EXPECT_EQ(rounds, 1);
  desk.RunDue();
  EXPECT_EQ(rounds, 3);
  EXPECT_EQ(desk.NowMs(), begin);
}

TEST_F(DeskScheduler, APumpMovesTimeToTheNextDueThingAndNeverBeyondItsLimit) {
  RunAsProgram([&] {
    desk.After(home.program, 70, [&] { Say(":due"); });
    const std::uint32_t start = platform.clock.TickCount();
    const Wait wait{"a test", WaitFor::kTime, start + 100};
    int pumps = 0;
    for (; platform.clock.TickCount() - start < 100; ++pumps) platform.events.Pump(wait);
    EXPECT_EQ(platform.clock.TickCount() - start, 100u);
    EXPECT_EQ(pumps, 3) << "to 70, the task, to 100";
    platform.events.Pump({"nothing is due", WaitFor::kClient, {}});
    EXPECT_EQ(platform.clock.TickCount() - start, 101u);
  });
  EXPECT_EQ(said, (Log{"70:due"}));
}

TEST_F(DeskScheduler, TheTickCountWrapsAndTheWallClockGoesOn) {
  desk.SetTickCount(0xFFFFFFF0);
  desk.SetWallClock({.year = 1999, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59});
  RunAsProgram([&] {
    const std::uint32_t start = platform.clock.TickCount();
    const Wait wait{"a test", WaitFor::kTime, start + 1000};
    while (platform.clock.TickCount() - start < 1000) platform.events.Pump(wait);
  });
  EXPECT_EQ(platform.clock.TickCount(), 984u);
  EXPECT_EQ(platform.clock.Now(), (CivilTime{.year = 2000}));
}

// Acts at given times, and once for each wait for the user that it is let into.
class Script : public desk::Agent {
 public:
  bool Act() override {
    if (!act) return false;
    return act();
  }
  std::optional<std::int64_t> NextActAt() override { return next; }
  std::function<bool()> act;
  std::optional<std::int64_t> next;
};

TEST_F(DeskScheduler, TheAgentActsWhenNothingIsDueAndTimeStopsForIt) {
  Script script;
  script.next = begin + 55;
  script.act = [&] {
    if (desk.NowMs() < *script.next) return false;
    EXPECT_EQ(desk.Current(), 0u);
    Say(":act");
    script.next.reset();
    script.act = nullptr;
    return true;
  };
  desk.SetAgent(&script);
  desk.After(home.program, 40, [&] {
    RunAsProgram([&] {
      const Wait wait{"a test", WaitFor::kUser, {}};
      while (said.empty()) platform.events.Pump(wait);
      Say(":goes on");
    });
  });
  desk.RunFor(100);
  EXPECT_EQ(said, (Log{"55:act", "55:goes on"}));
  desk.SetAgent(nullptr);
}

TEST_F(DeskScheduler, PumpsTellWhoWaitsForWhom) {
  desk.After(home.program, 10, [&] {
    EXPECT_TRUE(desk.WaitsForUser(home.program));
    EXPECT_FALSE(desk.WaitsForUser(home.otherId));
    ASSERT_EQ(desk.Pumps().size(), 1u);
    EXPECT_STREQ(desk.Pumps()[0].wait.name, "MsgBoxEx");
    Say("");
  });
  RunAsProgram([&] {
    while (said.empty()) platform.events.Pump({"MsgBoxEx", WaitFor::kUser, {}});
  });
  EXPECT_TRUE(desk.Pumps().empty());
  EXPECT_FALSE(desk.WaitsForUser(home.program));
}

TEST_F(DeskScheduler, ATaskIsPendingUntilItHasComeBack) {
  desk::TaskId task = 0;
  task = desk.PostTask(home.program, [&] { EXPECT_TRUE(desk.IsPending(task)); });
  EXPECT_TRUE(desk.IsPending(task));
  desk.RunDue();
  EXPECT_FALSE(desk.IsPending(task));
  task = desk.PostTask(home.program, [] {});
  desk.Kill(home.program);
  EXPECT_FALSE(desk.IsPending(task));
}

TEST_F(DeskScheduler, AWaitThatNobodyEndsIsAFault) {
  desk.PostTask(home.program, [&] {
    for (;;) platform.events.Pump({"WaitForWindow", WaitFor::kClient, {}});
  });
  EXPECT_THROW(desk.RunFor(1000), std::logic_error);
  std::function<void()> again = [&] { desk.PostTask(home.program, again); };
  desk.PostTask(home.program, again);
  EXPECT_THROW(desk.RunDue(), std::logic_error);
}

TEST_F(DeskScheduler, AHungProcessGetsItsThingsLater) {
  const Window frame = home.other().Make("f", {.className = "F", .caption = {}, .systemClass = {}});
  home.other().Record({wm::kUser, wm::kUser + 1});
  desk.windows().SetHung(home.otherId, true);
  EXPECT_TRUE(platform.windows.Post(frame, wm::kUser, 1, 0));
  RunAsProgram([&] { EXPECT_EQ(platform.windows.Send(frame, wm::kUser + 1, 0, 0), 0); });
  EXPECT_EQ(desk.NowMs(), begin + 7000);
  desk.RunFor(100);
  EXPECT_EQ(home.other().TakeLog(), Log{});
  EXPECT_TRUE(platform.windows.Exists(frame));
  desk.windows().SetHung(home.otherId, false);
  desk.RunDue();
  EXPECT_EQ(home.other().TakeLog(), (Log{"f:1024(1)"}));
}

}  // namespace
}  // namespace corvel::test
