// The program and its client die and hang at the worst moments, each in turn, and a stranger keeps
// the clipboard: the other goes on.
#include "tests/program/stage.h"

namespace corvel::test {
namespace {

// A moment in the program's life, made to be.
struct Moment {
  const char* name;
  const char* menuAccess;
  std::function<bool(const Program&)> comes;
};

const Moment kMoments[] = {
    {"hooked", "Toolbar", [](const Program& program) { return IsUp(program); }},
    {"a question is up", "Toolbar",
     [](const Program& program) {
       return IsUp(program) && program.Close("&Wavs") &&
              program.Says("Are you sure you wish to exit");
     }},
    // Its first hook and the client's menu are made as soon as the toolbar, unseen, stands.
    {"the client's menu is being changed", "Menu",
     [](const Program& program) { return Until([&] { return program.IsMade("&Wavs"); }); }},
};

class Deaths : public ProgramTest {};

TEST_F(Deaths, TheProgramEndsWithItsClient) {
  for (const Moment& moment : kMoments) {
    SCOPED_TRACE(moment.name);
    StartClient();
    Set("Toolbar", "MenuAccess", moment.menuAccess);
    const Program program;
    ASSERT_TRUE(moment.comes(program));
    clientProcess->Kill();
    EXPECT_TRUE(program.EndsWell());
  }
}

TEST_F(Deaths, TheClientOutlivesTheProgramAndTakesAnother) {
  StartClient();
  for (const Moment& moment : kMoments) {
    SCOPED_TRACE(moment.name);
    Set("Toolbar", "MenuAccess", moment.menuAccess);
    const Program program;
    ASSERT_TRUE(moment.comes(program));
    program.Kill();
    EXPECT_TRUE(Until([] { return IsWindowEnabled(Frame()) != FALSE; }, 1000));
    EXPECT_TRUE(Chats(moment.name));
  }
  const Program program;
  ASSERT_TRUE(Until([this] { return HasMenuRow("&WavList") && IsWindowEnabled(Frame()); }));
  ASSERT_EQ(client.Do({"client-menu", "E&xit Corvel"}).error, "");
  EXPECT_TRUE(program.EndsWell());
  EXPECT_FALSE(HasMenuRow("&WavList")) << "nor what the killed one has left";
  EXPECT_EQ(AgentsInClient(), 0);
}

class Hangs : public ProgramTest {
 protected:
  static constexpr DWORD kLong = 5000;
};

TEST_F(Hangs, AStartWaitsForAClientThatHangsAndHooksItAfterwards) {
  StartClient();
  const Program program;
  ASSERT_TRUE(program.Says("Loading Corvel 32")) << "just before its first hook";
  {
    const Hang hang(Frame());
    Sleep(kLong / 2);
    EXPECT_TRUE(program.AnswersEverywhere(1000));
    Sleep(kLong / 2);
  }
  ASSERT_TRUE(IsUp(program));
  EXPECT_TRUE(Chats("after the hang"));
  // The hook on the frame holds the client's closing back until the program goes.
  EXPECT_EQ(client.Do({"client-close"}).error, "");
  EXPECT_TRUE(program.EndsWell());
  EXPECT_TRUE(clientProcess->EndsWell());
  EXPECT_LT(program.EndedAtMs() - clientProcess->EndedAtMs(), 500);
}

TEST_F(Hangs, ALineToAClientThatHangsGoesOutAfterwards) {
  StartClient();
  const Program program;
  ASSERT_TRUE(IsUp(program));
  ASSERT_TRUE(program.OpenWavList());
  {
    const Hang hang(Frame());
    EXPECT_TRUE(program.Press("&Send"));
    Sleep(kLong / 2);
    EXPECT_TRUE(program.AnswersEverywhere(1000));
    Sleep(kLong / 2);
  }
  EXPECT_TRUE(IsSent("{S boing", kPatience));
  EXPECT_TRUE(Chats("after the hang"));
  ASSERT_TRUE(program.Press("&Send"));
  EXPECT_TRUE(IsSent("{S boing", kPatience));
}

TEST_F(Hangs, AClipboardThatAnotherProgramHoldsIsToldOf) {
  StartClient();
  const Program program;
  ASSERT_TRUE(IsUp(program));
  ASSERT_EQ(client.Do({"keyword", "aol://9293:Ann"}).error, "");
  const HWND mdi = FindWindowExA(Frame(), nullptr, "MDIClient", nullptr);
  ASSERT_TRUE(Until(
      [&] { return FindWindowExA(mdi, nullptr, "AOL Child", "Send Instant Message") != nullptr; }));
  const HWND im = FindWindowExA(mdi, nullptr, "AOL Child", "Send Instant Message");
  const auto body = [im] { return TextOf(FindWindowExA(im, nullptr, "RICHCNTL", nullptr)); };
  ASSERT_TRUE(program.OpenWavList());
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_TRUE(program.Press("&Send"));
  EXPECT_TRUE(program.Says("The clipboard is in use by another program."));
  Sleep(500);
  EXPECT_TRUE(program.AnswersEverywhere(1000));
  CloseClipboard();
  EXPECT_EQ(body(), "");
  EXPECT_TRUE(program.Press("OK"));
  EXPECT_TRUE(program.Press("&Send"));
  EXPECT_TRUE(Until([&] { return body() == "{S boing}"; })) << body();
}

}  // namespace
}  // namespace corvel::test
