// A process on the desk with forms in it, and a form whose event procedures a test fills in.
#pragma once

#include "forms/form.h"
#include "forms/menu.h"
#include "forms/subclass.h"
#include "forms/timer.h"
#include "platform/desk/desk.h"
#include "tools/hand/desk_touch.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace corvel::forms {

class TestForm : public Form {
 public:
  explicit TestForm(Forms& forms, std::string name = "frmTest") : Form(forms, std::move(name)) {}
  using Form::Arrange;
  using Form::PopupMenu;
  using Form::SetResizable;
  std::function<void(TestForm&)> onLoad, onUnload, onResize;
  std::function<bool(bool byUser)> onQueryUnload;
  std::function<void(MessageId, LParam)> onMessage;

 protected:
  void Form_Load() override { Call(onLoad); }
  void Form_Unload() override { Call(onUnload); }
  void Form_Resize() override { Call(onResize); }
  bool Form_QueryUnload(bool byUser) override { return !onQueryUnload || onQueryUnload(byUser); }
  void Form_Message(MessageId id, WParam, LParam lParam) override {
    if (onMessage) onMessage(id, lParam);
  }

 private:
  void Call(const std::function<void(TestForm&)>& procedure) {
    if (procedure) procedure(*this);
  }
};

class FormsTest : public testing::Test {
 protected:
  FormsTest() {
    struct Idle : desk::ProcessBody {
      void Start(const std::string&) override {}
      bool Finished() override { return false; }
    };
    desk_.Install("C:\\TEST\\TEST.EXE", [](desk::Desk&) { return std::make_unique<Idle>(); });
    process_ = desk_.Spawn("C:\\TEST\\TEST.EXE", "");
    desk_.RunDue();
    forms_ = std::make_unique<Forms>(desk_.platform());
  }

  void TearDown() override {
    As([this] { forms_.reset(); });
    EXPECT_EQ(desk_.LeftOpen(process_), std::vector<std::string>{});
  }

  // Runs a piece of the program.
  void As(const std::function<void()>& task) { desk_.RunAs(process_, task); }

  template <class T = TestForm, class... Arguments>
  std::shared_ptr<T> Load(Arguments&&... arguments) {
    std::shared_ptr<T> form;
    As([&] { form = forms_->LoadNew<T>(*forms_, std::forward<Arguments>(arguments)...); });
    return form;
  }

  // A wait of the program.
  void PumpFor(std::int64_t ms) {
    const std::int64_t end = desk_.NowMs() + ms;
    const auto until = static_cast<std::uint32_t>(desk_.platform().clock.TickCount() + ms);
    while (desk_.NowMs() < end)
      desk_.platform().events.Pump({"a test's wait", WaitFor::kTime, until});
  }

  desk::Desk desk_;
  tools::DeskTouch touch_{desk_};
  tools::Hand hand_{touch_};
  ProcessId process_ = 0;
  std::unique_ptr<Forms> forms_;
};

}  // namespace corvel::forms
