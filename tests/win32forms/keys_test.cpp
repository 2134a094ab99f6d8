// The keyboard and the frame of a form in real windows.
#include "tests/win32forms/forms_on_windows.h"

namespace corvel::forms {
namespace {

using Words = std::vector<std::string>;

struct KeysForm : AnyForm {
  using AnyForm::AnyForm;
  Label label{*this, "label", "&Name:"};
  TextBox text{*this, "text"};
  OptionButton copy{*this, "copy", "&Copy"}, move{*this, "move", "&Move"};
  CheckBox check{*this, "check", "Chec&k"};
  Button ok{*this, "ok", "OK"}, more{*this, "more", "Mo&re"}, cancel{*this, "cancel", "Cancel"};
  ListBox list{*this, "list"};
  Words log;

  void Form_Load() override {
    ok.SetDefault(true);
    cancel.SetCancel(true);
    copy.SetValue(true);
    list.SetItems({"a", "b", "c"});
    for (Control* control : Controls())
      control->onClick = [this, control] { log.push_back(control->Name()); };
    Arrange(Column({Cell(label), Cell(text), Cell(copy), Cell(move), Cell(check), Cell(ok),
                    Cell(more), Cell(cancel), Cell(list)}));
  }
  Words Taken() { return std::exchange(log, {}); }
};

class KeysOnWindows : public FormsOnWindows {
 protected:
  KeysOnWindows() : form(forms_.LoadNew<KeysForm>(forms_)) {
    form->Show();
    Settle();
  }
  std::string Focused() {
    for (const Control* control : form->Controls())
      if (HwndOf(*control) == GetFocus()) return control->Name();
    return "";
  }
  bool ShowsAsDefault(const Control& button) {
    return (GetWindowLongPtrA(HwndOf(button), GWL_STYLE) & 0x0F) == BS_DEFPUSHBUTTON;
  }
  std::shared_ptr<KeysForm> form;
};

TEST_F(KeysOnWindows, TabFollowsTheOrderAndStopsOnceInAGroupOfOptions) {
  Words stops{Focused()};
  for (int i = 0; i < 7; ++i) {
    Key(VK_TAB);
    stops.push_back(Focused());
  }
  EXPECT_EQ(stops, (Words{"text", "copy", "check", "ok", "more", "cancel", "list", "text"}));
  EXPECT_EQ(form->Taken(), Words{});
}

TEST_F(KeysOnWindows, EnterAndEscapePressTheirButtons) {
  Key(VK_RETURN);
  EXPECT_EQ(form->Taken(), Words{"ok"});
  Key(VK_ESCAPE);
  EXPECT_EQ(form->Taken(), Words{"cancel"});
  form->more.TakeFocus();
  EXPECT_TRUE(ShowsAsDefault(form->more));
  EXPECT_FALSE(ShowsAsDefault(form->ok));
  Key(VK_RETURN);
  EXPECT_EQ(form->Taken(), Words{"more"});
  Key(VK_SPACE);
  EXPECT_EQ(form->Taken(), Words{"more"});
  form->text.TakeFocus();
  EXPECT_TRUE(ShowsAsDefault(form->ok));
  // A control's own use comes first.
  form->text.onKey = [](corvel::Key key) { return key == corvel::Key::kEnter; };
  Key(VK_RETURN);
  EXPECT_EQ(form->Taken(), Words{});
}

TEST_F(KeysOnWindows, ArrowsMoveTheChoiceAndTheRow) {
  form->move.TakeFocus();
  Settle();
  EXPECT_EQ(form->Taken(), Words{});  // the focus alone chooses nothing
  form->copy.TakeFocus();
  Key(VK_DOWN);
  EXPECT_EQ(Focused(), "move");
  EXPECT_TRUE(form->move.Value());
  EXPECT_EQ(form->Taken(), Words{"move"});
  form->list.TakeFocus();
  Key(VK_DOWN);
  Key(VK_DOWN);
  EXPECT_EQ(form->list.ListIndex(), 1);
  EXPECT_EQ(Ask(form->list, LB_GETCURSEL), 1);
  EXPECT_EQ(form->Taken(), (Words{"list", "list"}));
}

TEST_F(KeysOnWindows, AccessKeysGoToTheControlThatTheirCaptionMeans) {
  form->list.TakeFocus();
  AltLetter('n');
  EXPECT_EQ(Focused(), "text");
  AltLetter('K');
  EXPECT_EQ(form->check.Value(), 1);
  AltLetter('r');
  EXPECT_EQ(form->Taken(), (Words{"check", "more"}));
  form->more.SetEnabled(false);
  AltLetter('r');
  EXPECT_EQ(form->Taken(), Words{});
}

TEST_F(KeysOnWindows, TheFocusLeavesWhatCanNoLongerHaveIt) {
  form->ok.TakeFocus();
  form->ok.SetEnabled(false);
  EXPECT_EQ(Focused(), "more");
  form->more.SetVisible(false);
  EXPECT_EQ(Focused(), "cancel");
}

TEST_F(KeysOnWindows, AMessageBoxOfButtonsStartsOnItsDefault) {
  struct Box : AnyForm {
    using AnyForm::AnyForm;
    Button yes{*this, "yes", "Yes"}, no{*this, "no", "No"};
    void Form_Load() override {
      no.SetDefault(true);
      Arrange(Row({Cell(yes), Cell(no)}));
    }
  };
  const auto box = forms_.LoadNew<Box>(forms_);
  box->Show();
  Settle();
  EXPECT_EQ(GetFocus(), HwndOf(box->no));
}

// --- The frame -----------------------------------------------------------------------------------

TEST_F(KeysOnWindows, AFormHasTheSizeThatItsControlsNeed) {
  RECT client{};
  GetClientRect(win32::ToHwnd(form->Handle()), &client);
  const Rect& last = form->list.State().place;
  EXPECT_GT(client.bottom, last.top + last.height);
  EXPECT_LT(client.bottom, last.top + last.height + 30);
  RECT outer{};
  GetWindowRect(win32::ToHwnd(form->Handle()), &outer);
  EXPECT_EQ(outer.right - outer.left, form->State().place.width);
}

TEST_F(KeysOnWindows, MovingAndClosingAreTold) {
  EXPECT_EQ(Did(user().MoveForm(form->Handle(), 40, 50)), "");
  EXPECT_EQ(form->State().place.left, 40);
  EXPECT_EQ(form->moves, 1);
  form->SetLeft(600);
  Settle();
  EXPECT_EQ(form->moves, 1);  // code has moved it
  bool byUser = false;
  form->onQueryUnload = [&](bool user) { return byUser = user, false; };
  EXPECT_EQ(Did(user().Close(form->Handle())), "");
  EXPECT_TRUE(byUser);
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(KeysOnWindows, AFormWithoutBorderIsAllClientArea) {
  struct Bare : AnyForm {
    explicit Bare(Forms& forms) : AnyForm(forms) {
      SetBorder(false);
      SetResizable(true);
      SetEtchedEdge(true);
    }
    Label label{*this, "label", "text"};
    void Form_Resize() override {
      label.SetPlace({0, 0, State().place.width, State().place.height});
    }
  };
  const auto bare = forms_.LoadNew<Bare>(forms_);
  bare->SetSize(60 * platform().display.TwipsPerPixel(), 20 * platform().display.TwipsPerPixel());
  bare->Show();
  Settle();
  const HWND window = win32::ToHwnd(bare->Handle());
  SetWindowPos(window, nullptr, 100, 100, 90, 40, SWP_NOZORDER);
  RECT client{}, label{};
  GetClientRect(window, &client);
  EXPECT_EQ(client.right, 90);
  EXPECT_EQ(client.bottom, 40);
  EXPECT_EQ(bare->State().place.width, 90);
  GetWindowRect(HwndOf(bare->label), &label);
  EXPECT_GT(label.left, 100);  // clear of the edge, by which the user sizes it
  EXPECT_EQ(SendMessageA(window, WM_NCHITTEST, 0, MAKELPARAM(189, 139)), HTBOTTOMRIGHT);
}

}  // namespace
}  // namespace corvel::forms
