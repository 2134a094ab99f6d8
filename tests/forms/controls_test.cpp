#include "tests/forms/forms_fixture.h"

namespace corvel::forms {
namespace {

struct DialogForm : TestForm {
  using TestForm::TestForm;
  TextBox text{*this, "txtInput"};
  Button ok{*this, "Command1", "&OK", 0}, cancel{*this, "Command1", "Cancel", 1};
  CheckBox check{*this, "chkNoShow", "Don't"};
  OptionButton horizontal{*this, "optHorz", "H"}, vertical{*this, "optVert", "V"};
  OptionButton other{*this, "optOther", "O", 1};
  Frame outer{*this, "fraOuter"}, inner{*this, "fraInner"};
  ProgressBar bar{*this, "prgStatus"};
};

class ControlsTest : public FormsTest {
 protected:
  ControlsTest() : form_(Load<DialogForm>()) {
    for (Control* control : form_->Controls())
      control->onClick = [this, control] {
        clicked_ += control->Name() + std::to_string(control->Index()) + " ";
      };
    form_->ok.SetDefault(true);
    form_->cancel.SetCancel(true);
  }

  std::string ClicksOf(const std::function<void()>& task) {
    clicked_.clear();
    As(task);
    return clicked_;
  }

  std::shared_ptr<DialogForm> form_;
  std::string clicked_;
};

TEST_F(ControlsTest, OneOptionOfAGroupIsChosen) {
  form_->other.SetValue(true);
  form_->vertical.SetValue(true);
  EXPECT_EQ(ClicksOf([&] { form_->horizontal.UserClick(); }), "optHorz-1 ");
  EXPECT_TRUE(form_->horizontal.Value());
  EXPECT_FALSE(form_->vertical.Value());
  EXPECT_TRUE(form_->other.Value());
  EXPECT_EQ(ClicksOf([&] { form_->vertical.SetValue(true); }), "");
  EXPECT_FALSE(form_->horizontal.Value());
}

TEST_F(ControlsTest, CheckBoxRaisesClickWhenItChanges) {
  EXPECT_EQ(ClicksOf([&] { form_->check.UserClick(); }), "chkNoShow-1 ");
  EXPECT_EQ(form_->check.Value(), 1);
  EXPECT_EQ(ClicksOf([&] { form_->check.SetValue(-1); }), "");
  EXPECT_EQ(ClicksOf([&] { form_->check.SetValue(0); }), "chkNoShow-1 ");
}

TEST_F(ControlsTest, EnterAndEscapePressTheButtonsMeant) {
  const auto key = [&](Control& control, Key key) {
    return ClicksOf([&control, key] { control.UserKey(key); });
  };
  EXPECT_EQ(key(form_->text, Key::kEnter), "Command10 ");
  EXPECT_EQ(key(form_->text, Key::kEscape), "Command11 ");
  EXPECT_EQ(key(form_->cancel, Key::kEnter), "Command11 ");  // the one with the focus
  EXPECT_EQ(key(form_->ok, Key::kSpace), "Command10 ");
  EXPECT_EQ(key(form_->check, Key::kSpace), "chkNoShow-1 ");
  EXPECT_EQ(key(form_->text, Key::kSpace), "");
  form_->cancel.SetDefault(true);
  EXPECT_FALSE(form_->ok.State().isDefault);
  EXPECT_EQ(key(form_->text, Key::kEnter), "Command11 ");
  form_->cancel.SetEnabled(false);
  EXPECT_EQ(key(form_->text, Key::kEnter) + key(form_->text, Key::kEscape), "");
  As([&] { EXPECT_FALSE(form_->text.UserKey(Key::kEnter)); });  // not used up
  form_->cancel.SetEnabled(true);
  form_->text.onKey = [](Key k) { return k == Key::kEnter; };
  EXPECT_EQ(key(form_->text, Key::kEnter), "");
  EXPECT_EQ(key(form_->text, Key::kEscape), "Command11 ");
}

TEST_F(ControlsTest, DisabledAndHiddenControlsTakeNoInput) {
  form_->ok.SetEnabled(false);
  form_->cancel.SetVisible(false);
  EXPECT_EQ(ClicksOf([&] {
              form_->ok.UserClick();
              form_->cancel.UserClick();
            }),
            "");
  form_->SetEnabled(false);
  As([&] { form_->text.UserText("no"); });
  EXPECT_EQ(ClicksOf([&] { form_->check.UserClick(); }) + form_->text.Text(), "");
  EXPECT_EQ(form_->check.Value(), 0);
}

TEST_F(ControlsTest, TextChangesAreNoticedWhenTheUserMakesThem) {
  std::string seen;
  form_->text.onChange = [&] { seen += form_->text.Text() + ";"; };
  As([&] {
    form_->text.UserText("a");
    form_->text.SetText("b");
    form_->text.UserText("b");
    form_->text.UserText("bc");
  });
  EXPECT_EQ(seen, "a;bc;");
}

TEST_F(ControlsTest, TheUsersTextIsHeldToItsLimitAndCodesIsNot) {
  const struct {
    const char *before, *typed, *text;
    bool changes;
  } kCases[] = {
      {"ab", "abcd", "abcd", true},      // up to the limit
      {"ab", "abcdef", "abcd", true},    // pasted beyond it
      {"abcd", "abcde", "abcd", false},  // nothing more goes in
      {"abcd", "wxyz!", "wxyz", true},   // typed over
      {"abcdefgh", "abcdefgh!", "abcdefgh", false},
      {"abcdefgh", "abfgh", "abfgh", true},  // what code has made too long can be shortened
      {"abcdefgh", "vwxyz", "vwxy", true},
  };
  form_->text.SetMaxLength(4);
  int changes = 0;
  form_->text.onChange = [&] { ++changes; };
  for (const auto& c : kCases) {
    form_->text.SetText(c.before);
    EXPECT_EQ(form_->text.Text(), c.before);
    As([&] { form_->text.UserText(c.typed); });
    EXPECT_EQ(form_->text.Text(), c.text) << c.before << " -> " << c.typed;
    EXPECT_EQ(std::exchange(changes, 0), c.changes) << c.before << " -> " << c.typed;
  }
  form_->text.SetMaxLength(0);
  As([&] { form_->text.UserText("as long as one likes"); });
  EXPECT_EQ(form_->text.Text(), "as long as one likes");
}

TEST_F(ControlsTest, ABarStaysWithinItsMaximum) {
  form_->bar.SetMaximum(3);
  form_->bar.SetValue(2);
  EXPECT_EQ(form_->bar.Value(), 2);
  form_->bar.SetValue(70000);
  EXPECT_EQ(form_->bar.Value(), 3);
  form_->bar.SetMaximum(2);
  EXPECT_EQ(form_->bar.Value(), 2);
  form_->bar.SetMaximum(0);
  form_->bar.SetValue(-1);
  EXPECT_EQ(form_->bar.Maximum(), 1);
  EXPECT_EQ(form_->bar.Value(), 0);
}

TEST_F(ControlsTest, FramesShowAndHideWhatTheyHold) {
  form_->outer.Hold(form_->inner);
  form_->inner.Hold(form_->text);
  form_->outer.SetVisible(false);
  EXPECT_FALSE(form_->text.Visible());
  form_->text.SetVisible(false);
  form_->outer.SetVisible(true);
  EXPECT_TRUE(form_->inner.Visible());
  EXPECT_FALSE(form_->text.Visible());  // hidden by itself
  form_->text.SetVisible(true);
  EXPECT_TRUE(form_->text.Visible());
}

TEST_F(ControlsTest, AreFoundByNameAndIndex) {
  EXPECT_EQ(form_->FindControl("COMMAND1", 1), &form_->cancel);
  EXPECT_EQ(form_->FindControl("Command1"), nullptr);
  {
    const Button passing(*form_, "cmdPassing");
    EXPECT_EQ(form_->FindControl("cmdPassing"), &passing);
  }
  EXPECT_EQ(form_->FindControl("cmdPassing"), nullptr);
}

TEST(PlainCaption, DropsAccessKeyMarks) {
  const struct {
    const char *caption, *plain;
  } kCases[] = {{"&OK", "OK"}, {"Fish && &Chips", "Fish & Chips"}, {"end&", "end"}, {"", ""}};
  for (const auto& c : kCases) EXPECT_EQ(PlainCaption(c.caption), c.plain);
}

}  // namespace
}  // namespace corvel::forms
