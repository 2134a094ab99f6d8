// Controls in real windows: they show their state, and what the user does reaches it once.
#include "base/text.h"
#include "tests/win32forms/forms_on_windows.h"

#include <stdexcept>

namespace corvel::forms {
namespace {

struct AllKinds : AnyForm {
  using AnyForm::AnyForm;
  Label label{*this, "label", "&Name:"};
  TextBox text{*this, "text"};
  Button ok{*this, "ok", "OK"}, cancel{*this, "cancel", "Cancel"};
  FlatButton flat{*this, "flat", "&Flat"};
  CheckBox check{*this, "check", "Chec&k"};
  OptionButton copy{*this, "copy", "Copy"}, move{*this, "move", "Move"};
  ListBox list{*this, "list", true}, marks{*this, "marks", false, true};
  ComboBox combo{*this, "combo"};
  ListView view{*this, "view", {"Wav", "Text"}};
  TabStrip tabs{*this, "tabs"};
  ProgressBar bar{*this, "bar"};
  PictureBox picture{*this, "picture"};
  Frame frame{*this, "frame", "Frame"};
  std::vector<std::string> log;

  void Form_Load() override {
    ok.SetDefault(true);
    cancel.SetCancel(true);
    copy.SetValue(true);
    for (const char* row : {"pear", "apple", "fig"}) {
      list.AddItem(row);
      combo.AddItem(row);
      tabs.AddItem(row);
      marks.AddItem(row);
    }
    view.SetItems({"a\tfirst", "b\tsecond"});
    for (Control* control : Controls())
      control->onClick = [this, control] { log.push_back(control->Name()); };
    Arrange(
        Row({Column({Cell(label), Cell(text), Cell(ok), Cell(cancel), Cell(flat), Cell(check),
                     Cell(copy), Cell(move)}),
             Column({Cell(list), Cell(marks), Cell(combo)}),
             Column({Cell(view), Cell(tabs), Cell(bar), Cell(picture), Framed(frame, Space())})}));
  }
  std::vector<std::string> Taken() { return std::exchange(log, {}); }
};

using Words = std::vector<std::string>;

class ControlsOnWindows : public FormsOnWindows {
 protected:
  ControlsOnWindows() : form(forms_.LoadNew<AllKinds>(forms_)) {
    form->Show();
    Settle();
  }
  Words MarkedRows() {
    Words rows;
    for (int row = 0; row < form->marks.ListCount(); ++row) {
      const bool shown = Ask(form->marks, LB_GETSEL, static_cast<WPARAM>(row)) > 0;
      EXPECT_EQ(shown, form->marks.Selected(row)) << "row " << row;
      if (shown) rows.push_back(form->marks.List(row));
    }
    return rows;
  }
  std::shared_ptr<AllKinds> form;
};

TEST_F(ControlsOnWindows, EachKindIsAWindowOfItsClassInItsPlace) {
  const std::pair<Control*, const char*> kClasses[] = {{&form->label, "Static"},
                                                       {&form->text, "Edit"},
                                                       {&form->ok, "Button"},
                                                       {&form->check, "Button"},
                                                       {&form->copy, "Button"},
                                                       {&form->list, "ListBox"},
                                                       {&form->combo, "ComboBox"},
                                                       {&form->view, "SysListView32"},
                                                       {&form->tabs, "SysTabControl32"},
                                                       {&form->bar, "msctls_progress32"},
                                                       {&form->flat, "CorvelControl"},
                                                       {&form->picture, "CorvelControl"},
                                                       {&form->frame, "CorvelControl"}};
  for (const auto& [control, className] : kClasses) {
    EXPECT_STRCASEEQ(platform().windows.ClassOf(control->Handle()).c_str(), className);
    RECT place{};
    GetWindowRect(HwndOf(*control), &place);
    MapWindowPoints(nullptr, win32::ToHwnd(form->Handle()), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, control->State().place.left) << control->Name();
    EXPECT_EQ(place.top, control->State().place.top) << control->Name();
    EXPECT_EQ(place.right - place.left, control->State().place.width) << control->Name();
    control->SetEnabled(false);
    EXPECT_FALSE(IsWindowEnabled(HwndOf(*control))) << control->Name();
    control->SetVisible(false);
    EXPECT_FALSE(IsWindowVisible(HwndOf(*control))) << control->Name();
    control->SetEnabled(true);
    control->SetVisible(true);
    EXPECT_TRUE(IsWindowEnabled(HwndOf(*control)) && IsWindowVisible(HwndOf(*control)))
        << control->Name();
  }
}

TEST_F(ControlsOnWindows, WhatIsSetFromCodeIsShownAndRaisesNothing) {
  form->text.onChange = [&] { form->log.push_back("change"); };
  form->text.SetText("set");
  form->label.SetCaption("L");
  form->bar.SetValue(40);
  form->copy.SetValue(false);
  form->marks.SetSelected(1, true);
  form->list.RemoveItem(0);
  form->list.AddItem("banana");
  form->view.AddItem("c\tthird");
  Settle();
  EXPECT_EQ(form->Taken(), Words{});
  EXPECT_EQ(ShownText(form->text), "set");
  EXPECT_EQ(ShownText(form->label), "L");
  EXPECT_EQ(Ask(form->bar, PBM_GETPOS), 40);
  EXPECT_EQ(Ask(form->copy, BM_GETCHECK), BST_UNCHECKED);
  EXPECT_EQ(MarkedRows(), Words{"apple"});
  Words rows;
  for (int row = 0; row < Ask(form->list, LB_GETCOUNT); ++row) {
    char text[64]{};
    Ask(form->list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    rows.push_back(text);
  }
  EXPECT_EQ(rows, (Words{"banana", "fig", "pear"}));
  char cell[64]{};
  LVITEMA item{};
  item.iSubItem = 1;
  item.pszText = cell;
  item.cchTextMax = sizeof cell;
  Ask(form->view, LVM_GETITEMTEXTA, 2, reinterpret_cast<LPARAM>(&item));
  EXPECT_STREQ(cell, "third");
}

TEST_F(ControlsOnWindows, ATypedTextArrivesOnceAlsoWhereTheProcedureSetsAnother) {
  int changes = 0;
  form->text.onChange = [&] {
    ++changes;
    form->text.SetText(Upper(form->text.Text()));
  };
  EXPECT_EQ(Did(user().Type(form->text.Handle(), "hello")), "");
  EXPECT_EQ(form->text.Text(), "HELLO");
  EXPECT_EQ(ShownText(form->text), "HELLO");
  EXPECT_EQ(changes, 1);
}

TEST_F(ControlsOnWindows, TypingAndPastingStopAtTheLimit) {
  const HWND box = HwndOf(form->text);
  form->text.SetMaxLength(4);
  for (const char letter : std::string("abcdef"))
    SendMessageA(box, WM_CHAR, static_cast<WPARAM>(letter), 1);
  Settle();
  EXPECT_EQ(ShownText(form->text), "abcd");
  EXPECT_EQ(form->text.Text(), "abcd");
  form->text.SetText("longer by code");
  SendMessageA(box, WM_CHAR, 'x', 1);
  Settle();
  EXPECT_EQ(ShownText(form->text), "longer by code");
  EXPECT_EQ(Did(user().Type(form->text.Handle(), "longer by hand")), "");
  EXPECT_EQ(ShownText(form->text), "long");
  EXPECT_EQ(form->text.Text(), "long");
  constexpr std::uint32_t kText = 1;
  ASSERT_TRUE(platform().clipboard.Open(form->Handle()));
  platform().clipboard.Empty();
  platform().clipboard.Set(kText, "pasted");
  platform().clipboard.Close();
  form->text.SetText("");
  SendMessageA(box, WM_PASTE, 0, 0);
  Settle();
  EXPECT_EQ(form->text.Text(), "past");
}

// Of a caption it marks the access key; of a text it is a character like any other.
TEST_F(ControlsOnWindows, AnAmpersandOfATextIsNotEaten) {
  struct Texts : AnyForm {
    using AnyForm::AnyForm;
    Label data{*this, "data", "R&B"};
    TabStrip tabs{*this, "tabs"};
    void Form_Load() override {
      data.SetMnemonic(false);
      data.SetToolTip("Rock & Roll");
      tabs.AddItem("R&B");
      Arrange(Column({Cell(data), Cell(tabs)}));
    }
  };
  const auto texts = forms_.LoadNew<Texts>(forms_);
  texts->Show();
  Settle();
  EXPECT_TRUE(GetWindowLongPtrA(HwndOf(texts->data), GWL_STYLE) & SS_NOPREFIX);
  EXPECT_FALSE(GetWindowLongPtrA(HwndOf(form->label), GWL_STYLE) & SS_NOPREFIX);
  char caption[64]{};
  TCITEMA item{};
  item.mask = TCIF_TEXT;
  item.pszText = caption;
  item.cchTextMax = sizeof caption;
  Ask(texts->tabs, TCM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  EXPECT_STREQ(caption, "R&&B") << "which is drawn as R&B";
  EXPECT_EQ(texts->tabs.List(0), "R&B");
  HWND tips = nullptr;
  while ((tips = FindWindowExA(nullptr, tips, TOOLTIPS_CLASSA, nullptr)) != nullptr &&
         GetWindow(tips, GW_OWNER) != win32::ToHwnd(texts->Handle()))
    ;
  EXPECT_TRUE(GetWindowLongPtrA(tips, GWL_STYLE) & TTS_NOPREFIX);
}

TEST_F(ControlsOnWindows, ClicksReachEveryClickableKind) {
  for (Control* control :
       {static_cast<Control*>(&form->ok), static_cast<Control*>(&form->flat),
        static_cast<Control*>(&form->label), static_cast<Control*>(&form->picture),
        static_cast<Control*>(&form->check), static_cast<Control*>(&form->move)}) {
    EXPECT_EQ(Did(user().Click(control->Handle())), "");
    EXPECT_EQ(form->Taken(), Words{control->Name()});
  }
  EXPECT_EQ(form->check.Value(), 1);
  EXPECT_EQ(Ask(form->check, BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(Ask(form->move, BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(Ask(form->copy, BM_GETCHECK), BST_UNCHECKED);
}

TEST_F(ControlsOnWindows, RowsAreChosenInEveryKindOfList) {
  for (Rows* rows : {static_cast<Rows*>(&form->list), static_cast<Rows*>(&form->combo),
                     static_cast<Rows*>(&form->view), static_cast<Rows*>(&form->tabs)}) {
    EXPECT_EQ(Did(user().Select(rows->Handle(), 1, false)), "");
    EXPECT_EQ(rows->ListIndex(), 1) << rows->Name();
    EXPECT_EQ(form->Taken(), Words{rows->Name()});
  }
  bool doubleClicked = false;
  form->view.onDblClick = [&] { doubleClicked = true; };
  EXPECT_EQ(Did(user().DoubleClick(form->view.Handle())), "");
  EXPECT_TRUE(doubleClicked);
}

TEST_F(ControlsOnWindows, MarksOfTheListAndOfItsWindowAreTheSame) {
  const Window marks = form->marks.Handle();
  Did(user().Select(marks, 0, false));
  EXPECT_EQ(MarkedRows(), Words{"pear"});
  Did(user().Select(marks, 2, true));
  EXPECT_EQ(MarkedRows(), (Words{"pear", "fig"}));
  Did(user().Select(marks, 0, true));  // turned over
  EXPECT_EQ(MarkedRows(), Words{"fig"});
  // A stretch of rows, as with the Shift key.
  Ask(form->marks, LB_SELITEMRANGE, TRUE, MAKELPARAM(0, 2));
  SendMessageA(win32::ToHwnd(form->Handle()), WM_COMMAND, MAKEWPARAM(0, LBN_SELCHANGE),
               reinterpret_cast<LPARAM>(HwndOf(form->marks)));
  Settle();
  EXPECT_EQ(MarkedRows(), (Words{"pear", "apple", "fig"}));
  Did(user().Select(marks, 1, false));
  EXPECT_EQ(MarkedRows(), Words{"apple"});
}

TEST_F(ControlsOnWindows, AHundredThousandRowsComeQuickly) {
  std::vector<std::string> many;
  for (int i = 0; i < 100000; ++i) many.push_back("row " + std::to_string(i));
  const DWORD begin = GetTickCount();
  form->marks.SetItems(many);
  form->view.SetItems(many);
  EXPECT_LT(GetTickCount() - begin, 3000U);
  EXPECT_EQ(Ask(form->view, LVM_GETITEMCOUNT), 100000);
  EXPECT_GE(Ask(form->marks, LB_GETCOUNT), 32767);
}

TEST_F(ControlsOnWindows, AFormMayGoInTheMidstOfAnyOfItsEvents) {
  struct Deed {
    const char* name;
    std::function<tools::Deed(AllKinds&)> act;
  };
  const Deed kDeeds[] = {
      {"ok", [this](AllKinds& f) { return user().Click(f.ok.Handle()); }},
      {"flat", [this](AllKinds& f) { return user().Click(f.flat.Handle()); }},
      {"list", [this](AllKinds& f) { return user().Select(f.list.Handle(), 1, false); }},
      {"marks", [this](AllKinds& f) { return user().Select(f.marks.Handle(), 1, false); }},
      {"view", [this](AllKinds& f) { return user().Select(f.view.Handle(), 1, false); }},
      {"combo", [this](AllKinds& f) { return user().Select(f.combo.Handle(), 1, false); }},
      {"text", [this](AllKinds& f) { return user().Type(f.text.Handle(), "x"); }},
      {"key", [this](AllKinds& f) { return user().Press(f.text.Handle(), corvel::Key::kEnter); }},
  };
  for (const Deed& deed : kDeeds) {
    const auto going = forms_.LoadNew<AllKinds>(forms_);
    going->Show();
    Settle(20);
    const HWND window = win32::ToHwnd(going->Handle());
    for (Control* control : going->Controls()) control->onClick = [&] { going->Unload(); };
    going->text.onChange = [&] { going->Unload(); };
    EXPECT_EQ(Did(deed.act(*going)), "") << deed.name;
    EXPECT_FALSE(IsWindow(window)) << deed.name;
  }
}

TEST_F(ControlsOnWindows, WhatAnEventProcedureThrowsComesOutOfThePump) {
  form->ok.onClick = [] { throw std::logic_error("a fault of ours"); };
  const auto done = user().Click(form->ok.Handle());
  EXPECT_THROW(Settle(), std::logic_error);
  EXPECT_TRUE(done.over());
  EXPECT_EQ(Did(user().Click(form->flat.Handle())), "");  // and life goes on
  EXPECT_EQ(form->Taken(), Words{"flat"});
}

}  // namespace
}  // namespace corvel::forms
