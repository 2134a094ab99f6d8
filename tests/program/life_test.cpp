// A whole life of the program beside its client, and what can stand in the way of its start.
#include "tests/program/stage.h"

namespace corvel::test {
namespace {

class Life : public ProgramTest {};

TEST_F(Life, ComesUpSendsAWavAndGoesWithoutATrace) {
  StartClient();
  Program program;
  bool wasDisabled = false;
  EXPECT_TRUE(Until(
      [&] {
        wasDisabled |= !IsWindowEnabled(Frame());
        return wasDisabled && IsWindowEnabled(Frame()) && program.Toolbar();
      },
      5000))
      << "the client is held for the start only";
  EXPECT_TRUE(program.AnswersEverywhere(1000));
  EXPECT_TRUE(Until([] { return AgentsInClient() == 1; }));
  EXPECT_TRUE(Chats("a line of the user's")) << "through the hook";

  ASSERT_TRUE(program.OpenWavList());
  ASSERT_TRUE(program.Press("&Send"));
  EXPECT_TRUE(IsSent("{S boing", kPatience)) << program.Texts();

  const RECT place = [&program] {
    RECT rect{};
    GetWindowRect(program.Toolbar(), &rect);
    return rect;
  }();
  ASSERT_TRUE(program.Close("&Wavs"));
  ASSERT_TRUE(program.Says("Are you sure you wish to exit"));
  ASSERT_TRUE(program.Press("Yes"));
  EXPECT_TRUE(program.EndsWell());
  EXPECT_EQ(Setting("Toolbar", "Left"), std::to_string(place.left * 15)) << "in twips";
  EXPECT_TRUE(IsWindowEnabled(Frame()));
  EXPECT_EQ(AgentsInClient(), 0);
  EXPECT_TRUE(Chats("a line behind it"));
  EXPECT_EQ(FindWindowA("CorvelForm", nullptr), nullptr) << "nothing is left running";
}

TEST_F(Life, OfTwoProgramsOneStays) {
  StartClient();
  Put(kProgramFolder + "\\favwavs.dat", "boing\tc:\\wavs\\boing.wav\r\n");
  const auto refuses = [](const Program& one) {
    return one.Says("is already running") && one.Press("OK") && one.EndsWell();
  };
  Program first, second;
  ASSERT_TRUE(Until([&] { return first.Toolbar() || second.Toolbar(); }));
  const Program &stays = first.Toolbar() ? first : second,
                &other = first.Toolbar() ? second : first;
  EXPECT_TRUE(refuses(other));
  EXPECT_TRUE(refuses(Program()));
  EXPECT_TRUE(IsUp(stays, 0));
  EXPECT_EQ(Bytes(kProgramFolder + "\\favwavs.dat"), "boing\tc:\\wavs\\boing.wav\r\n");
  stays.Kill();
  EXPECT_TRUE(IsUp(Program())) << "what is dead doesn't count";
}

// --- Settings that aren't of this program's making -----------------------------------------------

struct Kind {
  const char* name;
  DWORD type;
  std::string bytes;
  int top;  // where the toolbar stands by it, in pixels
};

void SetAll(const Kind& kind) {
  constexpr std::pair<const char*, const char*> kKeys[] = {{"", "UIMode"},
                                                           {"Toolbar", "MenuAccess"},
                                                           {"Toolbar", "Top"},
                                                           {"Toolbar", "Left"},
                                                           {"Toolbar", "Pos"},
                                                           {"User Colors", "WindowColor"},
                                                           {"Clock", "Show"},
                                                           {"Wav List", "Default Category"},
                                                           {"Wav List", "Double-click"},
                                                           {"IM", "TabsOn"},
                                                           {"IM", "MaxLogs"},
                                                           {"IM", "Style"},
                                                           {"Fader", "FadeNumber"},
                                                           {"Fader", "Default"},
                                                           {"Categories", "Mine"},
                                                           {"E-Mail", "DefaultMsg"},
                                                           {"HotWords", "OneWavPath"},
                                                           {"Garland", "Current"}};
  for (const auto& [section, name] : kKeys) {
    HKEY key = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER,
                  (std::string("Software\\QRV Software\\Corvel\\") + section).c_str(), &key);
    RegSetValueExA(key, name, 0, kind.type, reinterpret_cast<const BYTE*>(kind.bytes.data()),
                   static_cast<DWORD>(kind.bytes.size()));
    RegCloseKey(key);
  }
}

TEST_F(Life, ValuesOfAnyTypeAndLengthAreReadOrTakenForUnset) {
  StartClient();
  const Kind kKinds[] = {
      {"binary", REG_BINARY, std::string("1500\0", 5), 0},
      {"a number", REG_DWORD, std::string("\xDC\x05\0\0", 4), 100},
      {"half a number", REG_DWORD, std::string("\xDC\x05", 2), 100},
      {"a long text", REG_SZ, std::string(65535, '7') + '\0', 0},
      {"nothing", REG_SZ, "", 0},
      {"a text without an end", REG_SZ, "1500", 100},
      {"texts", REG_MULTI_SZ, std::string("1500\0\0", 6), 0},
  };
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.name);
    SetAll(kind);
    const Program program;
    ASSERT_TRUE(IsUp(program));
    RECT place{};
    GetWindowRect(program.Toolbar(), &place);
    EXPECT_EQ(place.top, kind.top);
    ASSERT_TRUE(program.Press("&Wavs") && program.ChooseByKeys({VK_DOWN, VK_RETURN}));
    EXPECT_TRUE(program.Says("Directory not found!")) << "none is a category's folder";
    ASSERT_TRUE(program.Press("OK"));
    EXPECT_TRUE(Until([&] { return program.Shown("&Send") != nullptr; })) << program.Texts();
    EXPECT_TRUE(program.AnswersEverywhere(1000));
  }
}

// --- The end of the session ----------------------------------------------------------------------

class SessionEnd : public ProgramTest {
 protected:
  // As the system does it: each window is asked, and then told whether the session ends.
  static void Tell(const Process& process, bool ends) {
    for (const HWND window : process.Windows()) EXPECT_EQ(Send(window, WM_QUERYENDSESSION, 0), 1);
    for (const HWND window : process.Windows()) Send(window, WM_ENDSESSION, ends);
  }

 private:
  static LRESULT Send(HWND window, UINT message, WPARAM wParam) {
    DWORD_PTR reply = 0;
    SendMessageTimeoutA(window, message, wParam, 0, SMTO_NORMAL, kPatience, &reply);
    return static_cast<LRESULT>(reply);
  }
};

TEST_F(SessionEnd, TakesTheProgramDownInOrderWhateverItWaitsFor) {
  StartClient();
  Set("Toolbar", "MenuAccess", "Menu");
  {
    const Program program;
    ASSERT_TRUE(Until([&] { return HasMenuRow("&WavList") && IsWindowEnabled(Frame()); }));
    Tell(program, false);
    EXPECT_FALSE(program.Ends(300)) << "the user has thought better of it";
    Tell(program, true);
    EXPECT_FALSE(HasMenuRow("&WavList")) << "the system may end the program at once now";
    EXPECT_TRUE(program.EndsWell());
    EXPECT_EQ(AgentsInClient(), 0);
  }
  Set("Toolbar", "MenuAccess", "Toolbar");
  const std::function<bool(const Program&)> kWaits[] = {
      [](const Program& program) {
        return program.Close("&Wavs") && program.Says("Are you sure you wish to exit");
      },
      [](const Program& program) {
        return program.Press("&Wavs") && Until([&] { return program.HasMenuOpen(); });
      }};
  for (const auto& waits : kWaits) {
    Set("Toolbar", "Top", "");
    const Program program;
    ASSERT_TRUE(IsUp(program));
    ASSERT_TRUE(waits(program));
    Tell(program, true);
    EXPECT_TRUE(program.EndsWell());
    EXPECT_NE(Setting("Toolbar", "Top"), "");
  }
  const Program program;
  ASSERT_TRUE(Until([&] { return !IsWindowEnabled(Frame()); })) << "in the middle of the start";
  Tell(program, true);
  EXPECT_TRUE(program.EndsWell());
  EXPECT_TRUE(IsWindowEnabled(Frame()));
  EXPECT_TRUE(Chats("goes on"));
}

}  // namespace
}  // namespace corvel::test
