// Asking web servers.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class WebTest : public testing::Test {
 protected:
  std::unique_ptr<WebRequest> Begin(const std::string& address) {
    std::unique_ptr<WebRequest> request;
    home->Run([&] { request = web.Begin("Corvel 32", address); });
    return request;
  }
  // Its error, or the text.
  std::string Outcome(WebRequest& request) {
    for (int i = 0; i < 500 && !request.IsOver(); ++i) home->RunFor(20);
    EXPECT_TRUE(request.IsOver());
    EXPECT_TRUE(request.Error() == 0 || request.Text().empty());
    return request.Error() ? std::to_string(request.Error()) : request.Text();
  }
  std::string Ask(const std::string& address) { return Outcome(*Begin(address)); }

  std::unique_ptr<Home> home = MakeHome();
  Web& web = home->platform().web;
};

TEST_F(WebTest, AServersTextComesAsItIs) {
  const std::string bytes("\0\r\n\xFF<html>", 10);
  const auto request = Begin(home->Serve("/ver/wav_ver32", "9.1.0"));
  EXPECT_TRUE(request->IsOver() || request->Text().empty());
  EXPECT_EQ(Outcome(*request), "9.1.0");
  EXPECT_EQ(Outcome(*request), "9.1.0") << "and stays";
  EXPECT_EQ(Ask(home->Serve("/ver/wav_ver32", bytes)), bytes);
  EXPECT_EQ(Ask(home->Serve("/empty", "")), "");
}

TEST_F(WebTest, OfALongTextTheFirst64KilobytesCome) {
  std::string text;
  while (text.size() < 100'000) text += std::to_string(text.size()) + ' ';
  EXPECT_EQ(Ask(home->Serve("/long", text)), text.substr(0, 65536));
  text.resize(65536);
  EXPECT_EQ(Ask(home->Serve("/long", text)), text);
}

TEST_F(WebTest, EachFailureHasTheLibrarysNumber) {
  EXPECT_EQ(Ask("http://no-such-host.invalid/ver"), "12007");
  EXPECT_EQ(Ask(home->DeadAddress()), "12029");
  EXPECT_EQ(Ask("nonsense"), "12006");
}

TEST_F(WebTest, ASilentServerHoldsNobodyUpAndCanBeLetGoOfAtOnce) {
  const std::string good = home->Serve("/good", "good"), silent = home->SilentAddress();
  Clock& clock = home->platform().clock;
  auto waits = Begin(silent);
  EXPECT_EQ(Ask(good), "good") << "while another waits";
  EXPECT_FALSE(waits->IsOver());
  EXPECT_EQ(waits->Error(), 0u);
  const std::uint32_t begin = clock.TickCount();
  waits.reset();
  Begin(silent).reset();
  EXPECT_LT(clock.TickCount() - begin, 500u);
  EXPECT_EQ(Ask(good), "good");
}

}  // namespace
}  // namespace corvel::test
