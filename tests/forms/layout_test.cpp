#include "tests/forms/forms_fixture.h"

namespace corvel::forms {
namespace {

// A font whose characters are all as wide.
class PlainFont : public Display {
 public:
  PlainFont(int width, int height) : width_(width), height_(height) {}
  Size ScreenSize() override { return {800, 600}; }
  int BitsPerPixel() override { return 16; }
  int TwipsPerPixel() override { return 15; }
  Size TextExtent(std::string_view text, const FontStyle&) override {
    return {static_cast<int>(text.size()) * width_, height_};
  }

 private:
  int width_, height_;
};

struct WindowForm : TestForm {
  using TestForm::TestForm;
  PictureBox icon{*this, "Image1"};
  Label label{*this, "lblName", "&Name:"}, hint{*this, "lblHint", "a hint of several words"};
  TextBox name{*this, "txtName"};
  ListBox list{*this, "lstNames"};
  Button add{*this, "cmdAdd", "&Add"}, remove{*this, "cmdRemove", "Remove all of the marked"};
  CheckBox check{*this, "chkSort", "&Sort"};
  ComboBox combo{*this, "cboKind"};
  TabStrip tabs{*this, "TabStrip1"};
  Frame general{*this, "fraGeneral", "General"}, chat{*this, "fraChat"};
  OptionButton tall{*this, "optTall", "Tall"}, wide{*this, "optWide", "Wide"};
  Button ok{*this, "cmdOK", "OK"}, cancel{*this, "cmdCancel", "Cancel"};

  Box Content() {
    icon.SetPicture(Picture::kQuestion);
    hint.SetWordWrap(true);
    chat.SetVisible(false);
    return Column({Row({Cell(icon), Cell(label), Stretch(Cell(name))}),
                   Stretch(Row({Stretch(Cell(list, 30, 8)),
                                Column({Cell(add), Cell(remove), Space(), Cell(check)})})),
                   Row({Cell(combo), Cell(hint, 10)}), Cell(tabs),
                   Stack({Framed(general, Column({Cell(tall)})), Framed(chat, Cell(wide, 60))}),
                   Row({Space(), Cell(ok), Cell(cancel)})});
  }
};

bool Overlap(const Rect& a, const Rect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

bool Inside(const Rect& inner, const Rect& outer) {
  return inner.left >= outer.left && inner.top >= outer.top &&
         inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height;
}

class LayoutTest : public FormsTest {
 protected:
  LayoutTest() : form_(Load<WindowForm>()) {}
  Rect PlaceOf(const Control& control) { return control.State().place; }
  std::shared_ptr<WindowForm> form_;
};

TEST_F(LayoutTest, AnAmpersandTakesRoomWhereItShows) {
  PlainFont display(6, 13);
  Label key(*form_, "lblKey", "R&B"), data(*form_, "lblData", "R&B");
  data.SetMnemonic(false);
  PlaceControls(Row({Cell(key), Cell(data)}), display);
  EXPECT_EQ(PlaceOf(key).width, 2 * 6);
  EXPECT_EQ(PlaceOf(data).width, 3 * 6);
}

TEST_F(LayoutTest, NothingOverlapsAndAllIsInsideAtAnyFontAndSize) {
  for (const Size font : {Size{6, 13}, Size{8, 16}, Size{12, 26}, Size{1, 1}}) {
    PlainFont display(font.width, font.height);
    for (const Size room : {Size{}, Size{900, 700}, Size{-5, 3}}) {
      const Size client = PlaceControls(form_->Content(), display, room);
      std::vector<const Control*> seen;
      for (const Control* control : form_->Controls()) {
        if (!control->Visible()) continue;
        const Rect place = PlaceOf(*control);
        EXPECT_TRUE(Inside(place, {0, 0, client.width, client.height})) << control->Name();
        EXPECT_GT(place.width * place.height, 0) << control->Name();
        if (control == &form_->general) continue;  // stands around others
        for (const Control* other : seen)
          EXPECT_FALSE(Overlap(place, PlaceOf(*other))) << control->Name() << other->Name();
        seen.push_back(control);
      }
      EXPECT_TRUE(Inside(PlaceOf(form_->tall), PlaceOf(form_->general)));
    }
  }
}

TEST_F(LayoutTest, CaptionsFitAndGrowWithTheFont) {
  Size last{};
  for (const Size font : {Size{6, 13}, Size{8, 16}, Size{12, 26}}) {
    PlainFont display(font.width, font.height);
    const Size client = PlaceControls(form_->Content(), display);
    EXPECT_GT(client.width, last.width);
    EXPECT_GT(client.height, last.height);
    last = client;
    for (const Control* control :
         {static_cast<Control*>(&form_->remove), static_cast<Control*>(&form_->check),
          static_cast<Control*>(&form_->label)}) {
      const int text = static_cast<int>(PlainCaption(control->State().text).size()) * font.width;
      EXPECT_GE(PlaceOf(*control).width, text) << control->Name();
      EXPECT_GE(PlaceOf(*control).height, font.height) << control->Name();
    }
  }
}

TEST_F(LayoutTest, ButtonsHaveTheSystemsSizeAtTheSystemsFont) {
  PlainFont display(6, 13);
  const Size client = PlaceControls(Row({Cell(form_->ok), Cell(form_->cancel)}), display);
  EXPECT_EQ(PlaceOf(form_->ok), (Rect{11, 11, 75, 23}));
  EXPECT_EQ(PlaceOf(form_->cancel), (Rect{92, 11, 75, 23}));
  EXPECT_EQ(client, (Size{178, 45}));  // no more than is needed
}

TEST_F(LayoutTest, WhatIsOneLineHighStandsInTheMiddleOfItsRow) {
  PlainFont display(6, 13);
  PlaceControls(Row({Cell(form_->label), Cell(form_->name), Cell(form_->ok), Cell(form_->combo)}),
                display);
  EXPECT_EQ(PlaceOf(form_->label).top, 16);
  EXPECT_EQ(PlaceOf(form_->label).height, 13);
  EXPECT_EQ(PlaceOf(form_->name).height, 23);  // as high as the button
  EXPECT_EQ(PlaceOf(form_->combo).top, 12);
}

TEST_F(LayoutTest, HiddenControlsTakeNoRoom) {
  PlainFont display(6, 13);
  const Box with = Column({Cell(form_->ok), Row({Space(), Cell(form_->add)}), Cell(form_->check)});
  const Box without = Column({Cell(form_->ok), Cell(form_->check)});
  const Size all = PlaceControls(with, display);
  form_->add.SetVisible(false);
  const Size fewer = PlaceControls(with, display);
  EXPECT_LT(fewer.height, all.height);
  EXPECT_EQ(fewer, PlaceControls(without, display));
}

TEST_F(LayoutTest, ATurnedPageKeepsTheWindowsSize) {
  PlainFont display(6, 13);
  const Box content = form_->Content();
  const Size before = PlaceControls(content, display);
  form_->general.SetVisible(false);
  form_->chat.SetVisible(true);
  EXPECT_EQ(PlaceControls(content, display), before);
  EXPECT_TRUE(form_->wide.Visible());
  EXPECT_FALSE(form_->tall.Visible());
}

TEST_F(LayoutTest, TabOrderFollowsTheBoxes) {
  PlainFont display(6, 13);
  PlaceControls(form_->Content(), display);
  const Control* const kOrder[] = {&form_->icon, &form_->label,  &form_->name,    &form_->list,
                                   &form_->add,  &form_->remove, &form_->check,   &form_->combo,
                                   &form_->hint, &form_->tabs,   &form_->general, &form_->tall,
                                   &form_->chat, &form_->wide,   &form_->ok,      &form_->cancel};
  for (int i = 0; i < static_cast<int>(std::size(kOrder)); ++i)
    EXPECT_EQ(kOrder[i]->State().tabOrder, i) << kOrder[i]->Name();
}

TEST_F(LayoutTest, AWrappedLabelIsAsHighAsItsLines) {
  PlainFont display(6, 13);
  form_->hint.SetWordWrap(true);
  const struct {
    const char* caption;
    int lines;
  } kCases[] = {
      {"", 1}, {"one two", 1}, {"one two three", 2}, {"a\r\n\r\nb", 3}, {"muchtoolongword b", 2}};
  for (const auto& c : kCases) {
    form_->hint.SetCaption(c.caption);
    PlaceControls(Column({Cell(form_->hint, 10), Cell(form_->ok)}), display);
    EXPECT_EQ(PlaceOf(form_->hint).height, c.lines * 13) << c.caption;
  }
}

TEST_F(LayoutTest, AFormFitsItsContentAndAResizableOneFillsItself) {
  As([&] {
    form_->MoveTo(300, 150);
    form_->Arrange(form_->Content());
    const Rect natural = form_->State().place;
    EXPECT_EQ(natural.left, 300 / 15);
    EXPECT_GE(natural.width, PlaceOf(form_->cancel).left + PlaceOf(form_->cancel).width);
    form_->tabs.SetVisible(false);
    form_->Arrange();
    EXPECT_LT(form_->State().place.height, natural.height);

    form_->SetResizable(true);
    form_->UserResized(natural.width + 200, natural.height + 100);
    const int listWidth = PlaceOf(form_->list).width, listHeight = PlaceOf(form_->list).height;
    form_->UserResized(natural.width + 250, natural.height + 160);
    EXPECT_EQ(PlaceOf(form_->list).width, listWidth + 50);
    EXPECT_EQ(PlaceOf(form_->list).height, listHeight + 60);
    form_->Arrange();
    EXPECT_EQ(form_->State().place.width, natural.width + 250);
    form_->UserResized(10, 10);  // the window stays as the user has it, the content as it needs
    EXPECT_EQ(form_->State().place.width, 10);
    EXPECT_GE(PlaceOf(form_->list).width, 30 * 6);
  });
}

}  // namespace
}  // namespace corvel::forms
