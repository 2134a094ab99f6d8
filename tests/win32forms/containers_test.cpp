// Containers, pictures at rows, and dragging, in real windows.
#include "forms/container.h"
#include "platform/win32/win32_row_pictures.h"
#include "tests/win32forms/forms_on_windows.h"

namespace corvel::forms {
namespace {

using Words = std::vector<std::string>;

struct ContainerForm : AnyForm {
  using AnyForm::AnyForm;
  Button outside{*this, "outside", "&Outside"};
  Container main{*this, "main"}, tool{*this, "tool"};
  TextBox text{*this, "text"};
  CheckBox check{*this, "check", "Chec&k"};
  FlatButton flat{*this, "flat", "&Flat"};
  ListBox list{*this, "list"};
  TabStrip tabs{*this, "tabs"};
  ListView view{*this, "view", {"Name"}};
  Words log;

  void Form_Load() override {
    list.SetItems({"a", "b"});
    for (const char* name : {"Ann", "Bob", "Cy"}) {
      tabs.AddItem(name);
      view.AddItem(name);
    }
    SetBackColor(0x0040A0C0);
    for (Control* control : Controls())
      control->onClick = [this, control] { log.push_back(control->Name()); };
    Arrange(Column(
        {Cell(outside),
         Contained(main, Column({Cell(tabs), Stretch(Cell(list)), Cell(view),
                                 Contained(tool, Row({Cell(text), Cell(check), Cell(flat)}))}))}));
  }
  Words Taken() { return std::exchange(log, {}); }
};

class ContainersOnWindows : public FormsOnWindows {
 protected:
  ContainersOnWindows()
      : form(forms_.LoadNew<ContainerForm>(forms_)),
        host(CreateWindowExA(0, "STATIC", "host", WS_POPUP | WS_VISIBLE, 100, 60, 420, 420, nullptr,
                             nullptr, nullptr, nullptr)) {
    form->Show();
    Settle();
  }
  ~ContainersOnWindows() override { DestroyWindow(host); }
  void Hang() {
    ASSERT_TRUE(form->main.HangInto(win32::FromHwnd(host), {0, 0, 420, 420}));
    form->Hide();
    Settle();
  }
  std::shared_ptr<ContainerForm> form;
  HWND host;
};

TEST_F(ContainersOnWindows, WhatControlsTellTheirContainerReachesThem) {
  for (const bool hung : {false, true}) {
    if (hung) Hang();
    EXPECT_EQ(Did(user().Click(form->check.Handle())), "");
    EXPECT_EQ(Did(user().Click(form->flat.Handle())), "");
    EXPECT_EQ(Did(user().Select(form->list.Handle(), hung, false)), "");
    EXPECT_EQ(Did(user().Select(form->tabs.Handle(), hung, false)), "");
    EXPECT_EQ(Did(user().Select(form->view.Handle(), hung, false)), "");
    EXPECT_EQ(Did(user().Click(form->tool.Handle())), "");
    EXPECT_EQ(form->Taken(), (Words{"check", "flat", "list", "tabs", "view", "tool"}));
    EXPECT_EQ(Did(user().Type(form->text.Handle(), hung ? "hung" : "home")), "");
    EXPECT_EQ(form->text.Text(), hung ? "hung" : "home");
  }
}

TEST_F(ContainersOnWindows, TheKeyboardGoesRoundInWhatHangsElsewhere) {
  Hang();
  form->list.TakeFocus();
  Words stops;
  for (int i = 0; i < 6; ++i) {
    Key(VK_TAB);
    for (const Control* control : form->Controls())
      if (HwndOf(*control) == GetFocus()) stops.push_back(control->Name());
  }
  EXPECT_EQ(stops, (Words{"view", "text", "check", "flat", "tabs", "list"}));
  AltLetter('k');
  EXPECT_EQ(form->check.Value(), 1);
  form->check.SetEnabled(false);
  EXPECT_EQ(GetFocus(), HwndOf(form->flat));
  AltLetter('o');
  EXPECT_EQ(form->Taken(), Words{"check"}) << "the form's own buttons are another window's";
}

TEST_F(ContainersOnWindows, ItIsArrangedAndPaintedAtEverySize) {
  const Rect before = form->list.State().place;
  form->main.SetPlace(
      {0, 60, form->main.State().place.width, form->main.State().place.height + 50});
  EXPECT_EQ(form->list.State().place.height, before.height + 50);
  RECT shown{};
  GetWindowRect(HwndOf(form->list), &shown);
  EXPECT_EQ(shown.bottom - shown.top, before.height + 50);
  Settle();
  const HDC dc = GetDC(HwndOf(form->main));
  EXPECT_EQ(GetPixel(dc, 1, form->tabs.State().place.height + 1), 0x0040A0C0U)
      << "the form's ground";
  ReleaseDC(HwndOf(form->main), dc);
}

TEST_F(ContainersOnWindows, ItsWindowsAreMadeAnewBehindTheirHostsEnd) {
  int lost = 0;
  form->main.onLost = [&] { ++lost; };
  Hang();
  DestroyWindow(host);
  Settle();
  EXPECT_EQ(lost, 1);
  form->Show();
  Settle();
  EXPECT_TRUE(IsChild(win32::ToHwnd(form->Handle()), HwndOf(form->flat)));
  EXPECT_EQ(Ask(form->list, LB_GETCOUNT), 2);
  EXPECT_EQ(Did(user().Click(form->flat.Handle())), "");
  EXPECT_EQ(form->Taken(), Words{"flat"});
  form->Hide();
  host = nullptr;
}

TEST_F(ContainersOnWindows, RowsShowTheirPictures) {
  const auto tab = [this](WPARAM row) {
    TCITEMA item{};
    item.mask = TCIF_IMAGE;
    Ask(form->tabs, TCM_GETITEMA, row, reinterpret_cast<LPARAM>(&item));
    return item.iImage;
  };
  const auto row = [this](int at) {
    LVITEMA item{};
    item.mask = LVIF_IMAGE;
    item.iItem = at;
    Ask(form->view, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return item.iImage;
  };
  EXPECT_EQ(Ask(form->view, LVM_GETIMAGELIST, LVSIL_SMALL), 0)
      << "no room for pictures without any";
  for (Rows* rows : {static_cast<Rows*>(&form->tabs), static_cast<Rows*>(&form->view)}) {
    rows->SetImage(0, row_image::kUnread);
    rows->SetImage(1, row_image::kRead);
    rows->AddItem("first", 0);
  }
  EXPECT_EQ(tab(0), -1);
  EXPECT_EQ(tab(1), 0);
  EXPECT_EQ(tab(2), 1);
  EXPECT_EQ(row(0), -1);
  EXPECT_EQ(row(1), 0);
  EXPECT_EQ(row(2), 1);
  form->tabs.RemoveItem(0);
  form->view.RemoveItem(0);
  EXPECT_EQ(tab(0), 0);
  EXPECT_EQ(row(0), 0);
  EXPECT_EQ(ImageList_GetImageCount(win32::RowPictures()), row_image::kCount);
}

TEST_F(ContainersOnWindows, ABarShowsItsPartOfItsMaximum) {
  struct Bar : AnyForm {
    using AnyForm::AnyForm;
    ProgressBar bar{*this, "bar"};
    void Form_Load() override { Arrange(Cell(bar)); }
  };
  const auto with = forms_.LoadNew<Bar>(forms_);
  with->Show();
  with->bar.SetMaximum(100000);
  with->bar.SetValue(70000);
  EXPECT_EQ(Ask(with->bar, PBM_GETRANGE, FALSE), 100000);
  EXPECT_EQ(Ask(with->bar, PBM_GETPOS), 70000);
  EXPECT_FALSE(GetUpdateRect(HwndOf(with->bar), nullptr, FALSE)) << "painted without a pump";
}

// --- Dragging ------------------------------------------------------------------------------------

struct NoteForm : AnyForm {
  explicit NoteForm(Forms& forms) : AnyForm(forms) {
    SetBorder(false);
    SetEtchedEdge(true);
    SetDraggedBy(label);
  }
  Label label{*this, "label", "drag me"};
  void Form_Load() override { Arrange(Cell(label, 20, 3)); }
};

// The mouse, which the system's own loop follows while it moves the window.
class Dragging {
 public:
  Dragging(POINT from, POINT to) : to_(to) {
    self_ = this;
    SetCursorPos(from.x, from.y);
    timer_ = SetTimer(nullptr, 0, 40, &Step);
  }
  ~Dragging() { KillTimer(nullptr, timer_); }
  bool IsOver() const { return step_ > 3; }

 private:
  static void CALLBACK Step(HWND, UINT, UINT_PTR, DWORD) {
    switch (self_->step_++) {
      case 0:
        return mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
      case 1:
        SetCursorPos(self_->to_.x - 5, self_->to_.y);
        return;
      case 2:
        SetCursorPos(self_->to_.x, self_->to_.y);
        return;
      case 3:
        return mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
      default:
        return;
    }
  }
  static inline Dragging* self_ = nullptr;
  POINT to_;
  UINT_PTR timer_;
  int step_ = 0;
};

TEST_F(FormsOnWindows, ALabelDragsItsFormByTheSystemsOwnMeans) {
  const auto note = forms_.LoadNew<NoteForm>(forms_);
  const int twips = platform().display.TwipsPerPixel();
  note->MoveTo(200 * twips, 150 * twips);
  note->Show();
  Settle();
  RECT label{};
  GetWindowRect(HwndOf(note->label), &label);
  const POINT from{label.left + 10, label.top + 8};
  Dragging mouse(from, {from.x + 70, from.y + 40});
  const DWORD begin = GetTickCount();
  while (!mouse.IsOver() && GetTickCount() - begin < 3000) Settle(20);
  Settle();
  EXPECT_EQ(note->State().place.left, 270);
  EXPECT_EQ(note->State().place.top, 190);
  EXPECT_EQ(note->moves, 1) << "at the end";
  EXPECT_TRUE(GetSystemMenu(win32::ToHwnd(note->Handle()), FALSE)) << "for the keys";
  EXPECT_EQ(Did(user().Drag(note->label.Handle(), -20, 5)), "");
  EXPECT_EQ(note->State().place.left, 250);
  EXPECT_EQ(note->moves, 2);
}

}  // namespace
}  // namespace corvel::forms
