// The clipboard as the program relies on it.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class ClipboardTest : public testing::Test {
 protected:
  std::unique_ptr<Home> home = MakeHome();
  Clipboard& clipboard = home->platform().clipboard;
};

TEST_F(ClipboardTest, TextsAreKeptByFormatUntilEmptied) {
  const auto mail = clipboard.RegisterFormat("AOLMAIL");
  ASSERT_TRUE(clipboard.Open({}));
  clipboard.Empty();
  EXPECT_TRUE(clipboard.Set(kClipboardText, "plain"));
  EXPECT_TRUE(clipboard.Set(mail, std::string("rich\0rest", 9)));
  clipboard.Close();
  ASSERT_TRUE(clipboard.Open({}));
  EXPECT_EQ(clipboard.Get(kClipboardText), "plain");
  EXPECT_EQ(clipboard.Get(mail), "rich");
  clipboard.Empty();
  EXPECT_EQ(clipboard.Get(mail), std::nullopt);
  clipboard.Close();
}

TEST_F(ClipboardTest, AFormatHasOneNumberForTheSession) {
  const auto mail = clipboard.RegisterFormat("AOLMAIL");
  EXPECT_GE(mail, 0xC000u);
  EXPECT_EQ(clipboard.RegisterFormat("aolmail"), mail);
  EXPECT_NE(clipboard.RegisterFormat("Other"), mail);
}

TEST_F(ClipboardTest, ItIsOpenOnceAndUsedOnlyWhileOpen) {
  EXPECT_FALSE(clipboard.Set(kClipboardText, "x"));
  EXPECT_EQ(clipboard.Get(kClipboardText), std::nullopt);
  ASSERT_TRUE(clipboard.Open({}));
  EXPECT_FALSE(clipboard.Open({}));
  clipboard.Close();
  clipboard.Close();
  EXPECT_TRUE(clipboard.Open({}));
  clipboard.Close();
}

}  // namespace
}  // namespace corvel::test
