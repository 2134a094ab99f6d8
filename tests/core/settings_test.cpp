// The settings tree: the store below it, and the settings that are declared in it.
#include "core/settings.h"

#include "base/text.h"
#include "core/settings_chat.h"
#include "core/settings_fader.h"
#include "core/settings_im.h"
#include "core/settings_mail.h"
#include "core/settings_shell.h"
#include "core/settings_wavs.h"
#include "tests/core/core_fixture.h"

#include <set>

namespace corvel {
namespace {

constexpr const char* kRoot = "Software\\QRV Software\\Corvel";

// All that a start with AOL 4.0 loads, and what is read where it is used.
void LoadAll(Settings& settings) {
  settings.Load(LoadGroup::kLook);
  settings.LoadForClient(true);
  settings.Load(LoadGroup::kSiblings);
  settings.Load(LoadGroup::kFader);
  for (Setting* const setting : settings.tree.settings)
    if (setting->Section().group == LoadGroup::kWhenUsed) setting->Load();
}

// The settings of one start of the program.
struct Start {
  explicit Start(SettingsStore& store) : settings(store, uiMode, accessMode) {}
  int uiMode = 0, accessMode = 0;
  Settings settings;

  Setting& Named(std::string_view section, std::string_view key) {
    for (Setting* const setting : settings.tree.settings)
      if (setting->Section().name == section && setting->Key() == key) return *setting;
    throw std::logic_error("no such setting");
  }
};

class SettingsTest : public CoreTest {
 protected:
  void Raw(std::string_view section, std::string_view name, ValueType type, std::string bytes) {
    const std::string key = std::string(kRoot) + "\\" + std::string(section);
    ASSERT_TRUE(desk_.registry().Write(key, name, {type, std::move(bytes)}));
  }
  SettingsStore& store() { return program_->store; }
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
    EXPECT_EQ(store().ReadKey("Test", "Value"), c.expected) << c.what;
  }
  EXPECT_EQ(store().ReadKey("Test", "Missing"), "");
  EXPECT_EQ(store().ReadKey("No such section", "Value"), "");
}

TEST_F(SettingsTest, WritesWhatItCanReadBack) {
  EXPECT_TRUE(store().WriteKey("Fader\\Schemes\\Mine", "One", "255"));
  EXPECT_TRUE(store().WriteKey("", "AOL Path", ""));
  EXPECT_EQ(store().ReadKey("fader\\schemes\\mine", "one"), "255");
  EXPECT_EQ(store().ReadKey("", "AOL Path"), " ") << "never the same as what was never set";
  EXPECT_EQ(desk_.registry().Read(std::string(kRoot) + "\\Fader\\Schemes\\Mine", "One", 99)->bytes,
            std::string("255\0", 4));
  EXPECT_EQ(store().Names("Fader\\Schemes\\Mine"), std::vector<std::string>{"One"});
  EXPECT_EQ(store().Names("Alias"), std::nullopt);
  EXPECT_TRUE(store().DeleteValue("", "AOL Path"));
  EXPECT_FALSE(store().DeleteValue("", "AOL Path"));
  EXPECT_TRUE(store().DeleteSection("Fader\\Schemes\\Mine"));
  EXPECT_EQ(store().ReadKey("Fader\\Schemes\\Mine", "One"), "");
  desk_.registry().FailWrites(true);
  EXPECT_FALSE(store().WriteKey("Clock", "Show", "True"));
}

// --- What holds for every setting that is declared -----------------------------------------------

TEST_F(SettingsTest, AnEmptyTreeGivesTheDefaultsAndIsNotWritten) {
  Start start(store());
  LoadAll(start.settings);
  EXPECT_EQ(desk_.registry().ValueNames(kRoot), std::nullopt);
  for (const Setting* const setting : start.settings.tree.settings)
    EXPECT_EQ(setting->AsText(), setting->DefaultText()) << setting->Key();
}

// A foreign text leaves a value as it was at start-up, so none may be on before its load.
TEST_F(SettingsTest, AForeignTextLeavesAFlagOffWhateverItsDefault) {
  for (Setting* const declared : program_->settings.tree.settings)
    store().WriteKey(declared->Section().name, declared->Key(), "maybe");
  Start start(store());
  LoadAll(start.settings);
  for (Setting* const setting : start.settings.tree.settings) {
    const bool forgiving = setting->HowRead() & kForgiving;
    if (const auto* flag = dynamic_cast<const FlagSetting*>(setting))
      EXPECT_EQ(*flag, forgiving && setting->DefaultText() != "False") << setting->Key();
    else if (setting->Kind() == "text")
      EXPECT_EQ(setting->AsText(), "maybe") << setting->Key();
    else if (setting->Kind() == "integer" || setting->Kind() == "single" ||
             setting->Kind() == "colour")
      EXPECT_EQ(setting->AsText(), setting->DefaultText()) << setting->Key();
  }
  EXPECT_EQ(start.settings.EMail.DateFormat, DateStyle::kNone);
  EXPECT_EQ(start.settings.Fader.SolidFade, WideBoolean(false));
  EXPECT_EQ(start.uiMode + start.accessMode + start.settings.IM.IMAnswerMode, 0);
}

TEST_F(SettingsTest, WhatIsSetIsThereAtTheNextStartAndNoTwoShareAKey) {
  Start first(store());
  LoadAll(first.settings);
  int number = 100;
  std::vector<std::string> expected;
  for (Setting* const setting : first.settings.tree.settings) {
    if (auto* flag = dynamic_cast<FlagSetting*>(setting))
      flag->Set(!*flag);
    else if (!setting->SetText(std::to_string(number++)))
      EXPECT_TRUE(setting->SetText("1") || setting->SetText("True") || setting->SetText("Tray") ||
                  setting->SetText("Member"))
          << setting->Key();
  }
  std::set<std::string> keys;
  for (const Setting* const setting : first.settings.tree.settings) {
    expected.push_back(setting->AsText());
    EXPECT_TRUE(
        keys.insert(Lower(setting->Section().name + std::string("\\") + setting->Key())).second)
        << setting->Key();
  }
  Start second(store());
  LoadAll(second.settings);
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(second.settings.tree.settings[i]->AsText(), expected[i])
        << second.settings.tree.settings[i]->Key();
}

// --- Single rules --------------------------------------------------------------------------------

TEST_F(SettingsTest, TakesTheWordsOfAKeyAndNoOthers) {
  struct Case {
    const char *section, *key, *text, *expected;
  };
  const Case cases[] = {
      {"Clock", "Show", "False", "False"},
      {"Clock", "Show", " ", "False"},
      {"Clock", "Show", "true", "False"},
      {"User Colors", "UseShadow", "yes", "False"},
      {"User Colors", "UseShadow", " ", "True"},
      {"IM", "LogIMs", " ", "True"},
      {"IM", "LogIMs", "  True ", "True"},
      {"IM", "LogIMs", "False ", "False"},
      {"IM", "Style", "BUTTONS", "buttons"},
      {"IM", "Position", "Top", "top"},
      {"Toolbar", "MenuAccess", "Menu", "Menu"},
      {"Toolbar", "MenuAccess", "menu", "Toolbar"},
      {"Toolbar", "Pos", "Vertical", "Vertical"},
      {"E-Mail", "DefaultMsg", "abc", "1"},
      {"E-Mail", "DefaultMsg", "7", "7"},
      {"E-Mail", "DateFormat", "3", ""},
      {"E-Mail", "AliasName", " ", " "},
      {"IM", "IMAnswerMode", "9", "0"},
      {"IM", "IMAnswerMode", "5", "5"},
      {"IM", "MaxLogs", " 12 ", "12"},
      {"IM", "MaxLogs", " ", "30"},
      {"ChatExtender", "CharsInLine", "lots", "60"},
      {"ChatExtender", "CharsInLine", "1e99", "60"},
      {"ChatExtender", "MultilineBurst", "0.10", "0.1"},
      {"Fader", "FadeNumber", "70000", "2"},
      {"Fader", "One", "-2147483633", "-2147483633"},
      {"Clock", "Top", "9999999999", "2147483647"},
      {"RoomBust", "AddRoomToFreq", "perhaps", "Add"},
      {"RoomBust", "Default", "perhaps", ""},
      {"Garland", "Random", "True", "No"},
  };
  for (const Case& c : cases) {
    ASSERT_TRUE(store().WriteKey(c.section, c.key, c.text));
    Start start(store());
    LoadAll(start.settings);
    EXPECT_EQ(start.Named(c.section, c.key).AsText(), c.expected)
        << c.section << " " << c.key << " '" << c.text << "'";
    store().DeleteValue(c.section, c.key);
  }
}

TEST_F(SettingsTest, TheOldestClientHasNoManagerWhateverIsStored) {
  Settings& settings = program_->settings;
  for (FlagSetting* const flag : {&settings.IM.TabsOn, &settings.IM.EnterSends,
                                  &settings.IM.TabSwitches, &settings.IM.MultipleRows})
    flag->Set(true);
  settings.LoadForClient(false);
  const IMSettings& im = settings.IM;
  EXPECT_FALSE(im.TabsOn || im.EnterSends || im.TabSwitches || im.MultipleRows);
  EXPECT_TRUE(im.LogIMs) << "the other keys are read as ever";
  EXPECT_EQ(store().ReadKey("IM", "TabsOn"), "True") << "a newer client will have it again";
}

TEST_F(SettingsTest, SettingWritesTheKeyAtThatMomentAndHoldsWhenItCannot) {
  Settings& settings = program_->settings;
  settings.Toolbar.MenuAccess.Set(1);
  EXPECT_EQ(program_->g.AccessMode, 1);
  EXPECT_EQ(store().ReadKey("Toolbar", "MenuAccess"), "Tray");
  settings.Toolbar.MenuAccess.SetForThisRun(2);
  EXPECT_EQ(store().ReadKey("Toolbar", "MenuAccess"), "Tray");
  settings.Toolbar.MenuAccess.SetForNextStart(0);
  EXPECT_EQ(program_->g.AccessMode, 2);
  EXPECT_EQ(store().ReadKey("Toolbar", "MenuAccess"), "Toolbar");
  settings.Fader.Bold.Set(true);
  EXPECT_TRUE(settings.Fader.Fade.Bold) << "the engine has it too";
  settings.EMail.AliasName.Set("");
  EXPECT_EQ(store().ReadKey("E-Mail", "AliasName"), " ");
  EXPECT_FALSE(settings.Fader.Colors[0].SetText("255=7") || settings.Fader.Colors[0].SetText(""));
  EXPECT_EQ(store().ReadKey("Fader", "One"), "") << "what is no value is not written";
  desk_.registry().FailWrites(true);
  settings.Clock.Show.Set(true);
  EXPECT_TRUE(settings.Clock.Show);
  EXPECT_EQ(store().ReadKey("Clock", "Show"), "");
}

TEST_F(SettingsTest, WhatIsReadWhereItIsUsedIsReadAnewEachTime) {
  auto& random = program_->settings.Garland.Random;
  for (const char* const text : {"Yes", "perhaps", "Yes", "No"}) {
    store().WriteKey("Garland", "Random", text);
    EXPECT_EQ(random.Read(), std::string_view(text) == "Yes") << text;
  }
}

// --- Names of the user's own ---------------------------------------------------------------------

TEST_F(SettingsTest, NamedSectionsAreListedInOrderAndGoOneByOne) {
  NamedSections& schemes = program_->settings.Fader.Schemes;
  EXPECT_EQ(schemes.Names(), std::vector<std::string>{});
  for (const char* const name : {"Warm Fade", "a/b", "Cool Fade"})
    EXPECT_TRUE(schemes.Write(name, "One", name));
  EXPECT_EQ(schemes.Names(), (std::vector<std::string>{"Warm Fade", "a/b", "Cool Fade"}));
  EXPECT_EQ(schemes.Read("a/b", "One"), "a/b");
  EXPECT_TRUE(schemes.Delete("a/b"));
  EXPECT_FALSE(schemes.Delete("a/b"));
  EXPECT_EQ(schemes.Names(), (std::vector<std::string>{"Warm Fade", "Cool Fade"}));
}

TEST_F(SettingsTest, NoNameLeadsToAnotherSection) {
  using namespace std::string_literals;
  NamedSections& schemes = program_->settings.Fader.Schemes;
  ASSERT_TRUE(schemes.Write("Mine", "One", "1"));
  ASSERT_TRUE(store().WriteKey("Fader\\Schemes\\Mine\\Below", "One", "2"));
  for (const std::string& name : {""s, "\\"s, "\0Mine"s, "Mine\0"s, "Mine\\Below"s, "\\Mine"s,
                                  "Mine\\"s, std::string(256, 'x')}) {
    EXPECT_EQ(schemes.Read(name, "One"), "") << name;
    EXPECT_FALSE(schemes.Write(name, "One", "3")) << name;
    EXPECT_FALSE(schemes.Delete(name)) << name;
  }
  for (const std::string& root : {""s, "\\"s, "\0x"s}) EXPECT_FALSE(store().DeleteSection(root));
  EXPECT_EQ(schemes.Read("Mine", "One"), "1");
  EXPECT_EQ(store().ReadKey("Fader\\Schemes\\Mine\\Below", "One"), "2");
  FreeNames& categories = program_->settings.Categories;
  EXPECT_TRUE(categories.Write("Mine\\Below", "C:\\Wavs")) << "a value's name may hold anything";
  EXPECT_EQ(categories.Names(), std::vector<std::string>{"Mine\\Below"});
  EXPECT_TRUE(categories.Delete("Mine\\Below"));
}

}  // namespace
}  // namespace corvel
