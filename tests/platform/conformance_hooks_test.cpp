// Hooks into windows of another process, and the chat listener.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

// A hook that keeps what it sees and answers as told.
class Hook : public HookHandler {
 public:
  void OnHookedMessage(HookedMessage& message) override {
    Message seenMessage{.id = message.id, .wParam = message.wParam, .text = message.text};
    seen->push_back(LogLine(name, seenMessage));
    message.consume = consume;
    message.result = 42;
    if (onMessage) onMessage(message);
  }
  std::string name = "hook";
  Log own, *seen = &own;
  bool consume = false;
  std::function<void(const HookedMessage&)> onMessage;
};

class Chat : public ChatLineHandler {
 public:
  void OnChatLine(std::string_view sender, std::string_view text) override {
    lines.push_back(std::string(sender) + "|" + std::string(text));
  }
  Log lines;
};

class HooksTest : public testing::Test {
 protected:
  HookId Attach(Window window, Hook& hook, std::vector<MessageId> messages) {
    HookId id = 0;
    home->Run([&] { id = hooks.Attach(window, messages, hook); });
    return id;
  }
  Window Make(const char* name, Window parent = {}, const char* className = "Box") {
    return other.Make(
        name,
        {.className = className, .caption = name, .parent = parent, .systemClass = "RICHEDIT"});
  }

  std::unique_ptr<Home> home = MakeHome();
  OtherProcess& other = home->other();
  WindowSystem& windows = home->platform().windows;
  Hooks& hooks = home->platform().hooks;
};

TEST_F(HooksTest, SeeListedMessagesBeforeTheWindowAndMayConsumeThem) {
  const Window box = Make("box");
  Hook hook;
  const HookId id = Attach(box, hook, {wm::kChar, wm::kSetText, wm::kUser});
  ASSERT_TRUE(hooks.IsAttached(id));
  windows.SendText(box, wm::kSetText, 0, "abc");
  windows.Send(box, wm::kChar, 'd', 0);
  windows.Send(box, wm::kGetTextLength, 0, 0);
  hook.consume = true;
  EXPECT_EQ(windows.Send(box, wm::kChar, 'e', 0), 42);
  hook.consume = false;
  windows.Post(box, wm::kUser, 5, 0);
  home->RunFor(20);
  EXPECT_EQ(hook.own,
            (Log{"hook:settext(abc)", "hook:char(100)", "hook:char(101)", "hook:1024(5)"}));
  EXPECT_EQ(windows.SendForText(box, wm::kGetText, 0, 100), "dabc");
  hooks.Detach(id);
  EXPECT_FALSE(hooks.IsAttached(id));
  windows.Send(box, wm::kChar, 'f', 0);
  EXPECT_EQ(hook.own.size(), 4u);
}

TEST_F(HooksTest, SeeControlAndTheKeyThatIsTypedWithIt) {
  const Window box = Make("box", Make("frame"));
  Hook hook;
  const HookId id = Attach(box, hook, {wm::kKeyDown, wm::kChar, wm::kKeyUp});
  windows.SetFocus(box);
  windows.TypeControlKey(13);
  home->RunFor(20);
  EXPECT_EQ(hook.own, (Log{"hook:keydown(17)", "hook:keydown(13)", "hook:char(10)",
                           "hook:keyup(13)", "hook:keyup(17)"}));
  hooks.Detach(id);
}

TEST_F(HooksTest, RunNewestFirstUntilOneConsumes) {
  const Window box = Make("box");
  Hook older, newer;
  older.name = "older";
  newer.name = "newer";
  newer.seen = older.seen;
  const HookId first = Attach(box, older, {wm::kChar}), second = Attach(box, newer, {wm::kChar});
  windows.Send(box, wm::kChar, 'a', 0);
  newer.consume = true;
  windows.Send(box, wm::kChar, 'b', 0);
  EXPECT_EQ(older.own, (Log{"newer:char(97)", "older:char(97)", "newer:char(98)"}));
  hooks.Detach(first);
  hooks.Detach(second);
}

TEST_F(HooksTest, MaySendToTheSameWindowFromInside) {
  const Window box = Make("box");
  Hook hook;
  hook.onMessage = [&](const HookedMessage& message) {
    if (message.wParam == 'a') windows.Send(box, wm::kChar, 'b', 0);
  };
  const HookId id = Attach(box, hook, {wm::kChar});
  windows.Send(box, wm::kChar, 'a', 0);
  EXPECT_EQ(windows.SendForText(box, wm::kGetText, 0, 100), "babox");
  hooks.Detach(id);
}

TEST_F(HooksTest, AreForgottenWithTheirWindowAndMayDetachFromInside) {
  const Window box = Make("box"), other2 = Make("other");
  Hook hook;
  const HookId id = Attach(box, hook, {wm::kDestroy, wm::kNcDestroy});
  HookId self = Attach(other2, hook, {wm::kChar});
  hook.onMessage = [&](const HookedMessage& message) {
    if (message.id == wm::kChar) hooks.Detach(self);
  };
  other.Destroy(box);
  EXPECT_EQ(hook.own, (Log{"hook:destroy", "hook:ncdestroy"}));
  EXPECT_FALSE(hooks.IsAttached(id));
  hooks.Detach(id);
  EXPECT_EQ(Attach(box, hook, {wm::kChar}), 0u);
  windows.Send(other2, wm::kChar, 'a', 0);
  windows.Send(other2, wm::kChar, 'b', 0);
  EXPECT_EQ(hook.own.size(), 3u);
}

TEST_F(HooksTest, ThatDestroyTheirWindowLeaveItNothing) {
  const Window box = Make("box");
  Hook hook;
  hook.onMessage = [&](const HookedMessage&) { other.Destroy(box); };
  const HookId id = Attach(box, hook, {wm::kChar});
  other.Record({wm::kChar});
  EXPECT_EQ(windows.Send(box, wm::kChar, 'a', 0), 0);
  EXPECT_EQ(other.TakeLog(), Log{});
  hooks.Detach(id);
}

TEST_F(HooksTest, HearTheLinesOfARoomOneByOneAfterTheClientHasTakenThem) {
  constexpr MessageId kTextAdded = 0x2803;
  const Window room = Make("room", {}, "AOL Child");
  const Window view = Make("view", room, "RICHCNTL");
  Make("input", room, "RICHCNTL");
  Chat chat;
  HookId id = 0;
  home->Run([&] { id = hooks.AttachChat(room, chat); });
  ASSERT_NE(id, 0u);
  other.SendText(view, kTextAdded, "OnlineHost:\tWelcome\rRoom Guy:\thi: there\rno line");
  windows.SendText(view, wm::kSetText, 0, "Someone:\tnot heard");
  EXPECT_EQ(chat.lines, Log{});
  home->RunFor(20);
  EXPECT_EQ(chat.lines, (Log{"OnlineHost|Welcome", "Room Guy|hi: there"}));
  other.SendText(view, kTextAdded, "\rA:\tlast");
  hooks.DetachChat(id);
  home->RunFor(20);
  EXPECT_EQ(chat.lines.size(), 2u) << "a line on its way is dropped by the detaching";
  home->Run([&] { EXPECT_EQ(hooks.AttachChat(view, chat), 0u); });
}

}  // namespace
}  // namespace corvel::test
