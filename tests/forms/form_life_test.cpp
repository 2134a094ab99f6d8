#include "platform/desk/desk_peers.h"
#include "tests/forms/forms_fixture.h"

#include <stdexcept>

namespace corvel::forms {
namespace {

struct BusyForm : TestForm {
  using TestForm::TestForm;
  ~BusyForm() override {
    if (freed) *freed = true;
  }
  Timer timer{*this, "Timer1", 100, true}, off{*this, "Timer2", 100, false};
  SubClass hook{*this, "sbcMenu", {wm::kClose}}, second{*this, "sbcRich", {wm::kClose}};
  Button button{*this, "cmdExit", "E&xit"};
  bool* freed = nullptr;
};

struct LoadedForm : TestForm {
  explicit LoadedForm(Forms& forms) : TestForm(forms, "frmLoaded") {}
  static inline std::function<void(TestForm&)> load;

 protected:
  void Form_Load() override { load(*this); }
};

class FormLife : public FormsTest {};

TEST_F(FormLife, TimersTickWhileEnabledAndLoaded) {
  const auto form = Load<BusyForm>();
  int ticks = 0, others = 0;
  form->timer.onTimer = [&] { ++ticks; };
  form->off.onTimer = [&] { ++others; };
  desk_.RunFor(1050);
  EXPECT_EQ(ticks, 10);
  EXPECT_EQ(others, 0);
  As([&] {
    form->timer.SetEnabled(false);
    form->off.SetEnabled(true);
  });
  desk_.RunFor(1050);
  EXPECT_EQ(ticks, 10);
  EXPECT_EQ(others, 10);
  As([&] { form->Unload(); });
  desk_.RunFor(500);
  EXPECT_EQ(others, 10);
}

TEST_F(FormLife, ATimerNeverEntersItselfButOthersDo) {
  const auto form = Load<BusyForm>();
  int depth = 0, deepest = 0, ticks = 0, inside = 0;
  form->timer.onTimer = [&] {
    ++ticks;
    deepest = std::max(deepest, ++depth);
    PumpFor(350);
    --depth;
  };
  form->off.onTimer = [&] { inside += depth; };
  As([&] { form->off.SetEnabled(true); });
  desk_.RunFor(1000);
  EXPECT_EQ(deepest, 1);
  EXPECT_GE(ticks, 2);
  EXPECT_LE(ticks, 4);
  EXPECT_GE(inside, 5);
}

TEST_F(FormLife, ATickUnderWayToADisabledTimerIsDropped) {
  const auto form = Load<BusyForm>();
  int ticks = 0;
  form->timer.onTimer = [&] { ++ticks; };
  const auto arrive = [&] { As([&] { form->OnMessage(wm::kTimer, 1, 0); }); };
  arrive();
  EXPECT_EQ(ticks, 1);
  As([&] { form->timer.SetEnabled(false); });
  arrive();
  EXPECT_EQ(ticks, 1);
}

TEST_F(FormLife, DeferredValuesComeLaterInOrderToTheirControl) {
  const auto form = Load<BusyForm>();
  std::string seen;
  form->hook.onWndMessage = [&](LParam value) { seen += "h" + std::to_string(value) + " "; };
  form->second.onWndMessage = [&](LParam value) { seen += "s" + std::to_string(value) + " "; };
  form->onMessage = [&](MessageId id, LParam value) {
    seen += std::to_string(id) + "=" + std::to_string(value) + " ";
  };
  As([&] {
    form->hook.Raise(1);
    form->second.Raise(-2);
    form->hook.Raise(3);
    desk_.platform().windows.Post(form->Handle(), wm::kUser + 1, 0, 515);
    EXPECT_EQ(seen, "");
  });
  desk_.RunDue();
  EXPECT_EQ(seen, "h1 s-2 h3 1025=515 ");
  As([&] {
    form->hook.Raise(4);
    form->Unload();
    form->hook.Raise(5);
  });
  desk_.RunDue();
  EXPECT_EQ(seen, "h1 s-2 h3 1025=515 ");
}

TEST_F(FormLife, HooksHoldUntilTheFormGoes) {
  const auto client = Load<TestForm>("frmClient");
  const auto form = Load<BusyForm>();
  const Window window = client->Handle();
  Hooks& hooks = desk_.platform().hooks;
  int consumed = 0;
  form->hook.onWndMessageX = [&](HookedMessage& message) {
    ++consumed;
    message.consume = true;
    form->hook.Raise(static_cast<LParam>(message.id));
  };
  As([&] {
    form->hook.SetHWnd(window);
    form->hook.SetHWnd(window);
    form->hook.Add(form->Handle());
    EXPECT_EQ(form->hook.Count(), 2);
    form->hook.Remove(form->Handle());
    EXPECT_EQ(form->hook.HWnd(), window);
    desk_.platform().windows.Send(window, wm::kClose, 0, 0);
  });
  EXPECT_EQ(consumed, 1);
  EXPECT_TRUE(client->IsLoaded());
  As([&] {
    form->Unload();
    form->hook.SetHWnd(window);  // too late
    desk_.platform().windows.Send(window, wm::kClose, 0, 0);
  });
  EXPECT_EQ(consumed, 1);
  EXPECT_EQ(form->hook.HWnd(), Window{});
  EXPECT_FALSE(hooks.IsAttached(1));
}

TEST_F(FormLife, AFormMayUnloadItselfInItsOwnEvent) {
  bool freed = false;
  auto form = Load<BusyForm>();
  form->freed = &freed;
  BusyForm& inEvent = *form;
  form->button.onClick = [&] {
    inEvent.Unload();
    EXPECT_FALSE(inEvent.IsLoaded());
    EXPECT_EQ(inEvent.Handle(), Window{});
    EXPECT_EQ(forms_->Loaded<BusyForm>(), nullptr);
    EXPECT_FALSE(freed);
    PumpFor(300);  // its timer is gone
    inEvent.button.SetCaption("still an object");
  };
  form->timer.onTimer = [] { FAIL(); };
  As([&] { form->Show(); });
  const Window button = form->button.Handle();
  form.reset();
  EXPECT_EQ(hand_.Click(button).refusal, "");
  desk_.RunDue();
  EXPECT_TRUE(freed);
}

TEST_F(FormLife, AFormMayUnloadItselfInFormLoad) {
  LoadedForm::load = [](TestForm& form) { form.Unload(); };
  As([&] {
    LoadedForm& form = forms_->Load<LoadedForm>(*forms_);
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_EQ(form.Name(), "frmLoaded");
  });
  EXPECT_TRUE(forms_->All().empty());
}

TEST_F(FormLife, AFailingFormLoadLeavesNothing) {
  LoadedForm::load = [](TestForm&) { throw RunTimeError(err::kDiskFull); };
  As([&] { EXPECT_THROW(forms_->Load<LoadedForm>(*forms_), RunTimeError); });
  EXPECT_TRUE(forms_->All().empty());
  EXPECT_EQ(desk_.peers().Forms().size(), 0u);
}

TEST_F(FormLife, QueryUnloadKeepsAFormExceptWhenAllGo) {
  std::string order;
  const auto first = Load("frmFirst"), second = Load("frmSecond");
  for (const auto& form : {first, second}) {
    form->onQueryUnload = [&order](bool byUser) {
      order += byUser ? "user " : "code ";
      return false;
    };
    form->onUnload = [&order](TestForm& unloaded) {
      order += unloaded.Name() + " ";
      unloaded.Unload();  // already on its way
    };
  }
  As([&] {
    first->UserClose();
    first->Unload();
    EXPECT_TRUE(first->IsLoaded());
    forms_->UnloadAll();
  });
  EXPECT_EQ(order, "user code code frmSecond code frmFirst ");
  EXPECT_TRUE(forms_->All().empty());
}

TEST_F(FormLife, AllGoAlsoFromInsideAQueryAndWithLateComers) {
  const auto first = Load("frmFirst");
  bool late = false;
  first->onQueryUnload = [&](bool) {
    forms_->UnloadAll();
    return false;  // too late to stay
  };
  const auto second = Load("frmSecond");
  second->onUnload = [&](TestForm&) { late = Load("frmLate")->IsLoaded(); };
  As([&] { first->Unload(); });
  EXPECT_TRUE(late);
  // A procedure that was waiting for its user meanwhile may still make a form.
  EXPECT_FALSE(Load("frmAfterwards")->IsLoaded());
  EXPECT_TRUE(forms_->All().empty());
}

TEST_F(FormLife, ErrorsOfEventProceduresAreReportedAndGoNoFurther) {
  std::string reported;
  forms_->onUnhandledError = [&](const RunTimeError& error, const char* form, const char* where) {
    reported += std::to_string(error.Number()) + form + "." + where + " ";
  };
  const auto form = Load<BusyForm>("frmTabs");
  const auto fail = [] { throw RunTimeError(err::kPathNotFound); };
  form->button.onClick = fail;
  form->timer.onTimer = fail;
  form->hook.onWndMessage = [&](LParam) { fail(); };
  form->onUnload = [&](TestForm&) { fail(); };
  As([&] {
    form->hook.Raise(1);
    form->button.UserClick();
  });
  desk_.RunFor(250);
  As([&] { form->Unload(); });
  EXPECT_EQ(reported,
            "76frmTabs.cmdExit_Click 76frmTabs.sbcMenu_WndMessage 76frmTabs.Timer1_Timer "
            "76frmTabs.Timer1_Timer 76frmTabs.Form_Unload ");
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(FormLife, FaultsOfOursAndTheEndOfTheProcessPassThrough) {
  const auto form = Load<BusyForm>();
  form->button.onClick = [] { throw std::logic_error("ours"); };
  As([&] { EXPECT_THROW(form->button.UserClick(), std::logic_error); });
  form->button.onClick = [] { throw ProcessExit{}; };
  As([&] { EXPECT_THROW(form->button.UserClick(), ProcessExit); });
  form->button.onClick = [] { throw RunTimeError(5); };  // with nobody to report to
  As([&] { EXPECT_THROW(form->button.UserClick(), std::logic_error); });
}

TEST_F(FormLife, PlacesAreKeptInTwipsAndHeldOnTheSystemsScale) {
  const auto form = Load();
  const int twips = desk_.platform().display.TwipsPerPixel();
  const Size screen = desk_.platform().display.ScreenSize();
  As([&] {
    form->SetSize(100 * twips, 50 * twips);
    form->SetTop(-7 * twips);
    form->SetLeft(20 * twips);
    EXPECT_EQ(form->State().place, (Rect{20, -7, 100, 50}));
    EXPECT_EQ(form->Top(), -7 * twips);
    form->Center();
    EXPECT_EQ(form->State().place.left, (screen.width - 100) / 2);
    EXPECT_EQ(form->State().place.top, (screen.height - 50) / 2);
    form->MoveTo(2147483647, -2147483647 - 1);
    EXPECT_EQ(form->State().place.left, 32767);
    EXPECT_EQ(form->State().place.top, -32768);
  });
}

}  // namespace
}  // namespace corvel::forms
