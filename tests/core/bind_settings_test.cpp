// Controls that are bound to settings, under a user's hand.
#include "core/bind_settings.h"

#include "core/helpers.h"
#include "core/settings_chat.h"
#include "core/settings_mail.h"
#include "core/settings_shell.h"
#include "tests/core/core_fixture.h"

namespace corvel {
namespace {

// A small options window.
struct frmOptions : ProgramForm {
  explicit frmOptions(Program& p)
      : ProgramForm(p, "frmOptions", "Options"),
        chkScan(*this, "chkScan", "Scan"),
        chkNotify(*this, "chkNotify", "Notify"),
        optLong(*this, "optLong", "Long"),
        optShort(*this, "optShort", "Short"),
        cboLines(*this, "cboLines"),
        cboBurst(*this, "cboBurst"),
        txtAlias(*this, "txtAlias") {}

  void Form_Load() override {
    Settings& settings = program.settings;
    for (int i = 20; i <= 92; ++i) cboLines.AddItem(std::to_string(i));
    for (const char* const row : {"0.10", "0.50", "1.50", "2"}) cboBurst.AddItem(row);
    const auto note = [this] { ++changes; };
    Bind(chkScan, settings.WavScan.Active, {.enables = {&chkNotify}, .then = note});
    Bind(chkNotify, settings.WavScan.Notify);
    Bind(settings.EMail.DateFormat, {{&optLong, DateStyle::kLong}, {&optShort, DateStyle::kShort}},
         note);
    Bind(cboLines, settings.ChatExtender.CharsInLine, note);
    Bind(cboBurst, settings.ChatExtender.MultilineBurst);
    ShowText(txtAlias, settings.EMail.AliasName);
  }

  forms::CheckBox chkScan, chkNotify;
  forms::OptionButton optLong, optShort;
  forms::ComboBox cboLines, cboBurst;
  forms::TextBox txtAlias;
  int changes = 0;
};

class BindTest : public CoreTest {
 protected:
  // Opens the window on what is stored, lets the user act, and looks at what stands then.
  void Open(const std::function<void(frmOptions&)>& act) {
    As([&] {
      program_->settings.LoadForClient(true);
      auto form = program_->forms.LoadNew<frmOptions>(*program_);
      form->Show();
      act(*form);
      form->Unload();
    });
  }
  // The user acts while the program waits.
  void User(const std::function<void()>& deed) {
    Then(deed);
    Pause(*program_, 0.1);
  }
  void Click(const char* control) {
    User([&] { EXPECT_EQ(hand_.Click(Find("frmOptions", control, -1)).refusal, ""); });
  }
  void Select(const char* control, int row) {
    User([&] { hand_.Select(Find("frmOptions", control, -1), row, false); });
  }
  std::string Stored(const char* section, const char* key) {
    return program_->store.ReadKey(section, key);
  }
};

TEST_F(BindTest, FillingTheWindowShowsTheValuesAndWritesNothing) {
  program_->store.WriteKey("WavScan", "Active", "False");
  program_->store.WriteKey("E-Mail", "DateFormat", "2");
  program_->store.WriteKey("E-Mail", "AliasName", "Me");
  Open([&](frmOptions& form) {
    EXPECT_EQ(form.chkScan.Value(), 0);
    EXPECT_EQ(form.chkNotify.Value(), 1);
    EXPECT_FALSE(form.chkNotify.Enabled());
    EXPECT_FALSE(form.optLong.Value());
    EXPECT_TRUE(form.optShort.Value());
    EXPECT_EQ(form.cboLines.Text(), "60");
    EXPECT_EQ(form.cboBurst.Text(), "1.50");
    EXPECT_EQ(form.txtAlias.Text(), "Me");
    EXPECT_EQ(form.changes, 0);
  });
  EXPECT_EQ(program_->store.Names("WavScan"), std::vector<std::string>{"Active"});
  EXPECT_EQ(program_->store.Names("ChatExtender"), std::nullopt);
  EXPECT_EQ(Stored("E-Mail", "DateFormat"), "2");
}

TEST_F(BindTest, WhatTheUserDoesIsSetAndStoredAtOnce) {
  const Settings& settings = program_->settings;
  Open([&](frmOptions& form) {
    Click("chkScan");
    EXPECT_FALSE(settings.WavScan.Active || form.chkNotify.Enabled());
    EXPECT_EQ(Stored("WavScan", "Active"), "False");
    Click("chkScan");
    EXPECT_TRUE(form.chkNotify.Enabled());
    Click("optShort");
    EXPECT_EQ(settings.EMail.DateFormat, DateStyle::kShort);
    EXPECT_EQ(Stored("E-Mail", "DateFormat"), "2");
    Select("cboLines", 3);
    EXPECT_EQ(settings.ChatExtender.CharsInLine, 23);
    EXPECT_EQ(Stored("ChatExtender", "CharsInLine"), "23");
    Select("cboBurst", 0);
    EXPECT_EQ(settings.ChatExtender.MultilineBurst, 0.1F);
    EXPECT_EQ(form.changes, 4) << "each but the last tells of it";
    User([&] { hand_.Type(Find("frmOptions", "txtAlias", -1), "You"); });
    EXPECT_EQ(Stored("E-Mail", "AliasName"), "") << "a text waits for its button";
    StoreText(form.txtAlias, program_->settings.EMail.AliasName);
    EXPECT_EQ(Stored("E-Mail", "AliasName"), "You");
    EXPECT_EQ(Stored("WavScan", "Notify") + Stored("Clock", "Show"), "") << "nobody chose these";
  });
}

TEST_F(BindTest, AValueThatNoControlHasShowsNothingAndStays) {
  program_->store.WriteKey("ChatExtender", "CharsInLine", "100");
  program_->store.WriteKey("E-Mail", "DateFormat", "3");
  Open([&](frmOptions& form) {
    EXPECT_EQ(form.cboLines.ListIndex(), -1);
    EXPECT_FALSE(form.optLong.Value() || form.optShort.Value());
    form.cboLines.SetListIndex(-1);
  });
  EXPECT_EQ(program_->settings.ChatExtender.CharsInLine, 100);
  EXPECT_EQ(Stored("ChatExtender", "CharsInLine"), "100");
  EXPECT_EQ(Stored("E-Mail", "DateFormat"), "3");
  Open([&](frmOptions&) { Click("optLong"); });
  EXPECT_EQ(Stored("E-Mail", "DateFormat"), "1");
}

TEST_F(BindTest, WhatCannotBeStoredHoldsForThisRun) {
  desk_.registry().FailWrites(true);
  Open([&](frmOptions& form) {
    Click("chkScan");
    EXPECT_FALSE(program_->settings.WavScan.Active);
    EXPECT_EQ(form.chkScan.Value(), 0);
  });
}

}  // namespace
}  // namespace corvel
