// The registry as the program relies on it.
#include "base/text.h"
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

using Names = std::vector<std::string>;
constexpr std::size_t kRoom = 1024;

RegistryValue Text(std::string text) { return {ValueType::kText, std::move(text) + '\0'}; }

class RegistryTest : public testing::Test {
 protected:
  RegistryTest() { registry.DeleteKey(kRoot); }
  ~RegistryTest() override { registry.DeleteKey(kRoot); }

  std::string Below(std::string_view section) { return kRoot + "\\" + std::string(section); }
  std::string ReadText(std::string_view key, std::string_view name) {
    const auto value = registry.Read(key, name, kRoom);
    return value ? CutAtNul(value->bytes) : "(none)";
  }

  const std::string kRoot = "Software\\QRV Software\\Corvel";
  std::unique_ptr<Home> home = MakeHome();
  Registry& registry = home->platform().registry;
};

TEST_F(RegistryTest, NamesAreComparedWithoutCaseAndKeepTheirs) {
  ASSERT_TRUE(registry.Write(Below("IM"), "Style", Text("tabs")));
  ASSERT_TRUE(registry.Write(Below("im"), "sTYLE", Text("buttons")));
  EXPECT_EQ(ReadText(Below("Im"), "STYLE"), "buttons");
  EXPECT_EQ(registry.ValueNames(Below("IM")), Names{"Style"});
  EXPECT_EQ(registry.SubKeyNames(kRoot), Names{"IM"});
}

TEST_F(RegistryTest, SlashesInFrontAndDoubledMeanNothing) {
  ASSERT_TRUE(registry.Write("\\" + kRoot + "\\", "UIMode", Text("1")));
  EXPECT_EQ(ReadText(kRoot, "UIMode"), "1");
  EXPECT_EQ(ReadText("Software\\\\QRV Software\\Corvel", "UIMode"), "1");
}

TEST_F(RegistryTest, AValueWrittenAnewKeepsItsPlace) {
  for (const char* name : {"Zoo", "alpha", "Mid"})
    ASSERT_TRUE(registry.Write(Below("Categories"), name, Text("old")));
  ASSERT_TRUE(registry.Write(Below("Categories"), "Zoo", Text("new")));
  EXPECT_EQ(registry.ValueNames(Below("Categories")), (Names{"Zoo", "alpha", "Mid"}));
  EXPECT_TRUE(registry.DeleteValue(Below("Categories"), "ALPHA"));
  EXPECT_FALSE(registry.DeleteValue(Below("Categories"), "ALPHA"));
  EXPECT_EQ(registry.ValueNames(Below("Categories")), (Names{"Zoo", "Mid"}));
}

TEST_F(RegistryTest, AValueComesWholeOrNotAtAll) {
  const RegistryValue dword{ValueType::kDword, std::string("\x01\x02\0\x04", 4)};
  ASSERT_TRUE(registry.Write(kRoot, "Number", dword));
  const auto read = registry.Read(kRoot, "Number", 4);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->type, ValueType::kDword);
  EXPECT_EQ(read->bytes, dword.bytes);
  EXPECT_FALSE(registry.Read(kRoot, "Number", 3));
  ASSERT_TRUE(registry.Write(kRoot, "Long", Text(std::string(1023, 'x'))));
  EXPECT_TRUE(registry.Read(kRoot, "Long", kRoom));
  ASSERT_TRUE(registry.Write(kRoot, "Long", Text(std::string(1024, 'x'))));
  EXPECT_FALSE(registry.Read(kRoot, "Long", kRoom));
}

TEST_F(RegistryTest, WhatIsNotThereIsToldFromWhatIsEmpty) {
  EXPECT_FALSE(registry.KeyExists(Below("Alias")));
  EXPECT_FALSE(registry.ValueNames(Below("Alias")));
  EXPECT_FALSE(registry.DeleteKey(Below("Alias")));
  ASSERT_TRUE(registry.Write(Below("Fader\\Schemes\\Cool Fade"), "One", Text("255")));
  EXPECT_TRUE(registry.KeyExists(Below("Fader")));
  EXPECT_EQ(registry.ValueNames(Below("Fader")), Names{});
  EXPECT_EQ(registry.SubKeyNames(Below("fader\\schemes")), Names{"Cool Fade"});
  EXPECT_TRUE(registry.DeleteKey(Below("Fader\\Schemes\\cool fade")));
  EXPECT_FALSE(registry.KeyExists(Below("Fader\\Schemes\\Cool Fade")));
  EXPECT_EQ(registry.SubKeyNames(Below("Fader\\Schemes")), Names{});
}

TEST_F(RegistryTest, AnOverlongNameIsRefusedAndMakesNothing) {
  EXPECT_FALSE(registry.Write(Below("New\\" + std::string(256, 'k')), "n", Text("v")));
  EXPECT_FALSE(registry.KeyExists(Below("New")));
}

}  // namespace
}  // namespace corvel::test
