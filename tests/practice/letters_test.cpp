// Mail, instant messages and the text windows they are written in.
#include "tests/practice/practice_fixture.h"

namespace corvel::practice {
namespace {

class LettersTest : public testing::Test {
 protected:
  LettersTest() { desk.desk.RunFor(1000); }
  Window WriteMail() {
    desk.DoAndWait({"write-mail"});
    return desk.Document("Write Mail");
  }
  Window Body(Window mail) { return desk.Child(mail, "RICHCNTL"); }
  void Order(Window box, WParam command) {
    desk.AsStranger([&] { return desk.windows().Send(box, wm::kCommand, command, 0); });
  }
  void SetText(Window box, std::string_view text) {
    desk.AsStranger([&] { return desk.windows().SendText(box, wm::kSetText, 0, text); });
  }
  desk::DeskClipboard& clipboard() { return desk.desk.clipboard(); }
  PracticeDesk desk;
};

TEST_F(LettersTest, TheClipboardCommandsReplaceTheSelection) {
  const Window body = Body(WriteMail());
  SetText(body, "one <B>two</B> three");
  EXPECT_EQ(desk.Do({"mail-select", "<B>two</B>"}), "");
  Order(body, 20002);
  EXPECT_EQ(clipboard().Peek("AOLMAIL"), "<B>two</B>");
  EXPECT_EQ(clipboard().Peek(""), "two");

  clipboard().Put("AOLMAIL", "<I>2</I>");
  Order(body, 20003);
  EXPECT_EQ(desk.Text(body), "one <I>2</I> three");
  Order(body, 20000);
  EXPECT_EQ(desk.Text(body), "one <B>two</B> three");
  Order(body, 20005);
  Order(body, 20004);
  EXPECT_EQ(desk.Text(body), "");
}

TEST_F(LettersTest, PasteTakesPlainTextWhereThereIsNoOther) {
  const Window body = Body(WriteMail());
  SetText(body, "x");
  clipboard().Put("", "{S boing}");
  Order(body, 20003);
  EXPECT_EQ(desk.Text(body), "x{S boing}");
}

TEST_F(LettersTest, AHeldClipboardLeavesTheTextAlone) {
  const Window body = Body(WriteMail());
  SetText(body, "x");
  clipboard().Put("", "y");
  clipboard().HoldOpenByStranger(true);
  Order(body, 20003);
  EXPECT_EQ(desk.Text(body), "x");
}

TEST_F(LettersTest, TypingGoesToTheWindowWithTheFocus) {
  desk.DoAndWait({"room", "Lobby"});
  WriteMail();
  desk.Do({"type", "Ann"});
  desk.Do({"key", "tab"});
  desk.Do({"key", "tab"});
  desk.Do({"type", "Hello"});
  EXPECT_EQ(desk.Ask({"mail", "to"}), "Ann");
  EXPECT_EQ(desk.Ask({"mail", "subject"}), "Hello");
  desk.Do({"click-input"});
  desk.Do({"type", "chat"});
  EXPECT_EQ(desk.Ask({"input"}), "chat");
  desk.Do({"mail-close"});
  desk.Do({"type", "!"});
  EXPECT_EQ(desk.Ask({"input"}), "chat!");
  EXPECT_EQ(desk.Do({"mail-close"}), "no mail is open");
}

TEST_F(LettersTest, ActivatingTheClientPutsTheCaretBackIntoItsTopWindow) {
  WriteMail();
  desk.Do({"key", "tab"});
  const Window copy = desk.windows().Focus();
  desk.AsStranger([&] {
    const Window frame = desk.windows().Find("AOL Frame25", std::nullopt);
    desk.windows().SetFocus(desk.windows().FindChild(frame, {}, "AOL Toolbar", std::nullopt));
    return desk.windows().ActivateByCaption("America  Online");
  });
  EXPECT_EQ(desk.windows().Focus(), copy);
}

TEST_F(LettersTest, AnImIsMarkedUnreadUntilTheUserLooks) {
  desk.DoAndWait({"im", "Ann", "one"});
  const Window im = desk.Document(">Instant Message From: Ann");
  ASSERT_TRUE(im);
  desk.Do({"im-type", "Ann", "hi"});
  EXPECT_EQ(desk.Text(im), "Instant Message From: Ann");
  EXPECT_EQ(desk.Do({"im", "ann", "two"}), "");
  EXPECT_EQ(desk.Text(im), ">Instant Message From: Ann") << "the same window, unread again";
  desk.Do({"im-key", "Ann", "enter"});
  desk.Do({"im-type", "Ann", "you"});
  desk.Do({"im-key", "Ann", "ctrl+enter"});
  EXPECT_EQ(desk.Noted("im-sent"), Strings{"Ann|hi\ryou"});
  EXPECT_EQ(desk.Ask({"im", "Ann", "text"}), "Ann:\tone\rAnn:\ttwo\rPracticeOne:\thi\ryou\r");
  desk.Do({"im-close", "Ann"});
  EXPECT_EQ(desk.Ask({"im", "Ann", "open"}), "0");
  EXPECT_EQ(desk.Do({"im-type", "Ann", "?"}), "no IM with Ann is open");
}

TEST_F(LettersTest, MessagesThatComeBeforeTheWindowStandsAreInIt) {
  desk.Do({"im", "Ann", "one"});
  desk.Do({"im", "Ann", "two"});
  desk.desk.RunFor(1000);
  EXPECT_EQ(desk.Ask({"im", "Ann", "text"}), "Ann:\tone\rAnn:\ttwo\r");
}

TEST_F(LettersTest, AnImFromOutsideWaitsBehindItsButton) {
  desk.DoAndWait({"im-internet", "stranger", "hello"});
  const Window im = desk.Document(">Instant Message From: stranger");
  EXPECT_NE(desk.Text(desk.Child(im, "_AOL_Static")).find("Internet user"), std::string::npos);
  EXPECT_FALSE(desk.Child(im, "RICHCNTL"));
  desk.Click(desk.Child(im, "_AOL_ICON"));
  EXPECT_EQ(desk.Text(desk.Child(im, "_AOL_Static")), "stranger");
  EXPECT_EQ(desk.Text(desk.Child(im, "RICHCNTL")), "stranger:\thello\r");
}

TEST_F(LettersTest, AMarkCanBePutInFrontOfATranscript) {
  constexpr MessageId kSetSelection = 0xB1, kReplaceSelection = 0xC2;
  desk.DoAndWait({"im", "Ann", "hi"});
  const Window view = Body(desk.Document(">Instant Message From: Ann"));
  desk.AsStranger([&] {
    desk.windows().Send(view, kSetSelection, 0, 0);
    return desk.windows().SendText(view, kReplaceSelection, 0, "Begin\r\n");
  });
  EXPECT_EQ(desk.Text(view), "Begin\r\nAnn:\thi\r");
}

TEST_F(LettersTest, SendingAFirstMessageBeginsItsConversation) {
  desk.Keyword("aol://9293:Mary%20Ann");
  const Window compose = desk.Document("Send Instant Message");
  SetText(Body(compose), "hello");
  desk.Click(desk.Child(compose, "_AOL_ICON", 10));
  EXPECT_FALSE(desk.windows().Exists(compose));
  EXPECT_EQ(desk.Noted("im-sent"), Strings{"Mary Ann|hello"});
  EXPECT_TRUE(desk.Document("Instant Message To: Mary Ann"));
}

TEST_F(LettersTest, TheServiceAnswersTheSwitchCommandWithABox) {
  desk.Keyword("aol://9293:$im_off%20Ann");
  const Window compose = desk.Document("Send Instant Message");
  desk.Click(desk.Child(compose, "_AOL_ICON", 10));
  EXPECT_EQ(desk.Noted("im-sent"), Strings{"$im_off Ann|"});
  EXPECT_TRUE(desk.windows().Find("#32770", "America  Online"));
}

}  // namespace
}  // namespace corvel::practice
