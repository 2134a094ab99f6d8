// Windows of our own, with a procedure of ours.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

// Logs some messages and does what it is told to on private ones; the system does the rest.
class Told : public WindowProcedure {
 public:
  explicit Told(OwnWindows& own) : own_(own) {}
  MessageResult OnMessage(Window window, const Message& message) override {
    for (const MessageId id : {wm::kCreate, wm::kDestroy, wm::kNcDestroy, wm::kTimer})
      if (message.id == id) log.push_back(WordOf(id));
    if (message.id < wm::kUser) return own_.Default(window, message);
    came = std::string(message.text) + ".";
    if (message.id == wm::kUser) {
      own_.Destroy(window);
      return own_.Default(window, {.id = wm::kSetText, .text = "too late"});
    }
    return 7;
  }
  Log log;
  std::string came;

 private:
  OwnWindows& own_;
};

// Gives the focus on at the first character that comes.
class FocusPasser : public WindowProcedure {
 public:
  explicit FocusPasser(Platform& platform) : platform_(platform) {}
  MessageResult OnMessage(Window window, const Message& message) override {
    if (message.id == wm::kKeyDown || message.id == wm::kChar || message.id == wm::kKeyUp)
      log.push_back(LogLine(window == first ? "first" : "second", message));
    if (message.id == wm::kChar && window == first) platform_.windows.SetFocus(second);
    return platform_.ownWindows.Default(window, message);
  }
  Window first, second;
  Log log;

 private:
  Platform& platform_;
};

class OwnWindowsTest : public testing::Test {
 protected:
  Window Make(const NewWindow& window) { return ownWindows.Create(window, told); }
  Window Make(Window parent = {}) {
    return Make({.className = "Told", .caption = "told", .parent = parent, .systemClass = {}});
  }
  void TearDown() override {
    home->Run([&] {
      for (Window left; (left = windows.Find("Told", std::nullopt));) ownWindows.Destroy(left);
    });
  }

  std::unique_ptr<Home> home = MakeHome();
  WindowSystem& windows = home->platform().windows;
  OwnWindows& ownWindows = home->platform().ownWindows;
  Menus& menus = home->platform().menus;
  Told told{ownWindows};
};

TEST_F(OwnWindowsTest, LiveFromCreateToTheLastMessageAndTheirTimersStop) {
  home->Run([&] {
    const Window window = Make();
    EXPECT_EQ(told.log, Log{"create"});
    Make(window);
    home->platform().events.StartTimer(window, 1, 20);
    ownWindows.Destroy(window);
    home->RunFor(100);
    EXPECT_EQ(told.log, (Log{"create", "create", "destroy", "destroy", "ncdestroy", "ncdestroy"}));
    EXPECT_FALSE(windows.Exists(window));
    EXPECT_EQ(Make(window), Window{}) << "a dead parent";
    ownWindows.Destroy(window);
  });
}

TEST_F(OwnWindowsTest, TakePrivateMessagesWithTheirTextAndMayGoInTheMidstOfOne) {
  home->Run([&] {
    const Window window = Make();
    EXPECT_EQ(windows.SendText(window, 0x2803, 0, "a text"), 7);
    EXPECT_EQ(told.came, "a text.");
    windows.Send(window, 0x2803, 0, 0x1234);
    EXPECT_EQ(told.came, ".") << "a number is taken for no text";
    EXPECT_EQ(windows.Send(window, wm::kUser, 0, 0), 0);
    EXPECT_FALSE(windows.Exists(window));
  });
}

TEST_F(OwnWindowsTest, OfASystemClassDoItsWorkUnderTheirOwnName) {
  home->Run([&] {
    const Window edit = Make(
        {.className = "Told Edit", .caption = "edit", .parent = Make(), .systemClass = "EDIT"});
    EXPECT_EQ(windows.ClassOf(edit), "Told Edit");
    windows.Send(edit, wm::kChar, '!', 0);
    EXPECT_EQ(ownWindows.Default(edit, {.id = wm::kGetTextLength}), 5);
    EXPECT_EQ(windows.SendForText(edit, wm::kGetText, 0, 100), "!edit");
  });
}

TEST_F(OwnWindowsTest, HaveMenuBarsThatGoWithThem) {
  home->Run([&] {
    const Window window = Make();
    EXPECT_EQ(menus.MenuOf(window), MenuHandle{});
    const MenuHandle bar = ownWindows.CreateMenuBar(), file = menus.CreatePopup();
    menus.Insert(bar, -1, menu_flag::kByPosition | menu_flag::kPopup, 0, file, "&File");
    ownWindows.SetMenuBar(window, bar);
    EXPECT_EQ(menus.MenuOf(window), bar);
    EXPECT_EQ(menus.SubMenu(bar, 0), file);
    ownWindows.Destroy(window);
    EXPECT_EQ(menus.Count(bar), -1);
    EXPECT_EQ(menus.Count(file), -1);
    ownWindows.SetMenuBar(window, {});
  });
}

TEST_F(OwnWindowsTest, ShowStandardDialogsWithoutWaiting) {
  home->Run([&] {
    const Window owner = Make(), dialog = ownWindows.ShowDialog(owner, "Title", "a text");
    EXPECT_EQ(windows.ClassOf(dialog), "#32770");
    EXPECT_EQ(windows.Parent(dialog), owner);
    EXPECT_TRUE(windows.IsVisible(dialog));
    Log classes;
    windows.EnumDescendants(dialog, [&](Window child) {
      classes.push_back(windows.ClassOf(child));
      return true;
    });
    EXPECT_EQ(classes, (Log{"Static", "Static", "Button"}));
    windows.EndDialog(dialog, 1);
    EXPECT_FALSE(windows.Exists(dialog));
    const Window second = ownWindows.ShowDialog(owner, "Title", "a text");
    ownWindows.Destroy(owner);
    EXPECT_FALSE(windows.Exists(second)) << "it goes with its owner";
  });
}

// A second key waits until the first one has been taken, and finds the focus where that has put it.
TEST_F(OwnWindowsTest, GetEachKeyThatTheyHaveTheFocusForWhenItIsTaken) {
  FocusPasser passer(home->platform());
  home->Run([&] {
    const auto make = [&](Window parent) {
      return ownWindows.Create(
          {.className = "Told", .caption = "keys", .parent = parent, .systemClass = {}}, passer);
    };
    const Window frame = make({});
    passer.first = make(frame);
    passer.second = make(frame);
    windows.SetFocus(passer.first);
    windows.TypeKey(9);
    windows.TypeKey('A');
    home->RunFor(100);
    EXPECT_EQ(passer.log, (Log{"first:keydown(9)", "first:char(9)", "second:keyup(9)",
                               "second:keydown(65)", "second:char(97)", "second:keyup(65)"}));
    ownWindows.Destroy(frame);
  });
}

}  // namespace
}  // namespace corvel::test
