// The chat room: its list's memory, lines in and out, and what may happen in between.
#include "base/cp1252.h"
#include "tests/practice/practice_fixture.h"

#include <functional>

namespace corvel::practice {
namespace {

// Runs a function on the listed messages, as the program's hooks do.
class Listener : public HookHandler {
 public:
  explicit Listener(std::function<void(HookedMessage&)> act) : act_(std::move(act)) {}
  void OnHookedMessage(HookedMessage& message) override { act_(message); }

 private:
  std::function<void(HookedMessage&)> act_;
};

class RoomTest : public testing::Test {
 protected:
  explicit RoomTest(const char* version = "4.0") : desk(MakeSetup(version, Locale::kUs)) {
    desk.desk.RunFor(1000);
    desk.DoAndWait({"room", "Lobby", "Ann", "Mary Ann"});
    room = desk.Document("Lobby");
  }
  HookId Hook(Window window, std::vector<MessageId> messages, Listener& listener) {
    return desk.AsStranger(
        [&] { return desk.desk.platform().hooks.Attach(window, messages, listener); });
  }
  void Unhook(HookId hook) {
    desk.AsStranger([&] {
      desk.desk.platform().hooks.Detach(hook);
      return 0;
    });
  }
  Strings People() {
    return desk.RowNames(desk.Child(room, "_AOL_LISTBOX"), wm::kLbGetCount, wm::kLbGetItemData);
  }
  Window Input() { return desk.Child(room, "RICHCNTL", 2); }
  PracticeDesk desk;
  Window room;
};

TEST_F(RoomTest, ItsPeopleAreReadOutOfTheClientsMemory) {
  EXPECT_EQ(People(), (Strings{"PracticeOne", "Ann", "Mary Ann"}));
  desk.Do({"enter", "Exactly16Letters"});
  EXPECT_EQ(desk.Do({"leave", "ann"}), "") << "names are compared without case";
  EXPECT_EQ(People(), (Strings{"PracticeOne", "Mary Ann", "Exactly16Letters"}));
  EXPECT_EQ(desk.Do({"leave", "Ann"}), "Ann is not in the room");
}

TEST_F(RoomTest, ARowOutOfRangeHasNoData) {
  const Window list = desk.Child(room, "_AOL_LISTBOX");
  for (WParam row : {WParam{3}, static_cast<WParam>(-1)})
    EXPECT_EQ(
        desk.AsStranger([&] { return desk.windows().Send(list, wm::kLbGetItemData, row, 0); }), -1);
}

TEST_F(RoomTest, ARightClickSelectsThePerson) {
  const Window list = desk.Child(room, "_AOL_LISTBOX");
  MessageResult selectedAtRelease = -2;
  Listener listener([&](HookedMessage& message) {
    selectedAtRelease = desk.windows().Send(message.window, wm::kLbGetCurSel, 0, 0);
  });
  Hook(list, {wm::kRButtonUp}, listener);
  EXPECT_EQ(desk.Do({"right-click", "Mary Ann"}), "");
  EXPECT_EQ(selectedAtRelease, 2);
  EXPECT_EQ(desk.RowName(list, wm::kLbGetItemData, 2), "Mary Ann");
  desk.Do({"leave", "Mary Ann"});
  EXPECT_EQ(desk.AsStranger([&] { return desk.windows().Send(list, wm::kLbGetCurSel, 0, 0); }), -1);
}

TEST_F(RoomTest, ALineGoesOutByteForByteAndIsSeenRendered) {
  constexpr std::string_view kLine =
      "<FONT COLOR=\"#FF0000\">•¤•<sup>a</sup></FONT> x < y <b>!</b> <blink>"_cp;
  constexpr std::string_view kSeen = "•¤•a x < y ! <blink>"_cp;
  const std::string line(kLine);
  desk.AsStranger([&] {
    desk.windows().SendText(Input(), wm::kSetText, 0, line);
    return desk.windows().Send(Input(), wm::kChar, 13, 0);
  });
  EXPECT_EQ(desk.Noted("line"), Strings{line});
  EXPECT_EQ(desk.Ask({"input"}), "");
  EXPECT_TRUE(
      desk.Text(desk.Child(room, "RICHCNTL")).ends_with("\rPracticeOne:\t" + std::string(kSeen)));
}

TEST_F(RoomTest, NothingIsSentFromAnEmptyBox) {
  desk.Do({"key", "enter"});
  desk.Do({"send-icon"});
  EXPECT_EQ(desk.Noted("line"), Strings{});
}

TEST_F(RoomTest, TheUsersKeysEditTheLine) {
  desk.Do({"type", "helloo"});
  desk.Do({"key", "backspace"});
  desk.Do({"type", " you"});
  EXPECT_EQ(desk.Ask({"input"}), "hello you");
  EXPECT_EQ(desk.Do({"key", "f13"}), "there is no key f13");
  desk.Do({"key", "enter"});
  EXPECT_EQ(desk.Noted("line"), Strings{"hello you"});
}

TEST_F(RoomTest, AListenerCanKeepAKeyFromTheBox) {
  Listener listener([](HookedMessage& message) { message.consume = message.wParam == 13; });
  Hook(Input(), {wm::kChar}, listener);
  desk.Do({"type", "/hug"});
  desk.Do({"key", "enter"});
  EXPECT_EQ(desk.Ask({"input"}), "/hug");
  EXPECT_EQ(desk.Noted("line"), Strings{});
}

TEST_F(RoomTest, TheIconNeedsPressAndRelease) {
  desk.Do({"type", "hello"});
  const Window icon = desk.windows().Next(Input());
  const auto send = [&](MessageId id) {
    desk.AsStranger([&] { return desk.windows().Send(icon, id, 0, 0); });
  };
  send(wm::kLButtonUp);
  EXPECT_EQ(desk.Noted("line"), Strings{});
  send(wm::kLButtonDown);
  send(wm::kLButtonUp);
  EXPECT_EQ(desk.Noted("line"), Strings{"hello"});
}

TEST_F(RoomTest, ARefusedLineStaysInTheBox) {
  desk.Do({"refuse-next-line"});
  desk.Do({"type", "hello"});
  desk.DoAndWait({"key", "enter"});
  const Window box = desk.windows().Find("#32770", "America  Online");
  EXPECT_TRUE(desk.Text(desk.Child(box, "Static", 2))
                  .starts_with("Your message is too long or too complex"));
  EXPECT_EQ(desk.Noted("line"), Strings{});
  desk.Do({"key", "enter"});
  EXPECT_EQ(desk.Noted("line"), Strings{"hello"});
}

TEST_F(RoomTest, TheViewHoldsALineWhenItsNoticeComes) {
  std::vector<std::pair<MessageId, std::string>> heard;
  std::string viewThen;
  const Window view = desk.Child(room, "RICHCNTL");
  Listener listener([&](HookedMessage& message) {
    heard.emplace_back(message.id, message.text);
    if (message.id == 0x2803) viewThen = desk.windows().SendForText(view, wm::kGetText, 0, 1000);
  });
  Hook(view, {wm::kSetText, 0x2803, 0x2C00}, listener);
  desk.Do({"say", "Ann", "hi there"});
  using Heard = std::pair<MessageId, std::string>;
  EXPECT_EQ(heard, (std::vector<Heard>{{0x2803, "\rAnn:\thi there"}, {0x2C00, ""}}));
  EXPECT_TRUE(viewThen.ends_with("\rAnn:\thi there"));
  EXPECT_EQ(desk.Ask({"line-seen", "Ann", "hi there"}), "1");
  EXPECT_EQ(desk.Ask({"line-seen", "Ann", "hi"}), "0") << "a part of a line is no line";
}

TEST_F(RoomTest, SurvivesItsOwnEndInTheMiddleOfALine) {
  // Whoever listens can close the room or the client at any message of a line's way.
  const MessageId points[] = {wm::kChar, 0x2803, 0x2C00};
  for (const MessageId point : points) {
    PracticeDesk own;
    own.desk.RunFor(1000);
    own.DoAndWait({"room", "Lobby"});
    const Window window = own.Document("Lobby");
    const Window hooked = own.Child(window, "RICHCNTL", point == wm::kChar ? 2 : 1);
    Listener listener([&](HookedMessage&) { own.windows().Send(window, wm::kClose, 0, 0); });
    own.AsStranger(
        [&] { return own.desk.platform().hooks.Attach(hooked, std::span(&point, 1), listener); });
    own.Do({"type", "hello"});
    own.Do({"key", "enter"});
    EXPECT_FALSE(own.windows().Exists(window)) << point;
    EXPECT_EQ(own.Do({"type", "more"}), "no room is open") << point;
  }
}

TEST_F(RoomTest, SurvivesPeopleComingAndGoingInTheMiddleOfALine) {
  Listener listener([&](HookedMessage&) {
    desk.Do({"leave", "Ann"});
    desk.Do({"enter", "Zoe"});
  });
  const HookId hook = Hook(desk.Child(room, "RICHCNTL"), {0x2803}, listener);
  desk.Do({"say", "Mary Ann", "hi"});
  Unhook(hook);
  EXPECT_EQ(People(), (Strings{"PracticeOne", "Mary Ann", "Zoe"}));
}

TEST_F(RoomTest, ADisabledClientFeelsNoHand) {
  desk.AsStranger([&] {
    desk.windows().Enable(desk.Frame(), false);
    return 0;
  });
  for (const Strings& hand : std::vector<Strings>{
           {"type", "x"}, {"key", "enter"}, {"send-icon"}, {"client-menu", "&New\tCtrl+N"}})
    EXPECT_EQ(desk.Do(hand), "the client is disabled") << hand[0];
  EXPECT_EQ(desk.Do({"say", "Ann", "hi"}), "") << "the others go on";
  EXPECT_EQ(desk.Ask({"enabled"}), "0");
}

TEST_F(RoomTest, ALongEveningKeepsTheViewShort) {
  for (int i = 0; i < 2000; ++i) desk.Do({"say", "Ann", std::string(60, 'x')});
  desk.Do({"say", "Ann", "last"});
  const std::string view = desk.Ask({"view"});
  EXPECT_LE(view.size(), 61000u);
  EXPECT_TRUE(view.starts_with("Ann:\t")) << "cut at a line";
  EXPECT_TRUE(view.ends_with("last"));
}

TEST_F(RoomTest, AnotherRoomTakesItsPlace) {
  desk.DoAndWait({"room", "Den"});
  EXPECT_FALSE(desk.windows().Exists(room));
  EXPECT_TRUE(desk.Document("Den"));
  desk.Do({"room", "First"});
  desk.DoAndWait({"room", "Second"});
  EXPECT_FALSE(desk.Document("First")) << "a room that was only asked for doesn't come";
  EXPECT_TRUE(desk.Document("Second"));
}

TEST_F(RoomTest, AFullRoomRefusesSoOften) {
  desk.Do({"room-full", "The Den", "2"});
  for (int attempt = 0; attempt < 2; ++attempt) {
    desk.Keyword("aol://2719:2-2-The%20Den");
    const Window sorry = desk.windows().Find("_AOL_MODAL", "Sorry...");
    ASSERT_TRUE(sorry) << attempt;
    desk.Click(desk.Child(sorry, "_AOL_ICON"));
  }
  desk.Keyword("aol://2719:2-2-The%20Den");
  EXPECT_TRUE(desk.Document("The Den"));
}

class Room3Test : public RoomTest {
 protected:
  Room3Test() : RoomTest("3.0") {}
};

TEST_F(Room3Test, TheViewIsGivenEachLineAsItsText) {
  std::string heard;
  Listener listener([&](HookedMessage& message) { heard = message.text; });
  const Window view = desk.Child(room, "_AOL_VIEW");
  const HookId hook = Hook(view, {wm::kSetText}, listener);
  desk.Do({"say", "Ann", "hi"});
  Unhook(hook);
  EXPECT_EQ(heard, "\rAnn:\thi");
  EXPECT_EQ(desk.Text(view), "OnlineHost:\t*** You are in \"Lobby\". ***\rAnn:\thi");
}

}  // namespace
}  // namespace corvel::practice
