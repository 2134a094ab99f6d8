// Messages: who gets which, in which order.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class Messages : public testing::Test {
 protected:
  Window Make(const char* name, Window parent = {}, const char* systemClass = "",
              bool mdiChild = false, bool visible = true) {
    return other.Make(name, {.className = std::string("Class ") + name,
                             .caption = name,
                             .parent = parent,
                             .visible = visible,
                             .id = 3,
                             .mdiChild = mdiChild,
                             .systemClass = systemClass});
  }

  std::unique_ptr<Home> home = MakeHome();
  OtherProcess& other = home->other();
  WindowSystem& windows = home->platform().windows;
};

TEST_F(Messages, TextIsCutToTheRoomThatIsAskedFor) {
  const Window box = Make("box");
  EXPECT_EQ(windows.SendText(box, wm::kSetText, 0, "hello"), 1);
  const struct {
    std::size_t room;
    const char* text;
  } cases[] = {{0, ""}, {1, ""}, {2, "h"}, {5, "hell"}, {6, "hello"}, {100, "hello"}};
  for (const auto& c : cases)
    EXPECT_EQ(windows.SendForText(box, wm::kGetText, 0, c.room), c.text) << c.room;
  EXPECT_EQ(windows.Send(box, wm::kGetTextLength, 0, 0), 5);
  windows.SendText(box, wm::kSetText, 0, std::string_view("a\0b", 3));
  EXPECT_EQ(windows.SendForText(box, wm::kGetText, 0, 10), "a");
}

TEST_F(Messages, EditBoxesTakeCharacters) {
  const Window edit = Make("edit", Make("frame"), "EDIT");
  windows.SendText(edit, wm::kSetText, 0, "ab");
  for (const WParam c : {WParam{'c'}, WParam{8}, WParam{0x95}, WParam{13}})
    windows.Send(edit, wm::kChar, c, 0);
  EXPECT_EQ(windows.SendForText(edit, wm::kGetText, 0, 100), "\x95\x61\x62")
      << "the caret stands in front of a text that was set";
}

TEST_F(Messages, OfMakingWindows) {
  other.Record({wm::kCreate, wm::kParentNotify, wm::kMdiCreate, wm::kShowWindow, wm::kDestroy});
  const Window frame = Make("frame", {}, "", false, false);
  EXPECT_EQ(other.TakeLog(), (Log{"frame:create"}));
  const Window mdi = Make("mdi", frame);
  EXPECT_EQ(other.TakeLog(), (Log{"mdi:create", "frame:child-create", "mdi:show(1)"}));
  other.Record({wm::kCreate, wm::kMdiCreate, wm::kShowWindow, wm::kNcDestroy});
  Make("im", mdi, "", true);
  EXPECT_EQ(other.TakeLog(), (Log{"mdi:mdicreate", "im:create", "im:show(1)"}));
  EXPECT_EQ(Make("orphan", Window{0x7FFFFFFC}), Window{});
  other.AnswerWith(wm::kCreate, -1);
  EXPECT_EQ(Make("refused"), Window{}) << "a procedure may refuse to be made";
  EXPECT_EQ(other.TakeLog(), (Log{"refused:create", "refused:ncdestroy"}));
}

TEST_F(Messages, OfAChildsBeginComeToAllItsAncestors) {
  const Window frame = Make("frame"), mdi = Make("mdi", frame);
  other.Record({wm::kParentNotify});
  Make("im", mdi, "", true);
  EXPECT_EQ(other.TakeLog(), (Log{"mdi:child-create", "frame:child-create"}));
}

TEST_F(Messages, OfDestructionGoFromTheTopDownAndThenUp) {
  const Window frame = Make("frame"), a = Make("a", frame);
  Make("aa", a);
  Make("b", frame);
  const Window owned = Make("owned");
  windows.SetOwner(owned, frame);
  other.Record({wm::kDestroy, wm::kNcDestroy, wm::kParentNotify});
  windows.Send(frame, wm::kClose, 0, 0);
  EXPECT_EQ(other.TakeLog(),
            (Log{"owned:destroy", "owned:ncdestroy", "frame:destroy", "a:destroy", "aa:destroy",
                 "b:destroy", "aa:ncdestroy", "a:ncdestroy", "b:ncdestroy", "frame:ncdestroy"}));
}

TEST_F(Messages, OfAChildsEndComeToItsParents) {
  const Window frame = Make("frame"), a = Make("a", frame);
  other.Record({wm::kDestroy, wm::kParentNotify});
  other.Destroy(a);
  EXPECT_EQ(other.TakeLog(), (Log{"frame:child-destroy", "a:destroy"}));
}

TEST_F(Messages, OfFocusGoToTheOldAndThenToTheNewWindow) {
  const Window frame = Make("frame"), a = Make("a", frame), b = Make("b", frame);
  EXPECT_EQ(windows.Focus(), frame) << "a new visible window is the active one";
  other.Record({wm::kSetFocus, wm::kKillFocus, wm::kEnable});
  windows.SetFocus(a);
  windows.SetFocus(b);
  windows.SetFocus(b);
  EXPECT_EQ(other.TakeLog(), (Log{"frame:killfocus", "a:setfocus", "a:killfocus", "b:setfocus"}));
  windows.Enable(a, false);
  windows.SetFocus(a);
  EXPECT_EQ(windows.Focus(), b) << "a disabled window takes no focus";
  windows.Enable(b, false);
  EXPECT_EQ(windows.Focus(), b) << "its own process alone takes the focus off with that";
  EXPECT_EQ(other.TakeLog(), (Log{"a:enable(0)", "b:enable(0)"}));
}

TEST_F(Messages, AFocusOrderToNoWindowDoesNothing) {
  const Window frame = Make("frame"), a = Make("a", frame);
  windows.SetFocus(a);
  other.Record({wm::kSetFocus, wm::kKillFocus});
  windows.SetFocus({});
  EXPECT_EQ(windows.Focus(), a);
  EXPECT_EQ(other.TakeLog(), Log{});
}

TEST_F(Messages, KeysGoToTheFocus) {
  const Window frame = Make("frame"), edit = Make("edit", frame, "EDIT");
  other.Record({wm::kKeyDown, wm::kChar, wm::kKeyUp});
  windows.SetFocus(edit);
  windows.TypeKey('A');
  windows.TypeKey(0x26);
  home->RunFor(20);
  EXPECT_EQ(other.TakeLog(), (Log{"edit:keydown(65)", "edit:char(97)", "edit:keyup(65)",
                                  "edit:keydown(38)", "edit:keyup(38)"}));
}

TEST_F(Messages, OfAKeyWithControlBeginAndEndWithControls) {
  const Window frame = Make("frame"), edit = Make("edit", frame, "EDIT");
  other.Record({wm::kKeyDown, wm::kChar, wm::kKeyUp});
  windows.SetFocus(edit);
  const struct {
    int key;
    const char* character;  // "" if it types none
  } kTable[] = {{13, "10"}, {8, "127"},  {9, ""},   {27, "27"}, {32, "32"},
                {'A', "1"}, {'Z', "26"}, {'0', ""}, {0x26, ""}};
  for (const auto& row : kTable) {
    windows.TypeControlKey(row.key);
    home->RunFor(20);
    const std::string key = std::to_string(row.key);
    Log expected{"edit:keydown(17)", "edit:keydown(" + key + ")"};
    if (*row.character) expected.push_back(std::string("edit:char(") + row.character + ")");
    expected.insert(expected.end(), {"edit:keyup(" + key + ")", "edit:keyup(17)"});
    EXPECT_EQ(other.TakeLog(), expected) << row.key;
  }
  windows.TypeKey(13);
  home->RunFor(20);
  EXPECT_EQ(other.TakeLog(), (Log{"edit:keydown(13)", "edit:char(13)", "edit:keyup(13)"}));
}

TEST_F(Messages, PostedToAnotherProcessComeInOrder) {
  const Window a = Make("a"), b = Make("b");
  other.Record({wm::kUser});
  EXPECT_TRUE(windows.Post(a, wm::kUser, 1, 0));
  EXPECT_TRUE(windows.Post(b, wm::kUser, 2, 0));
  EXPECT_TRUE(windows.Post(a, wm::kUser, 3, 0));
  home->RunFor(20);
  EXPECT_EQ(other.TakeLog(), (Log{"a:1024(1)", "b:1024(2)", "a:1024(3)"}));
}

TEST_F(Messages, ShowingAndPlacingTellOnlyOfChanges) {
  const Window frame = Make("frame");
  windows.Place(frame, {0, 0, 300, 200});
  other.Record({wm::kShowWindow, wm::kMove, wm::kSize});
  windows.Show(frame, show::kHide);
  windows.Show(frame, show::kHide);
  windows.Show(frame, show::kNormal);
  EXPECT_EQ(other.TakeLog(), (Log{"frame:show(0)", "frame:show(1)"}));
  windows.Place(frame, {1, 0, 300, 200});
  windows.Place(frame, {1, 0, 320, 240});
  windows.Place(frame, {1, 0, 320, 240});
  EXPECT_EQ(other.TakeLog(), (Log{"frame:move", "frame:size"}));
}

// The procedure of windows of our own, which keeps what comes to them.
class Listener : public WindowProcedure {
 public:
  explicit Listener(OwnWindows& own) : own_(own) {}
  Window Make(const char* name) {
    return own_.Create(
        {.className = "Listener", .caption = name, .visible = false, .systemClass = {}}, *this);
  }
  MessageResult OnMessage(Window window, const Message& message) override {
    if (message.id == wm::kTimer) ticks.push_back(message.wParam);
    if (message.id >= wm::kUser && message.id <= wm::kUser + 1)
      came.push_back(LogLine(std::to_string(window.value), message));
    return own_.Default(window, message);
  }
  std::vector<WParam> ticks;
  Log came;

 private:
  OwnWindows& own_;
};

TEST_F(Messages, PostedToOnesOwnWindowsComeInOrderAfterSentOnes) {
  Listener listener(home->platform().ownWindows);
  home->Run([&] {
    const Window a = listener.Make("a"), b = listener.Make("b"), dead = listener.Make("dead");
    windows.Post(a, wm::kUser, 1, 0);
    windows.Post(dead, wm::kUser, 2, 0);
    windows.Post(b, wm::kUser, 3, 0);
    windows.Post(a, wm::kUser, 4, 0);
    windows.Send(a, wm::kUser + 1, 5, 0);
    home->platform().ownWindows.Destroy(dead);
    home->RunFor(20);
    const std::string inA = std::to_string(a.value), inB = std::to_string(b.value);
    EXPECT_EQ(listener.came,
              (Log{inA + ":1025(5)", inA + ":1024(1)", inB + ":1024(3)", inA + ":1024(4)"}));
    home->platform().ownWindows.Destroy(a);
    home->platform().ownWindows.Destroy(b);
  });
}

TEST_F(Messages, OfTimersComeUntilStoppedOrDead) {
  Listener listener(home->platform().ownWindows);
  const std::vector<WParam>& ticks = listener.ticks;
  EventLoop& events = home->platform().events;
  home->Run([&] {
    const Window window = listener.Make("ticker");
    events.StartTimer(window, 7, 300);
    home->RunFor(1000);
    EXPECT_EQ(ticks, (std::vector<WParam>{7, 7, 7}));
    events.StartTimer(window, 7, 600);
    home->RunFor(1000);
    EXPECT_EQ(ticks.size(), 4u) << "started anew, with another interval";
    events.StopTimer(window, 7);
    events.StopTimer(window, 8);
    home->RunFor(1000);
    EXPECT_EQ(ticks.size(), 4u);
    events.StartTimer(window, 9, 100);
    home->platform().ownWindows.Destroy(window);
    home->RunFor(1000);
    EXPECT_EQ(ticks.size(), 4u);
    events.StartTimer(window, 9, 100);
  });
}

}  // namespace
}  // namespace corvel::test
