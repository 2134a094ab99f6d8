#include "core/dialogs.h"

#include "base/error.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/report_error.h"
#include "core/start_checks.h"
#include "tests/core/core_fixture.h"

namespace corvel {
namespace {

class DialogsTest : public CoreTest {
 protected:
  int Ask(int style) {
    int result = 0;
    As([&] { result = MsgBoxEx(*program_, "text", style); });
    return result;
  }
  std::string Choose(const FolderQuestion& question) {
    std::string folder = "?";
    As([&] { folder = ChooseFolder(*program_, question); });
    return folder;
  }
};

TEST_F(DialogsTest, EachButtonSetHasItsButtonsDefaultAndEscape) {
  struct Case {
    int style;
    std::vector<std::string> captions;
    std::vector<int> results;
    int byEnter, byEscape;  // 0: Escape does nothing
  };
  const Case cases[] = {
      {0, {"OK"}, {1}, 1, 1},
      {1 + 32, {"OK", "Cancel"}, {1, 2}, 1, 2},
      {2 + 16, {"Abort", "Retry", "Ignore"}, {3, 4, 5}, 3, 0},
      {3 + 48 + 256, {"Yes", "No", "Cancel"}, {6, 7, 2}, 7, 2},
      {3 + 512, {"Yes", "No", "Cancel"}, {6, 7, 2}, 2, 2},
      {4 + 32 + 256, {"Yes", "No"}, {6, 7}, 7, 0},
      {5 + 64, {"Retry", "Cancel"}, {4, 2}, 4, 2},
      {4 + 512, {"Yes", "No"}, {6, 7}, 6, 0},
      {15, {"OK"}, {1}, 1, 1},
      {4 + 32 + 64, {"Yes", "No"}, {6, 7}, 6, 0},
      {4 + 16 + 64 + 256 + 512, {"Yes", "No"}, {6, 7}, 6, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.style);
    const int count = static_cast<int>(c.captions.size());
    int byDefault = -1;
    for (int i = 0; i < count; ++i) {
      Then([&, i] {
        EXPECT_EQ(State("frmMsg", "Command1", i).text, c.captions[static_cast<std::size_t>(i)]);
        if (State("frmMsg", "Command1", i).isDefault) byDefault = i;
        for (int other = count; other < 3; ++other)
          EXPECT_FALSE(State("frmMsg", "Command1", other).visible);
      });
      ThenClick("frmMsg", "Command1", i);
      EXPECT_EQ(Ask(c.style), c.results[static_cast<std::size_t>(i)]);
    }
    ThenPress("frmMsg", "Command1", Key::kEnter, byDefault);
    EXPECT_EQ(Ask(c.style), c.byEnter);
    ThenPress("frmMsg", "Command1", Key::kEscape, 0);
    if (!c.byEscape) ThenClick("frmMsg", "Command1", 0);
    EXPECT_EQ(Ask(c.style), c.byEscape ? c.byEscape : c.results[0]);
    ThenClose("frmMsg");
    if (!c.byEscape) ThenClick("frmMsg", "Command1", 0);
    EXPECT_EQ(Ask(c.style), c.byEscape ? c.byEscape : c.results[0]) << "the close box";
  }
}

TEST_F(DialogsTest, OfSeveralIconsTheOneFromTheTopShows) {
  const std::pair<int, Picture> cases[] = {{0, Picture::kNone},
                                           {16, Picture::kStop},
                                           {32, Picture::kQuestion},
                                           {48, Picture::kExclamation},
                                           {64, Picture::kInformation},
                                           {4 + 32 + 64, Picture::kInformation},
                                           {16 + 64, Picture::kInformation}};
  for (const auto& [style, picture] : cases) {
    Then([this, picture = picture] {
      EXPECT_EQ(State("frmMsg", "Picture1").picture, picture);
      EXPECT_EQ(State("frmMsg", "Picture1").visible, picture != Picture::kNone);
    });
    ThenClick("frmMsg", "Command1", 0);
    Ask(style);
  }
}

TEST_F(DialogsTest, AMessageKeepsItsMarkUpAndSaysItWithout) {
  bool noShow = false;
  Then([this] {
    const auto form = desk_.peers().FindForm("frmMsg");
    EXPECT_EQ(form->state->caption, "Corvel 32 - 9.1.0");
    EXPECT_TRUE(form->state->topMost);
    EXPECT_EQ(State("frmMsg", "Picture2").text, "~B~CRtitle~B~CN~N ~Ntext");
    EXPECT_EQ(State("frmMsg", "Picture2").accessibleName, "title\n \ntext");
    EXPECT_EQ(State("frmMsg", "Picture1").picture, Picture::kStop);
  });
  ThenClick("frmMsg", "chkNoShow");
  ThenClick("frmMsg", "Command1", 0);
  As([&] {
    MsgBoxEx(*program_, "~B~CRtitle~B~CN~N ~Ntext", style::kOk + style::kStop,
             {.doNotShow = &noShow});
  });
  EXPECT_TRUE(noShow);
  EXPECT_FALSE(desk_.peers().FindForm("frmMsg"));
}

TEST_F(DialogsTest, MessagesStackAndTheWayDownAnswersThemHarmlessly) {
  int outer = 0;
  Then([&] {
    desk_.PostTask(process_, [&] {
      EXPECT_EQ(MsgBoxEx(*program_, "inner", style::kYesNo), answer::kNo);
      EXPECT_EQ(MsgBoxEx(*program_, "behind the way down", style::kOkCancel), answer::kCancel);
      EXPECT_EQ(InputBoxEx(*program_, "behind the way down", "preset"), "");
    });
  });
  Then([&] {
    EXPECT_EQ(desk_.peers().Forms().size(), 2u);
    desk_.PostTask(process_, [&] { UnloadAllForms(*program_, false); });
  });
  As([&] { outer = MsgBoxEx(*program_, "outer", style::kYesNoCancel); });
  EXPECT_EQ(outer, answer::kCancel);
  EXPECT_TRUE(program_->g.Unloading);
  EXPECT_TRUE(desk_.peers().Forms().empty());
}

TEST_F(DialogsTest, AnInputGivesItsTextOnOkAndEnterOnly) {
  const auto ask = [this] {
    std::string text;
    As([&] { text = InputBoxEx(*program_, "~BName?", "preset"); });
    EXPECT_FALSE(program_->g.InputBoxUp);
    return text;
  };
  ThenClick("frmInpBox", "Command1", 0);
  EXPECT_EQ(ask(), "preset");
  ThenType("frmInpBox", "txtInput", "typed");
  ThenPress("frmInpBox", "txtInput", Key::kEnter);
  EXPECT_EQ(ask(), "typed");
  ThenPress("frmInpBox", "txtInput", Key::kEscape);
  EXPECT_EQ(ask(), "");
  ThenClose("frmInpBox");
  EXPECT_EQ(ask(), "");
}

TEST_F(DialogsTest, AnInputIsHeldToItsLength) {
  std::string name;
  ThenType("frmInpBox", "txtInput", "123456789");
  ThenClick("frmInpBox", "Command1", 0);
  As([&] { name = InputBoxEx(*program_, "Name?", "Styles", {.maxLength = 8}); });
  EXPECT_EQ(name, "12345678");
}

TEST_F(DialogsTest, AnInputHasItsTitleAndOneInsideAnotherDoesNotEndTheFlag) {
  std::string outer = "?";
  Then([this] {
    EXPECT_EQ(desk_.peers().FindForm("frmInpBox")->state->caption, "Styles");
    desk_.PostTask(process_, [this] { EXPECT_EQ(InputBoxEx(*program_, "inner"), "typed"); });
  });
  Then([this] {
    EXPECT_EQ(desk_.peers().FindForm("frmInpBox")->state->caption, "Corvel 32 - 9.1.0");
  });
  ThenType("frmInpBox", "txtInput", "typed");
  ThenClick("frmInpBox", "Command1", 0);
  Then([this] { EXPECT_TRUE(program_->g.InputBoxUp); });
  ThenClick("frmInpBox", "Command1", 0);
  As([&] { outer = InputBoxEx(*program_, "Name?", "STYLES", {.title = "Styles"}); });
  EXPECT_EQ(outer, "STYLES");
  EXPECT_FALSE(program_->g.InputBoxUp);
}

// --- A wav that has been found -------------------------------------------------------------------

class FoundWavTest : public DialogsTest {
 protected:
  static constexpr const char* kWav = "C:\\AOL\\boing.wav";
  void SetUp() override { desk_.files().Put(kWav, "RIFF"); }
  int Show() {
    int result = 0;
    As([&] { result = MsgBoxEx(*program_, "found!", style::kOk, {.wav = kWav}); });
    return result;
  }
  // `sounds` is what the user has heard so far.
  void ThenExpectPreview(const std::string& caption, const std::vector<std::string>& sounds) {
    Then([=, this] {
      EXPECT_EQ(State("frmMsg", "Command1", 1).text, caption);
      std::vector<std::string> heard;
      for (const auto& entry : desk_.journal().Entries())
        if (entry.kind.starts_with("sound")) heard.push_back(entry.kind);
      EXPECT_EQ(heard, sounds);
    });
  }
  // The message itself, not the question over it.
  void ThenExpectEnabled(bool enabled) {
    Then([=, this] {
      for (int i = 0; i < 3; ++i) EXPECT_EQ(State("frmMsg", "Command1", i).enabled, enabled) << i;
    });
  }
};

TEST_F(FoundWavTest, IsHeardAndHushedUntilTheUserIsDone) {
  ThenExpectPreview("Preview", {});
  ThenClick("frmMsg", "Command1", 1);
  ThenExpectPreview("Hushlet", {"sound"});
  ThenClick("frmMsg", "Command1", 1);
  ThenExpectPreview("Preview", {"sound", "sound-stopped"});
  Then([this] {
    EXPECT_EQ(State("frmMsg", "Command1", 0).text, "Delete");
    EXPECT_FALSE(State("frmMsg", "Command1", 0).isDefault) << "Enter deletes nothing";
  });
  ThenPress("frmMsg", "Command1", Key::kEnter, 2);
  EXPECT_EQ(Show(), answer::kOk);
  ThenClose("frmMsg");
  EXPECT_EQ(Show(), answer::kOk);
}

TEST_F(FoundWavTest, GoesToTheRecycleBinIfTheUserWantsIt) {
  ThenClick("frmMsg", "Command1", 1);
  ThenClick("frmMsg", "Command1", 0);
  Then([this] {
    EXPECT_EQ(State("frmMsg", "Picture2").text,
              "~BDelete ~CRC:\\AOL\\boing.wav~CN ?~B~N ~NWould you like to send the above wav to "
              "the Windows Recycle Bin?");
    EXPECT_FALSE(desk_.peers().Forms().front().state->enabled) << "the message waits";
    EXPECT_TRUE(desk_.peers().FindForm("frmMsg")->state->topMost);
  });
  ThenClick("frmMsg", "Command1", 1);  // No
  ThenExpectEnabled(true);
  ThenExpectPreview("Hushlet", {"sound"});
  ThenClick("frmMsg", "Command1", 0);
  ThenClick("frmMsg", "Command1", 0);  // Yes
  ThenExpectEnabled(false);
  ThenExpectPreview("Preview", {"sound", "sound-stopped"});
  ThenClose("frmMsg");
  EXPECT_EQ(Show(), answer::kOk);
  EXPECT_FALSE(desk_.files().Exists(kWav));
}

TEST_F(FoundWavTest, StaysToBeHeardIfItCanNotBeDeleted) {
  desk_.files().Lock(kWav, true);
  ThenClick("frmMsg", "Command1", 0);
  ThenClick("frmMsg", "Command1", 0);  // Yes
  ThenExpectEnabled(false);
  ThenClick("frmReport", "cmdGoOn");
  ThenExpectEnabled(true);
  ThenClick("frmMsg", "Command1", 2);
  EXPECT_EQ(Show(), answer::kOk);
  desk_.files().Lock(kWav, false);
}

// --- Folders, colours, reports -------------------------------------------------------------------

TEST_F(DialogsTest, TheFolderChooserInsistsOnTheClientsFolder) {
  desk_.files().Put("C:\\AOL\\aol.exe", "");
  desk_.files().PutFolder("C:\\Other\\Deep");
  ThenType("frmCMDialog", "txtPath", "C:\\Other\\Deep");
  ThenClick("frmCMDialog", "Command1");
  Then([this] { EXPECT_NE(State("frmMsg", "Picture2").text.find("conatins"), std::string::npos); });
  ThenClick("frmMsg", "Command1", 0);
  ThenType("frmCMDialog", "txtPath", "C:\\AOL\\");
  ThenClick("frmCMDialog", "Command1");
  EXPECT_EQ(Choose(ClientFolderQuestion()), "C:\\AOL");
  ThenClick("frmCMDialog", "Command2");
  EXPECT_EQ(Choose(ClientFolderQuestion()), "");
}

TEST_F(DialogsTest, TheFolderChooserWalksTheTree) {
  desk_.files().Put("C:\\Wavs\\Deep\\boing.wav", "");
  const auto walk = [this](const std::string& row) {
    Then([=, this] {
      const auto& items = State("frmCMDialog", "Dir1").items;
      const auto at = std::find(items.begin(), items.end(), row) - items.begin();
      hand_.Select(Find("frmCMDialog", "Dir1", -1), static_cast<int>(at), false);
    });
    Then([this] { hand_.DoubleClick(Find("frmCMDialog", "Dir1", -1)); });
  };
  walk("Wavs");
  walk("Deep");
  Then([this] {
    EXPECT_EQ(State("frmCMDialog", "Dir1").items,
              (std::vector<std::string>{"c:\\", "Wavs", "Deep"}));
    EXPECT_EQ(State("frmCMDialog", "File1").items, std::vector<std::string>{"boing.wav"});
  });
  walk("Wavs");
  ThenClick("frmCMDialog", "Command1");
  EXPECT_EQ(Choose(WavFolderQuestion()), "c:\\Wavs");
}

TEST_F(DialogsTest, AColourIsRememberedWithTheCustomOnes) {
  program_->store.WriteKey("CustomColors", "3", "255");
  Color picked = 0;
  Then([this] { desk_.Prompts().back()->answered = true; });
  As([&] { picked = PickColor(*program_, {}, 77); });
  EXPECT_EQ(picked, 77) << "Cancel";
  EXPECT_EQ(program_->store.ReadKey("CustomColors", "3"), "255");
  EXPECT_EQ(program_->store.ReadKey("CustomColors", "15"), "16777215");
}

TEST_F(DialogsTest, AFailingStepIsReportedRetriedOrLeftOut) {
  int runs = 0;
  const auto failTwice = [&] {
    if (++runs < 3) throw RunTimeError(err::kDiskFull);
  };
  ThenClick("frmReport", "cmdRetry");
  Then([this] {
    EXPECT_EQ(State("frmReport", "lblError").text, "Error 61: Disk full");
    EXPECT_NE(State("frmReport", "lblPlace").text.find("modTest, Step"), std::string::npos);
  });
  ThenClick("frmReport", "cmdRetry");
  As([&] { EXPECT_TRUE(Reported(*program_, {"modTest", "Step"}, failTwice)); });
  EXPECT_EQ(runs, 3);
  ThenPress("frmReport", "cmdGoOn", Key::kEnter);
  runs = 0;
  As([&] { EXPECT_FALSE(Reported(*program_, {"modTest", "Step"}, failTwice)); });
  EXPECT_EQ(runs, 1);
  runs = 0;
  ThenClick("frmReport", "cmdStop");
  As([&] { EXPECT_THROW(Reported(*program_, {"modTest", "Step"}, failTwice), ProcessExit); });
  EXPECT_TRUE(program_->g.Unloading);
}

TEST_F(DialogsTest, AReportNamesTheLineOfItsOwnStep) {
  const auto fails = [] { throw RunTimeError(err::kDeviceIo); };
  const auto thenExpectLine = [this](int line) {
    Then([=, this] {
      const std::string& place = State("frmReport", "lblPlace").text;
      EXPECT_TRUE(place.ends_with("modMain, Main, line " + std::to_string(line))) << place;
    });
    ThenClick("frmReport", "cmdGoOn");
  };
  const int first = __LINE__ + 4;
  thenExpectLine(first);
  thenExpectLine(first + 1);
  As([&] {
    MainStep(*program_, {"modMain", "Main"}, fails);
    MainStep(*program_, {"modMain", "Main"}, fails);
  });
}

TEST_F(DialogsTest, AnErrorThatHasLeftItsProcedureIsNotTriedAgain) {
  Then([this] {
    EXPECT_FALSE(State("frmReport", "cmdRetry").visible);
    EXPECT_EQ(State("frmReport", "lblPlace").text, "Corvel 32 9.1.0, frmTest, cmd_Click");
  });
  ThenClick("frmReport", "cmdGoOn");
  As([&] { ReportUnhandled(*program_, "frmTest", "cmd_Click", RunTimeError(err::kDiskFull)); });
  ThenClick("frmReport", "cmdStop");
  As([&] {
    EXPECT_THROW(ReportUnhandled(*program_, "frmTest", "cmd_Click", RunTimeError(err::kDiskFull)),
                 ProcessExit);
  });
}

TEST_F(DialogsTest, OnlyMainGoesOnOverAFolderThatCanNotBeMade) {
  const auto fails = [] { throw RunTimeError(err::kPathFileAccess); };
  As([&] { MainStep(*program_, {"modMain", "Main"}, fails); });
  ThenClick("frmReport", "cmdGoOn");
  As([&] { EXPECT_FALSE(Reported(*program_, {"modMain", "LoadCorvel"}, fails)); });
}

}  // namespace
}  // namespace corvel
