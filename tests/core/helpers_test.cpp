#include "core/helpers.h"

#include "core/frmCV7.h"
#include "core/looks.h"
#include "core/main.h"
#include "core/not_built.h"
#include "core/settings_im.h"
#include "core/settings_mail.h"
#include "core/settings_shell.h"
#include "core/start_checks.h"
#include "tests/core/core_fixture.h"

#include <utility>

namespace corvel {
namespace {

class HelpersTest : public CoreTest {
 protected:
  struct PlacedForm : ProgramForm {
    explicit PlacedForm(Program& p) : ProgramForm(p, "frmPlaced") {}
    void Form_Load() override { SetSize(3000, 1500); }
  };
};

TEST_F(HelpersTest, AFormIsPulledBackOnTheScreen) {
  desk_.services().SetDisplay(16, 800, 600);  // 12000 by 9000 twips
  struct Case {
    const char *left, *top;
    int atLeft, atTop;
  };
  const Case cases[] = {
      {"150", "300", 150, 300}, {"-400", "-1", 0, 0},   {"11000", "8000", 9000, 7500},
      {"", "600", 0, 600},      {"abc", "30", 0, 30},   {"9999999999", "9999999999", 9000, 7500},
      {"0", "", 4500, 3750},    {"0", " ", 4500, 3750},
  };
  As([&] {
    auto form = program_->forms.LoadNew<PlacedForm>(*program_);
    PlaceSetting& place = program_->settings.Clock.Place;
    for (const Case& c : cases) {
      program_->store.DeleteSection("Clock");
      if (*c.left) program_->store.WriteKey("Clock", "Left", c.left);
      if (*c.top) program_->store.WriteKey("Clock", "Top", c.top);
      RestorePlace(*program_, *form, place);
      EXPECT_EQ(form->Left(), c.atLeft) << c.left << "," << c.top;
      EXPECT_EQ(form->Top(), c.atTop) << c.left << "," << c.top;
    }
    SavePlace(*form, place);
  });
  EXPECT_EQ(program_->store.ReadKey("Clock", "Left"), "4500");
  EXPECT_EQ(program_->store.ReadKey("Clock", "Top"), "3750");
}

TEST_F(HelpersTest, DateAndTimeAreTextByTheUsersFormat) {
  desk_.SetWallClock({1999, 11, 21, 20, 15, 0, 0});
  desk_.SetTimeZone("Eastern Standard Time");
  auto& mail = program_->settings.EMail;
  const std::pair<DateStyle, const char*> dates[] = {
      {DateStyle::kLong, "Sunday, November 21, 1999"},
      {DateStyle::kShort, "11/21/99"},
      {DateStyle::kNone, ""}};
  for (const auto& [style, expected] : dates) {
    mail.DateFormat.SetForThisRun(style);
    EXPECT_EQ(BuildDate(*program_), expected);
  }
  mail.IncludeTimeZone.SetForThisRun(true);
  EXPECT_EQ(BuildTime(*program_), "8:15:00 PM Eastern Standard Time");
  mail.IncludeTimeZone.SetForThisRun(false);
  EXPECT_EQ(BuildTime(*program_), "8:15:00 PM");
}

TEST(Lengths, ReadAsMinutesSecondsAndHundredths) {
  const std::pair<int, const char*> cases[] = {
      {0, "00:00.00"},       {500, "00:00.50"},     {999, "00:00.99"},       {9, "00:00.00"},
      {59'999, "00:59.99"},  {60'000, "01:00.00"},  {61'500, "01:01.50"},    {119'990, "01:59.99"},
      {120'000, "02:00.00"}, {150'010, "02:30.01"}, {6'000'000, "100:00.00"}};
  for (const auto& [milliseconds, text] : cases) EXPECT_EQ(CMinSec(milliseconds), text);
}

TEST_F(HelpersTest, APauseLastsItsTimeAlsoOverTheWrapOfTheTickCount) {
  desk_.SetTickCount(0xFFFFFFFF - 100);
  const std::int64_t before = desk_.NowMs();
  As([&] { Pause(*program_, 0.5); });
  EXPECT_EQ(desk_.NowMs() - before, 500);
}

TEST_F(HelpersTest, FilesAndFoldersAreToldApart) {
  desk_.files().Put("C:\\Corvel\\data\\desc1.dat", "x");
  As([&] {
    EXPECT_TRUE(FileExists(*program_, "C:\\Corvel\\DATA\\desc*.dat"));
    EXPECT_FALSE(FileExists(*program_, "C:\\Corvel\\data\\ignore.dat"));
    EXPECT_FALSE(DirExists(*program_, ""));
    EXPECT_TRUE(DirExists(*program_, "C:\\Corvel\\data\\"));
    EXPECT_TRUE(DirExists(*program_, "C:\\"));
    EXPECT_FALSE(DirExists(*program_, "C:\\Corvel\\data\\desc1.dat"));
    MakeDirIfMissing(*program_, "C:\\Corvel\\data\\im");
    MakeDirIfMissing(*program_, "C:\\Corvel\\data\\im");
    EXPECT_TRUE(DirExists(*program_, "C:\\Corvel\\data\\im"));
  });
}

TEST_F(HelpersTest, AMissingHelpFileIsNamed) {
  ThenClick("frmMsg", "Command1", 0);
  As([&] { ShowHelp(*program_, "Options"); });
  desk_.files().Put("C:\\Corvel\\corvel32.hlp", "");
  As([&] { ShowHelp(*program_, "Options"); });
  EXPECT_TRUE(desk_.peers().Forms().empty());
}

TEST_F(HelpersTest, TheLookGoesByTheScreenAndTheUsersChoice) {
  struct Case {
    int bits;
    const char* stored;
    int uiMode;
    bool lowColor;
  };
  const Case cases[] = {{16, "", 1, false},  {16, "1", 1, false}, {24, "2", 2, false},
                        {16, "0", 0, false}, {16, "7", 0, false}, {8, "2", 0, true},
                        {4, "", 0, true}};
  for (const Case& c : cases) {
    desk_.services().SetDisplay(c.bits, 800, 600);
    program_->store.DeleteValue("", "UIMode");
    if (*c.stored) program_->store.WriteKey("", "UIMode", c.stored);
    As([&] { ChooseLook(*program_); });
    EXPECT_EQ(program_->g.UIMode, c.uiMode) << c.bits << " " << c.stored;
    EXPECT_EQ(program_->g.LowColor, c.lowColor);
  }
}

TEST_F(HelpersTest, ButtonsAreColouredByLookAndCountry) {
  struct ButtonForm : ProgramForm {
    explicit ButtonForm(Program& p) : ProgramForm(p, "frmButton"), button(*this, "cmd") {}
    forms::FlatButton button;
  };
  struct Case {
    int uiMode;
    HouseColors house;
    bool lit;
    Color window, face, caption;
  };
  const auto system = [](unsigned number) { return static_cast<Color>(number); };
  const Case cases[] = {
      {0, {}, false, system(0x8000000F), system(0x8000000F), system(0x80000012)},
      {1, {}, false, 0xF0FBFF, 0xAD6D00, 0xFFFFFF},
      {1, {44, 55, std::nullopt}, false, 44, 55, 0xFFFFFF},
      {2, {44, 55, 66}, false, 11, 22, 33},
      {2, {}, true, 11, 192, 0xFFFFFF},
  };
  auto& colors = program_->settings.UserColors;
  colors.WindowColor.SetForThisRun(11);
  colors.ButtonForecolor.SetForThisRun(22);
  colors.ButtonText.SetForThisRun(33);
  As([&] {
    auto form = program_->forms.LoadNew<ButtonForm>(*program_);
    for (const Case& c : cases) {
      program_->g.UIMode = c.uiMode;
      program_->g.houseColors = c.house;
      SetFormColor(*program_, *form);
      SetButtonColor(*program_, c.lit, form->button);
      EXPECT_EQ(form->State().backColor, c.window);
      EXPECT_EQ(form->button.State().look.face, c.face);
      EXPECT_EQ(form->button.State().look.caption, c.caption);
    }
  });
}

struct CountedAccess : NoAccess {
  void TakeDown() override {
    ++takenDown;
    throw RunTimeError(err::kPathFileAccess);
  }
  int takenDown = 0;
};

struct StoppingIMs : NoInstantMessages {
  explicit StoppingIMs(std::function<void()> deed) : stop(std::move(deed)) {}
  void GiveBack() override {
    if (!std::exchange(stopped, true)) stop();
    throw RunTimeError(err::kPathFileAccess);
  }
  void UnhookManaged() override { throw RunTimeError(err::kPathFileAccess); }
  std::function<void()> stop;
  bool stopped = false;
};

// The user answers "stop" while an earlier way down waits: that one won't come to its end.
TEST_F(HelpersTest, WhoeverStopsTheProgramOnItsWayDownGivesAllBackFirst) {
  program_->settings.IM.TabsOn.SetForThisRun(true);
  CountedAccess access;
  StoppingIMs ims([&] {
    EXPECT_THROW(StopProgram(*program_), ProcessExit);
    EXPECT_EQ(access.takenDown, 1);
    EXPECT_TRUE(program_->g.Unloading);
  });
  program_->hub.access = &access;
  program_->hub.instantMessages = &ims;
  As([&] {
    program_->forms.LoadNew<frmCV7>(*program_);
    UnloadAllForms(*program_, false);
  });
  EXPECT_TRUE(ims.stopped);
}

TEST_F(HelpersTest, NothingThatAFeatureFailsAtStrandsTheWayDown) {
  program_->settings.IM.TabsOn.SetForThisRun(true);
  CountedAccess access;
  StoppingIMs ims([] {});
  program_->hub.access = &access;
  program_->hub.instantMessages = &ims;
  As([&] {
    const auto toolbar = program_->forms.LoadNew<frmCV7>(*program_);
    toolbar->UnhookSubclasses();
    UnloadAllForms(*program_, false);
  });
  EXPECT_EQ(access.takenDown, 1);
  EXPECT_TRUE(program_->g.Unloading);
  EXPECT_TRUE(program_->forms.All().empty());
}

}  // namespace
}  // namespace corvel
