// A process on the desk with a Program in it, and a user whose hand a test guides.
#pragma once

#include "core/features/client.h"
#include "core/program.h"
#include "platform/desk/desk.h"
#include "platform/desk/desk_peers.h"
#include "platform/desk/desk_services.h"
#include "tools/hand/desk_touch.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace corvel {

// A client that nobody knows.
class NoClient : public Client {
 public:
  Window FindFrame() override { return {}; }
  Window FindMdi() override { return {}; }
  void GetAOLVersion() override {}
  void LoadAOLStrings() override {}
  void GetScreenNames() override {}
  void MSNCheck() override {}
  bool CanFade() const override { return false; }
  bool CanManageIMs() const override { return false; }
  bool HasMainWindow() const override { return false; }
  Country CountryOf() const override { return {}; }
  bool IsAOLOnline(bool) override { return false; }
  std::string GetUserSN() override { return {}; }
  void LookForRoom() override {}
  RoomParts PartsOfRoom(Window) override { return {}; }
  Window WriteMailOnTop() override { return {}; }
  Window ReadMailOnTop() override { return {}; }
  Window RefusalBox() override { return {}; }
  Window BuddyInvitation() override { return {}; }
  Window UnreadIM() override { return {}; }
  std::string GetIMSender(Window) override { return {}; }
  MenuHandle WindowMenu() override { return {}; }
  void RunKeyword(const std::string&) override {}
};

class CoreTest : public testing::Test, public desk::Agent {
 protected:
  CoreTest() {
    struct Idle : desk::ProcessBody {
      void Start(const std::string&) override {}
      bool Finished() override { return false; }
    };
    desk_.Install("C:\\Corvel\\corvel32.exe", [](desk::Desk&) { return std::make_unique<Idle>(); });
    process_ = desk_.Spawn("C:\\Corvel\\corvel32.exe", "");
    desk_.RunDue();
    program_ = std::make_unique<Program>(desk_.platform());
    program_->g.ProgramVersion = kProgramVersion;
    program_->hub.client = &client_;
    desk_.SetAgent(this);
  }

  void TearDown() override {
    EXPECT_TRUE(deeds_.empty()) << "the program has not waited for all that the user was to do";
    As([this] { program_.reset(); });
    EXPECT_EQ(desk_.LeftOpen(process_), std::vector<std::string>{});
  }

  void As(const std::function<void()>& code) { desk_.RunAs(process_, code); }

  // What the user does when the program next waits with nothing else to happen, in order.
  void Then(std::function<void()> deed) { deeds_.push_back(std::move(deed)); }
  void ThenClick(const std::string& form, const std::string& control, int index = -1) {
    Then([=, this] { EXPECT_EQ(hand_.Click(Find(form, control, index)).refusal, ""); });
  }
  void ThenPress(const std::string& form, const std::string& control, Key key, int index = -1) {
    Then([=, this] { hand_.Press(Find(form, control, index), key); });
  }
  void ThenType(const std::string& form, const std::string& control, const std::string& text) {
    Then([=, this] { hand_.Type(Find(form, control, -1), text); });
  }
  void ThenClose(const std::string& form) {
    Then([=, this] { hand_.Close(desk_.peers().FindForm(form).value().window); });
  }

  const ControlState& State(const std::string& form, const std::string& control, int index = -1) {
    return *View(form, control, index).state;
  }

  bool Act() override {
    if (deeds_.empty()) return false;
    const auto deed = deeds_.front();
    deeds_.pop_front();
    deed();
    return true;
  }
  std::optional<std::int64_t> NextActAt() override { return std::nullopt; }

  Window Find(const std::string& form, const std::string& control, int index) {
    return View(form, control, index).window;
  }

  desk::Desk desk_;
  tools::DeskTouch touch_{desk_};
  tools::Hand hand_{touch_};
  ProcessId process_ = 0;
  NoClient client_;
  std::unique_ptr<Program> program_;

 private:
  desk::DeskPeers::ControlView View(const std::string& form, const std::string& control,
                                    int index) {
    const auto found = desk_.peers().FindForm(form);
    if (!found) throw std::logic_error("no form " + form);
    const auto view = desk_.peers().FindControl(found->window, control, index);
    if (!view) throw std::logic_error("no control " + control);
    return *view;
  }

  std::deque<std::function<void()>> deeds_;
};

}  // namespace corvel
