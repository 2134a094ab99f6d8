// While the wav list waits for its user, he goes to another category, or closes it and opens a new
// one: what comes back from the wait acts on what he asked for then, and on no other list.
#include "core/settings_store.h"
#include "tests/wavlib/evening.h"

namespace corvel {
namespace {

constexpr int kNo = 7;
constexpr const char* kFavWavsFile = "C:\\Corvel\\favwavs.dat";
const std::string kGone = "gone\tc:\\old\\gone.wav\r\n", kZap = "zap\tc:\\wavs\\a.wav\r\n";

// The wav list with the category Mine (a, b), another (c), one whose folder has gone, and FavWavs.
class Waiting : public Evening {
 protected:
  Waiting() {
    SettingsStore store(desk().registry());
    store.WriteKey("Categories", "Mine", "C:\\Wavs");
    store.WriteKey("Categories", "Other", "C:\\Other");
    store.WriteKey("Categories", "Vanished", "C:\\Vanished");
    store.WriteKey("Wav List", "Default Category", "Mine");
    store.WriteKey("SendTo", "Last", "C:\\Other");
    for (const char* wav : {"C:\\Wavs\\a.wav", "C:\\Wavs\\b.wav", "C:\\Other\\c.wav"})
      stage_.PutWave(wav, 1);
    stage_.PutFile(kFavWavsFile, kGone + kZap);
    stage_.PutClient();
    script_.Then(500, [this] { stage_.StartProgram(""); });
    OpenList(5000);
    Select(100, "frmTabs.lstWav", "a");
  }

  void OpenList(std::int64_t ms) {
    Click(ms, "frmCV7.cmdWavs");
    script_.Then(100, [this] { EXPECT_EQ(user_.Choose({"Wav List"}), ""); });
  }
  void Answer(std::int64_t ms, const std::string& text) {
    Type(ms, "frmInpBox.txtInput", text);
    Press(50, "frmInpBox", "OK");
  }
  void GoTo(const std::string& category) { Select(100, "frmTabs.cboList", category); }

  // The list shows this category and nothing else, and its rows are its own.
  void ExpectShown(const std::string& category, const Texts& wavs) {
    Look(300, [this, category, wavs] {
      EXPECT_EQ(Value("frmTabs.cboList"), category);
      EXPECT_EQ(Items("frmTabs.lstWav"), wavs);
      EXPECT_EQ(Value("frmTabs.lblCount"), " Wavs - Count: " + std::to_string(wavs.size()));
      EXPECT_FALSE(user_.OpenPopup());
      EXPECT_EQ(Setting("Wav List", "Default Category"), category);
    });
  }
  std::string Setting(const char* section, const char* name) {
    return SettingsStore(desk().registry()).ReadKey(section, name);
  }
  bool Exists(const char* path) { return stage_.Peek(path).has_value(); }
  std::string File(const char* path) { return stage_.Peek(path).value_or("(none)"); }
};

// Where the user goes in a wait, and what he sees there.
struct Elsewhere {
  const char* category;
  Texts wavs;
};
const Elsewhere kOther{"Other", {"c"}}, kFavWavs{"FavWavs", {"gone", "zap"}};

class GoingElsewhere : public Waiting, public testing::WithParamInterface<Elsewhere> {
 protected:
  void GoAway() { GoTo(GetParam().category); }
  void ExpectUntouched() {
    ExpectShown(GetParam().category, GetParam().wavs);
    Look(0, [this] { EXPECT_EQ(File(kFavWavsFile), kGone + kZap); });
  }
};
INSTANTIATE_TEST_SUITE_P(To, GoingElsewhere, testing::Values(kOther, kFavWavs),
                         [](const auto& to) { return std::string(to.param.category); });

TEST_P(GoingElsewhere, RenamesTheWavThatWasMeant) {
  Select(0, "frmTabs.lstWav", "b");
  RightClick(100, "frmTabs.lstWav", "Rename Wav");
  GoAway();
  Answer(100, "z");
  ExpectUntouched();
  Look(0, [this] {
    EXPECT_TRUE(Exists("C:\\Wavs\\z.wav"));
    EXPECT_FALSE(Exists("C:\\Wavs\\b.wav"));
  });
  script_.Run();
}

TEST_P(GoingElsewhere, RenamesItAlsoOnRetry) {
  Select(0, "frmTabs.lstWav", "b");
  Look(0, [this] { stage_.LockFile("C:\\Wavs\\b.wav", true); });
  RightClick(100, "frmTabs.lstWav", "Rename Wav");
  Answer(100, "z");
  GoAway();
  Look(100, [this] { stage_.LockFile("C:\\Wavs\\b.wav", false); });
  Press(100, "frmReport", "Retry");
  ExpectUntouched();
  Look(0, [this] {
    EXPECT_TRUE(Exists("C:\\Wavs\\z.wav"));
    EXPECT_FALSE(Exists("C:\\Other\\z.wav"));
  });
  script_.Run();
}

TEST_P(GoingElsewhere, RecyclesTheWavThatWasMeant) {
  Select(0, "frmTabs.lstWav", "b");
  Click(100, "frmTabs.cmdDel");
  GoAway();
  Press(100, "frmMsg", "Yes");
  ExpectUntouched();
  Look(0, [this] { EXPECT_FALSE(Exists("C:\\Wavs\\b.wav")); });
  script_.Run();
}

TEST_P(GoingElsewhere, CopiesTheWavThatWasMeantOverAnotherOne) {
  Look(0, [this] { stage_.PutFile("C:\\Other\\b.wav", "another"); });
  Select(0, "frmTabs.lstWav", "b");
  RightClick(100, "frmTabs.lstWav", "Move Selected Wav");
  Click(100, "frmSendTo.cmdOK");
  Look(100, [this] { stage_.RemoveFile("C:\\Other\\b.wav"); });
  GoAway();
  Press(100, "frmMsg", "Yes");
  ExpectUntouched();
  Look(0, [this] { EXPECT_EQ(File("C:\\Other\\b.wav"), File("C:\\Wavs\\b.wav")); });
  script_.Run();
}

TEST_P(GoingElsewhere, PrintsTheListThatWasMeant) {
  Click(0, "frmTabs.cmdPrint");
  Look(50, [this] { EXPECT_EQ(user_.Choose({"Print to File"}), ""); });
  Answer(100, "list");
  GoAway();
  Press(100, "frmMsg", "No");
  ExpectUntouched();
  Look(0, [this] { EXPECT_EQ(File("C:\\AOL\\list.txt"), "a\r\nb\r\n"); });
  script_.Run();
}

TEST_P(GoingElsewhere, RenamesTheCategoryThatWasMeant) {
  Click(0, "frmTabs.cmdEditCat");
  GoAway();
  Answer(100, "Better");
  ExpectUntouched();
  Look(0, [this] {
    EXPECT_EQ(Items("frmTabs.cboList"), (Texts{"Other", "Vanished", "Better", "FavWavs"}));
    EXPECT_EQ(Setting("Categories", "Better"), "c:\\wavs");
    EXPECT_EQ(Setting("Categories", "Mine"), "");
  });
  script_.Run();
}

TEST_P(GoingElsewhere, DeletesTheCategoryThatWasMeant) {
  Click(0, "frmTabs.cmdDelCat");
  GoAway();
  Press(100, "frmMsg", "Yes");
  ExpectUntouched();
  Look(0, [this] { EXPECT_EQ(Items("frmTabs.cboList"), (Texts{"Other", "Vanished", "FavWavs"})); });
  script_.Run();
}

TEST_P(GoingElsewhere, FromAFolderThatIsNotThereKeepsTheLaterChoice) {
  GoTo("Vanished");
  Look(50, [this] { EXPECT_EQ(Setting("Wav List", "Default Category"), "Vanished"); });
  GoAway();
  Press(100, "frmMsg", "OK");
  ExpectUntouched();
  script_.Run();
}

TEST_F(Waiting, ForFavWavsThatCanNotBeReadAtFirst) {
  Look(0, [this] { stage_.LockFile(kFavWavsFile, true); });
  GoTo("FavWavs");
  GoTo("Other");
  Look(0, [this] { stage_.LockFile(kFavWavsFile, false); });
  Press(100, "frmReport", "Retry");
  ExpectShown("Other", {"c"});
  script_.Run();
}

// A file that has gone: the row that was asked for goes, not the one that is selected by then.
class MissingFavWav : public Waiting, public testing::WithParamInterface<bool> {};

TEST_P(MissingFavWav, GoesAlone) {
  GoTo("FavWavs");
  Select(0, "frmTabs.lstWav", "gone");
  RightClick(100, "frmTabs.lstWav", "Preview");
  Select(100, "frmTabs.lstWav", "zap");
  if (GetParam()) GoTo("Other");
  Press(100, "frmMsg", "Yes");
  if (GetParam())
    ExpectShown("Other", {"c"});
  else
    ExpectShown("FavWavs", {"zap"});
  Look(0, [this] { EXPECT_EQ(File(kFavWavsFile), kZap); });
  script_.Run();
}
INSTANTIATE_TEST_SUITE_P(AndElsewhere, MissingFavWav, testing::Bool());

TEST_F(Waiting, FavWavThatIsAddedWhileAnErrorStandsIsNotLostByRetry) {
  GoTo("FavWavs");
  Select(0, "frmTabs.lstWav", "gone");
  Look(0, [this] { stage_.FailFile(2, 61, "favwavs.dat"); });  // reading goes well
  Click(0, "frmTabs.cmdDel");
  Look(100, [this] { stage_.PutFile(kFavWavsFile, kGone + kZap + "new\tc:\\new.wav\r\n"); });
  Press(100, "frmReport", "Retry");
  Look(300, [this] { EXPECT_EQ(File(kFavWavsFile), "new\tc:\\new.wav\r\n" + kZap); });
  script_.Run();
}

TEST_F(Waiting, DescriptionOfAnotherWavIsNotShown) {
  SettingsStore(desk().registry()).WriteKey("Descriptions", "ShowAs", "Window");
  SettingsStore(desk().registry()).WriteKey("Descriptions", "Show", "False");
  RightClick(0, "frmTabs.lstWav", "Show Wav Descriptions");
  RightClick(100, "frmTabs.lstWav", "Edit Wav Description");
  Select(100, "frmTabs.lstWav", "b");
  Answer(100, "of a");
  Look(100, [this] {
    EXPECT_EQ(Value("frmDescrip.lblDes"), "No description available for the selected wav.");
    EXPECT_EQ(File("C:\\Corvel\\data\\desc1.dat"), "[Data]\r\na=of a\r\n");
  });
  script_.Run();
}

TEST_F(Waiting, NewCategoryIsAskedInFrontAndShownInAListOpenedMeanwhile) {
  Look(0, [this] { desk().files().Put("C:\\AUTOEXEC.BAT", "SET PATH=C:\\OTHER\r\n"); });
  Click(0, "frmTabs.cmdNewCat");
  Look(100, [this] { EXPECT_FALSE(user_.FindForm("frmTabs")->state->enabled); });
  Type(0, "frmCMDialog.txtPath", "C:\\Other");
  Click(50, "frmCMDialog.Command1");
  Look(100, [this] { EXPECT_TRUE(user_.FindForm("frmTabs")->state->enabled); });
  Click(0, "frmTabs.cmdClose");
  OpenList(100);
  Answer(100, "New");
  ExpectShown("New", {"c"});
  Look(0, [this] {
    EXPECT_EQ(Items("frmTabs.cboList"), (Texts{"Mine", "Other", "Vanished", "New", "FavWavs"}));
  });
  script_.Run();
}

// Also where the list shows another folder under that name: the built-in one's.
TEST_F(Waiting, PathOfANewCategoryIsReadBackAsItWasWritten) {
  Click(0, "frmTabs.cmdNewCat");
  Click(100, "frmCMDialog.Command1");
  Answer(100, "Windows Directory");
  Look(300, [this] {
    ASSERT_FALSE(desk().Prompts().empty());
    desk::Prompt& question = *desk().Prompts().back();
    EXPECT_NE(question.text.find("The path C:\\ for"), std::string::npos) << question.text;
    question.button = kNo;
    question.answered = true;
  });
  script_.Run();
}

}  // namespace
}  // namespace corvel
