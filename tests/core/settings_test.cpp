// The settings tree and the load of its keys.
#include "core/settings.h"

#include "tests/core/core_fixture.h"

namespace corvel {
namespace {

constexpr const char* kRoot = "Software\\QRV Software\\Corvel";

class SettingsTest : public CoreTest {
 protected:
  void Load(bool canManageIMs = true) {
    Settings& s = program_->settings;
    const SettingsStore& store = program_->store;
    LoadUserColors(store, s);
    LoadToolbarGroup(store, s, program_->g);
    LoadWavListGroup(store, s);
    LoadEMailGroup(store, s);
    LoadWavScanGroup(store, s);
    LoadHotWordsGroup(store, s);
    LoadIMGroup(store, s, canManageIMs);
    LoadSiblingKeys(store, s);
    LoadFaderGroup(store, s);
  }
  void Raw(std::string_view section, std::string_view name, ValueType type, std::string bytes) {
    const std::string key = std::string(kRoot) + "\\" + std::string(section);
    ASSERT_TRUE(desk_.registry().Write(key, name, {type, std::move(bytes)}));
  }
};

TEST_F(SettingsTest, ReadsEachTypeOfValue) {
  using namespace std::string_literals;
  struct Case {
    const char* what;
    ValueType type;
    std::string bytes, expected;
  };
  const Case cases[] = {
      {"text ends at its first NUL", ValueType::kText, "abc\0def\0"s, "abc"},
      {"text without a NUL", ValueType::kText, "abc", "abc"},
      {"expandable text isn't expanded", ValueType::kExpandText, "%PATH%\0"s, "%PATH%"},
      {"number, low byte first", ValueType::kDword, "\x10\x01\0\0"s, "272"},
      {"zero bytes in the middle count", ValueType::kDword, "\x01\0\x01\0"s, "65537"},
      {"system colour", ValueType::kDword, "\x0F\0\0\x80"s, "-2147483633"},
      {"binary", ValueType::kBinary, "abc\0"s, ""},
      {"longest text", ValueType::kText, std::string(1023, 'x') + '\0', std::string(1023, 'x')},
      {"text beyond the buffer", ValueType::kText, std::string(1024, 'x') + '\0', ""},
      {"empty text", ValueType::kText, "\0"s, ""},
  };
  for (const Case& c : cases) {
    Raw("Test", "Value", c.type, c.bytes);
    EXPECT_EQ(program_->store.ReadKey("Test", "Value"), c.expected) << c.what;
  }
  EXPECT_EQ(program_->store.ReadKey("Test", "Missing"), "");
  EXPECT_EQ(program_->store.ReadKey("No such section", "Value"), "");
}

TEST_F(SettingsTest, WritesWhatItCanReadBack) {
  SettingsStore& store = program_->store;
  EXPECT_TRUE(store.WriteKey("Fader\\Schemes\\Mine", "One", "255"));
  EXPECT_TRUE(store.WriteKey("", "AOL Path", ""));
  EXPECT_EQ(store.ReadKey("fader\\schemes\\mine", "one"), "255");
  EXPECT_EQ(store.ReadKey("", "AOL Path"), " ") << "never the same as what was never set";
  EXPECT_EQ(desk_.registry().Read(std::string(kRoot) + "\\Fader\\Schemes\\Mine", "One", 99)->bytes,
            std::string("255\0", 4));
  EXPECT_EQ(store.Names("Fader\\Schemes\\Mine"), std::vector<std::string>{"One"});
  EXPECT_EQ(store.Names("Alias"), std::nullopt);
  EXPECT_TRUE(store.DeleteValue("", "AOL Path"));
  EXPECT_FALSE(store.DeleteValue("", "AOL Path"));
  EXPECT_TRUE(store.DeleteSection("Fader\\Schemes\\Mine"));
  EXPECT_EQ(store.ReadKey("Fader\\Schemes\\Mine", "One"), "");
  desk_.registry().FailWrites(true);
  EXPECT_FALSE(store.WriteKey("Clock", "Show", "True"));
}

TEST_F(SettingsTest, AnEmptyTreeGivesTheDefaultsAndIsNotWritten) {
  Load();
  const Settings& s = program_->settings;
  EXPECT_EQ(desk_.registry().ValueNames(kRoot), std::nullopt);
  EXPECT_EQ(program_->g.AccessMode, 0);
  EXPECT_EQ(s.UserColors.WindowColor, static_cast<Color>(0x8000000F));
  EXPECT_EQ(s.UserColors.ButtonForecolor, 0xAD6D00);
  EXPECT_TRUE(s.UserColors.UseShadow);
  EXPECT_FALSE(s.Toolbar.Vertical);
  EXPECT_EQ(s.Hugs.Current, std::string(20, '{') + " {%} " + std::string(20, '}'));
  EXPECT_TRUE(s.Clock.Show);
  EXPECT_FALSE(s.General.DismissBuddyInvites || s.General.PopupFact ||
               s.General.UseExternalBrowser || s.General.LaunchPR || s.General.LaunchBD);
  EXPECT_TRUE(s.General.ShowPRMenu && s.General.ShowBDMenu);
  EXPECT_EQ(s.General.BackdrapePath, "C:\\program files\\backdrape\\backdrape.exe");
  EXPECT_FALSE(s.ChatKeywords.Enabled || s.ChatKeywords.KeywordPopup);
  EXPECT_TRUE(s.ChatExtender.UseMultiline);
  EXPECT_EQ(s.ChatExtender.MultilineBurst, 1.5F);
  EXPECT_EQ(s.ChatExtender.CharsInLine, 60);
  EXPECT_TRUE(s.EWav.PlayMailWav && s.EFade.ShowToolbar);
  EXPECT_FALSE(s.QuickFind.SaveResults);
  EXPECT_EQ(s.Garland.Current, "- – —•¤•{%}•¤•— – -"_cp);
  EXPECT_FALSE(s.WavList.DoubleClickSends || s.WavList.NoAOLWavs);
  EXPECT_EQ(s.WavList.PrintDirection, "0");
  EXPECT_TRUE(s.WavList.UseUpperWavTrigger && s.Descriptions.Show);
  EXPECT_FALSE(s.Descriptions.AsWindow || s.Descriptions.SendToRoom || s.Descriptions.TrimDescrip);
  EXPECT_EQ(s.EMail.DefaultMsg, 1);
  EXPECT_EQ(s.EMail.DateFormat, "1");
  EXPECT_TRUE(s.EMail.UseSubjectStyle && s.EMail.DisplayOptions && s.EMail.IncludeTimeZone);
  EXPECT_TRUE(s.WavScan.Active && s.WavScan.Notify);
  EXPECT_FALSE(s.WavScan.ShowProperties || s.WavScan.NoPrompt || s.HotWords.ListActive[3]);
  EXPECT_EQ(s.IM.ManagerUIMode + s.IM.IMAnswerMode, 0);
  EXPECT_TRUE(s.IM.TabsOn && s.IM.EnterSends && s.IM.TabSwitches && s.IM.MultipleRows);
  EXPECT_TRUE(s.IM.RepeatAnswer && s.IM.LogIMs && s.IM.AutoAcceptAIM && s.IM.StyleTabs &&
              s.IM.PositionTop);
  EXPECT_FALSE(s.IM.LogCountNotify || s.IM.CloseIMsOnExit || s.IM.ClickGraysArrow);
  EXPECT_EQ(s.IM.MaxLogs, 30);
  EXPECT_EQ(s.Fader.Default, "Cool Fade");
  EXPECT_EQ(s.Fader.FadeNumber, 2);
  EXPECT_EQ(s.Fader.SolidFade, WideBoolean(false));
}

// A value that isn't among the words of its key leaves the field as it was at start-up.
TEST_F(SettingsTest, TakesTheWordsOfAKeyAndNoOthers) {
  struct Case {
    const char *section, *key, *text;
    std::function<std::string(const Settings&, const Globals&)> field;
    const char* expected;
  };
  const auto flag = [](bool value) { return std::string(value ? "on" : "off"); };
  const Case cases[] = {
      {"Clock", "Show", "False", [&](auto& s, auto&) { return flag(s.Clock.Show); }, "off"},
      {"Clock", "Show", " ", [&](auto& s, auto&) { return flag(s.Clock.Show); }, "off"},
      {"Clock", "Show", "true", [&](auto& s, auto&) { return flag(s.Clock.Show); }, "off"},
      {"IM", "LogIMs", " ", [&](auto& s, auto&) { return flag(s.IM.LogIMs); }, "on"},
      {"IM", "LogIMs", "  True ", [&](auto& s, auto&) { return flag(s.IM.LogIMs); }, "on"},
      {"IM", "LogIMs", "False ", [&](auto& s, auto&) { return flag(s.IM.LogIMs); }, "off"},
      {"IM", "Style", "BUTTONS", [&](auto& s, auto&) { return flag(s.IM.StyleTabs); }, "off"},
      {"IM", "Position", "Top", [&](auto& s, auto&) { return flag(s.IM.PositionTop); }, "on"},
      {"Toolbar", "MenuAccess", "Menu", [](auto&, auto& g) { return std::to_string(g.AccessMode); },
       "2"},
      {"Toolbar", "MenuAccess", "menu", [](auto&, auto& g) { return std::to_string(g.AccessMode); },
       "0"},
      {"Toolbar", "Pos", "Vertical", [&](auto& s, auto&) { return flag(s.Toolbar.Vertical); },
       "on"},
      {"E-Mail", "DefaultMsg", "abc",
       [](auto& s, auto&) { return std::to_string(s.EMail.DefaultMsg); }, "1"},
      {"E-Mail", "DefaultMsg", "7",
       [](auto& s, auto&) { return std::to_string(s.EMail.DefaultMsg); }, "7"},
      {"E-Mail", "DateFormat", "3", [](auto& s, auto&) { return s.EMail.DateFormat; }, ""},
      {"E-Mail", "AliasName", " ", [](auto& s, auto&) { return s.EMail.AliasName; }, " "},
      {"IM", "IMAnswerMode", "9", [](auto& s, auto&) { return std::to_string(s.IM.IMAnswerMode); },
       "0"},
      {"IM", "IMAnswerMode", "5", [](auto& s, auto&) { return std::to_string(s.IM.IMAnswerMode); },
       "5"},
      {"IM", "MaxLogs", " 12 ", [](auto& s, auto&) { return std::to_string(s.IM.MaxLogs); }, "12"},
      {"IM", "MaxLogs", " ", [](auto& s, auto&) { return std::to_string(s.IM.MaxLogs); }, "30"},
      {"ChatExtender", "CharsInLine", "lots",
       [](auto& s, auto&) { return std::to_string(s.ChatExtender.CharsInLine); }, "60"},
      {"ChatExtender", "CharsInLine", "1e99",
       [](auto& s, auto&) { return std::to_string(s.ChatExtender.CharsInLine); }, "60"},
      {"Fader", "FadeNumber", "70000",
       [](auto& s, auto&) { return std::to_string(s.Fader.FadeNumber); }, "2"},
      {"Fader", "One", "-2147483633", [](auto& s, auto&) { return std::to_string(s.Fader.One); },
       "-2147483633"},
      {"Fader", "SolidFade", "True",
       [](auto& s, auto&) { return std::to_string(s.Fader.SolidFade.bits); }, "-1"},
  };
  for (const Case& c : cases) {
    program_->settings = {};
    program_->g.AccessMode = 0;
    ASSERT_TRUE(program_->store.WriteKey(c.section, c.key, c.text));
    Load();
    EXPECT_EQ(c.field(program_->settings, program_->g), c.expected)
        << c.section << " " << c.key << " '" << c.text << "'";
    program_->store.DeleteValue(c.section, c.key);
  }
}

TEST_F(SettingsTest, TheOldestClientHasNoManagerWhateverIsStored) {
  for (const char* key : {"TabsOn", "EnterSends", "TabSwitches", "MultipleRows"})
    program_->store.WriteKey("IM", key, "True");
  program_->settings.IM.TabsOn = true;
  Load(false);
  const auto& im = program_->settings.IM;
  EXPECT_FALSE(im.TabsOn || im.EnterSends || im.TabSwitches || im.MultipleRows);
  EXPECT_TRUE(im.LogIMs) << "the other keys are read as ever";
}

}  // namespace
}  // namespace corvel
