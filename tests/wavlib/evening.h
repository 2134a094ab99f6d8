// An evening that a test plays by the clock: the user's deeds come also while the program waits for
// him in a dialog, which a scenario can't do.
#pragma once

#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tools/desk/desk_stage.h"
#include "tools/user.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvel {

using Texts = std::vector<std::string>;

// The user's deeds by the clock, also while the program waits.
class Script : public desk::Agent {
 public:
  explicit Script(desk::Desk& desk) : desk_(desk) {}
  // So many milliseconds behind the deed before it.
  void Then(std::int64_t ms, std::function<void()> deed) {
    end_ += ms;
    deeds_.emplace_back(end_, std::move(deed));
  }
  void Run() {
    while (desk_.NowMs() < end_ + 2000) desk_.Round(end_ + 2000);
  }
  bool Act() override {
    if (deeds_.empty() || deeds_.front().first > desk_.NowMs()) return false;
    const auto deed = std::move(deeds_.front().second);
    deeds_.pop_front();
    deed();
    return true;
  }
  std::optional<std::int64_t> NextActAt() override {
    return deeds_.empty() ? std::nullopt : std::optional(deeds_.front().first);
  }

 private:
  desk::Desk& desk_;
  std::int64_t end_ = 0;
  std::deque<std::pair<std::int64_t, std::function<void()>>> deeds_;
};

class Evening : public testing::Test {
 protected:
  Evening() { desk().SetAgent(&script_); }
  ~Evening() override { desk().SetAgent(nullptr); }

  desk::Desk& desk() { return stage_.desk(); }

  // Each so many milliseconds behind the one before.
  void Client(std::int64_t ms, const Texts& words) {
    script_.Then(ms, [this, words] {
      desk().RunAs(stage_.ClientProcess(), [&] { stage_.Client()->Do(words); });
    });
  }
  void Click(std::int64_t ms, const std::string& name) {
    script_.Then(ms, [this, name] {
      const auto control = Find(name);
      if (control) EXPECT_EQ(stage_.hand().Click(control->window).refusal, "") << name;
    });
  }
  // The button of that window that reads so.
  void Press(std::int64_t ms, const std::string& form, const std::string& caption) {
    script_.Then(ms, [this, form, caption] {
      const auto window = user_.FindForm(form);
      ASSERT_TRUE(window) << form;
      for (const auto& control : desk().peers().ControlsOf(window->window))
        if (control.state->visible && tools::PlainCaption(control.state->text) == caption) {
          EXPECT_EQ(stage_.hand().Click(control.window).refusal, "") << caption;
          return;
        }
      ADD_FAILURE() << form << " has no button " << caption;
    });
  }
  void Select(std::int64_t ms, const std::string& name, const std::string& item) {
    script_.Then(ms, [this, name, item] {
      const auto control = Find(name);
      if (!control) return;
      const int row = tools::User::FindRow(*control->state, item);
      EXPECT_EQ(stage_.hand().Select(control->window, row, false).refusal, "") << item;
    });
  }
  void Type(std::int64_t ms, const std::string& name, const std::string& text) {
    script_.Then(ms, [this, name, text] {
      const auto control = Find(name);
      if (control) EXPECT_EQ(stage_.hand().Type(control->window, text).refusal, "") << name;
    });
  }
  void RightClick(std::int64_t ms, const std::string& name, const std::string& row) {
    script_.Then(ms, [this, name] {
      const auto control = Find(name);
      if (control) EXPECT_EQ(stage_.hand().RightClick(control->window).refusal, "") << name;
    });
    script_.Then(50, [this, row] { EXPECT_EQ(user_.Choose({row}), ""); });
  }
  void Look(std::int64_t ms, std::function<void()> look) { script_.Then(ms, std::move(look)); }

  std::optional<tools::ControlView> Find(const std::string& name) {
    std::string why;
    auto control = user_.FindControl(name, why);
    EXPECT_TRUE(control) << why;
    return control;
  }
  Texts Items(const std::string& name) {
    const auto control = Find(name);
    return control ? control->state->items : Texts{};
  }
  std::string Value(const std::string& name) {
    const auto control = Find(name);
    return control ? tools::ValueOf(*control->state) : std::string();
  }

  tools::DeskStage stage_{1};
  tools::User user_{stage_};
  Script script_{desk()};
};

}  // namespace corvel
