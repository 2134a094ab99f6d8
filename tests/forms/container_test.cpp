// Containers on the desk: a form with one that another process's window takes in.
#include "forms/container.h"

#include "platform/desk/desk_peers.h"
#include "platform/desk/desk_windows.h"
#include "tests/forms/forms_fixture.h"

namespace corvel::forms {
namespace {

struct ManagerForm : TestForm {
  using TestForm::TestForm;
  Button outside{*this, "cmdOutside", "&Outside"};
  // Declared before what it stands in.
  Button send{*this, "cmdSend", "&Send"}, cancel{*this, "cmdCancel", "&Cancel"};
  Container main{*this, "picMain"}, tool{*this, "picTool"}, pane{*this, "picIM"};
  TabStrip tabs{*this, "tbsIMs"};

  void Form_Load() override {
    outside.SetDefault(true);
    Arrange(Column(
        {Cell(outside),
         Contained(main, Column({Cell(tabs), Stretch(Cell(pane)),
                                 Contained(tool, Row({Space(), Cell(send), Cell(cancel)}))}))}));
    TestForm::Form_Load();
  }
};

// A client with a frame, in a process of its own.
class ContainerOnDesk : public FormsTest, public WindowProcedure {
 protected:
  ContainerOnDesk() {
    struct Idle : desk::ProcessBody {
      void Start(const std::string&) override {}
      bool Finished() override { return false; }
    };
    desk_.Install("C:\\TEST\\CLIENT.EXE", [](desk::Desk&) { return std::make_unique<Idle>(); });
    client_ = desk_.Spawn("C:\\TEST\\CLIENT.EXE", "");
    desk_.RunDue();
    frame_ = MakeWindow({});
    form_ = Load<ManagerForm>();
    form_->main.onLost = [this] { told_ += "lost "; };
    form_->main.onResize = [this] { told_ += "resize "; };
    form_->send.onClick = [this] { told_ += "send "; };
    form_->main.onClick = [this] { told_ += "main "; };
  }
  Window MakeWindow(Window parent) {
    Window made{};
    desk_.RunAs(client_, [&] {
      made = desk_.platform().ownWindows.Create({.className = "AOL Child",
                                                 .caption = {},
                                                 .parent = parent,
                                                 .place = {10, 20, 400, 300},
                                                 .systemClass = {}},
                                                *this);
    });
    return made;
  }
  MessageResult OnMessage(Window window, const Message& message) override {
    return desk_.platform().ownWindows.Default(window, message);
  }
  bool Hang() {
    bool hung = false;
    As([&] { hung = form_->main.HangInto(frame_, {0, 0, 400, 300}); });
    return hung;
  }
  WindowSystem& Windows() { return desk_.platform().windows; }
  std::string Told() {
    desk_.RunDue();
    return std::exchange(told_, {});
  }
  std::string Click(const Control& control) {
    const std::string refusal = hand_.Click(control.Handle()).refusal;
    return refusal.empty() ? Told() : refusal;
  }
  std::string Pressed(const Control& control, Key key) {
    hand_.Press(control.Handle(), key);
    desk_.RunDue();
    const auto view = desk_.peers().Find(desk_.peers().FocusedControl());
    return view ? view->state->name : "";
  }
  bool Fills() const {
    const Rect &main = form_->main.State().place, &tool = form_->tool.State().place,
               &pane = form_->pane.State().place, &cancel = form_->cancel.State().place;
    return tool.top + tool.height == main.height && pane.width == main.width &&
           pane.top + pane.height <= tool.top && cancel.left + cancel.width == tool.width;
  }

  ProcessId client_ = 0;
  Window frame_{};
  std::shared_ptr<ManagerForm> form_;
  std::string told_;
};

TEST_F(ContainerOnDesk, ArrangesWhatStandsInItAtEverySize) {
  EXPECT_TRUE(Fills());
  ASSERT_TRUE(Hang());
  EXPECT_EQ(form_->main.State().place, (Rect{0, 0, 400, 300}));
  EXPECT_TRUE(Fills());
  EXPECT_EQ(Told(), "") << "code has done it";
  const int height = form_->pane.State().place.height;
  desk_.RunAs(client_, [&] { Windows().Place(form_->main.Handle(), {0, 0, 500, 360}); });
  EXPECT_EQ(Told(), "resize ");
  EXPECT_TRUE(Fills());
  EXPECT_EQ(form_->pane.State().place.height, height + 60);
  As([&] { form_->main.SetPlace({0, 0, 420, 320}); });
  EXPECT_EQ(Windows().PlaceOf(form_->main.Handle()).width, 420);
  EXPECT_TRUE(Fills());
  As([&] { form_->main.SetPlace({0, 0, 5, 5}); });  // what needs more is cut off
  EXPECT_GT(form_->pane.State().place.height, 0);
  const Rect hung = form_->main.State().place;
  As([&] { form_->Arrange(); });
  EXPECT_EQ(form_->main.State().place, hung) << "the form's layout leaves it alone";
}

TEST_F(ContainerOnDesk, ItsControlsAreReachedWhereItHangs) {
  EXPECT_EQ(Click(form_->send), "frmTest is not visible");
  ASSERT_TRUE(Hang());
  EXPECT_EQ(Click(form_->send), "send ");
  EXPECT_EQ(Click(form_->main), "main ");
  EXPECT_EQ(Click(form_->outside), "frmTest is not visible");
  EXPECT_EQ(Pressed(form_->send, Key::kTab), "cmdCancel");
  EXPECT_EQ(Pressed(form_->cancel, Key::kTab), "tbsIMs");
  bool pressed = false;
  form_->outside.onClick = [&] { pressed = true; };
  Pressed(form_->tabs, Key::kEnter);
  EXPECT_FALSE(pressed) << "the default button of another window";
  As([&] { form_->SetEnabled(false); });
  EXPECT_EQ(Click(form_->send), "frmTest is disabled");
  As([&] {
    form_->SetEnabled(true);
    form_->main.SetEnabled(false);
    form_->send.UserClick();
  });
  EXPECT_EQ(Click(form_->send), "cmdSend is disabled");
  As([&] { form_->main.SetEnabled(true); });
  desk_.RunAs(client_, [&] { Windows().Show(frame_, show::kHide); });
  EXPECT_EQ(Click(form_->send), "cmdSend is not visible");
}

TEST_F(ContainerOnDesk, ComesHomeToItsPlace) {
  const Rect before = form_->main.State().place;
  As([&] { EXPECT_FALSE(form_->main.HangInto({4711}, {})) << "no such window"; });
  EXPECT_EQ(form_->main.State().place, before);
  ASSERT_TRUE(Hang());
  const Window other = MakeWindow({});
  As([&] { EXPECT_TRUE(form_->main.HangInto(other, {0, 0, 50, 50})) << "on to another one"; });
  EXPECT_EQ(Windows().Parent(form_->main.Handle()), other);
  As([&] {
    form_->main.ComeHome();
    form_->main.ComeHome();
    form_->Show();
  });
  EXPECT_EQ(form_->main.Host(), Window{});
  EXPECT_EQ(form_->main.State().place, before);
  EXPECT_EQ(Windows().Parent(form_->main.Handle()), form_->Handle());
  EXPECT_TRUE(Fills());
  EXPECT_EQ(Click(form_->send), "send ");
}

TEST_F(ContainerOnDesk, OutlivesTheWindowThatItHangsIn) {
  for (const bool crash : {false, true}) {
    As([&] { form_->tabs.AddItem("Ann"); });
    form_->tabs.SetImage(0, row_image::kUnread);
    ASSERT_TRUE(Hang());
    const Window before = form_->main.Handle();
    if (crash)
      desk_.Kill(client_);
    else
      desk_.RunAs(client_, [&] { desk_.platform().ownWindows.Destroy(frame_); });
    As([&] { form_->send.SetCaption("&Send it"); });  // while it has no window
    EXPECT_EQ(Told(), "lost ");
    EXPECT_NE(form_->main.Handle(), before);
    EXPECT_EQ(Windows().Parent(form_->send.Handle()), form_->tool.Handle());
    EXPECT_EQ(Windows().Parent(form_->main.Handle()), form_->Handle());
    EXPECT_EQ(form_->tabs.List(0), "Ann");
    EXPECT_EQ(form_->tabs.Image(0), row_image::kUnread);
    EXPECT_TRUE(Fills());
    As([&] { form_->Show(); });
    EXPECT_EQ(Click(form_->send), "send ");
    As([&] { form_->Hide(); });
    if (!crash) frame_ = MakeWindow({});
  }
}

// The handler of one of its buttons waits while the client goes.
TEST_F(ContainerOnDesk, MayGoInTheMidstOfAnEventOfItsControls) {
  ASSERT_TRUE(Hang());
  form_->send.onClick = [this] {
    told_ += "begin ";
    desk_.After(0, 50, [this] { desk_.Kill(client_); });
    PumpFor(200);
    form_->send.SetCaption("&Send");
    told_ += "end ";
  };
  hand_.Click(form_->send.Handle());
  EXPECT_EQ(Told(), "begin lost end ");
}

TEST_F(ContainerOnDesk, LeavesNothingBehindWhenItsFormGoes) {
  const Window im = MakeWindow(frame_);
  ASSERT_TRUE(Hang());
  As([&] { Windows().SetParent(im, form_->pane.Handle()); });
  form_->onUnload = [&](TestForm&) { Windows().SetParent(im, frame_); };
  As([&] { form_->Unload(); });
  EXPECT_EQ(Windows().Parent(im), frame_);
  EXPECT_EQ(Windows().Next(im), Window{});
  EXPECT_EQ(Windows().TopChild(frame_), im);
  EXPECT_EQ(Told(), "");
}

TEST_F(ContainerOnDesk, HidesWhatStandsInIt) {
  form_->tool.SetVisible(false);
  EXPECT_FALSE(form_->send.Visible());
  EXPECT_TRUE(form_->send.OwnVisible());
  form_->main.SetVisible(false);
  form_->tool.SetVisible(true);
  EXPECT_FALSE(form_->send.Visible());
  form_->main.SetVisible(true);
  EXPECT_TRUE(form_->send.Visible());
}

}  // namespace
}  // namespace corvel::forms
