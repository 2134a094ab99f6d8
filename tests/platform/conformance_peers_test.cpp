// Forms and controls: what their windows show, and what a user's hand at them makes of it.
#include "tests/platform/home.h"

#include <gtest/gtest.h>
#include <optional>

namespace corvel::test {
namespace {

// A control that keeps its state in step with what the user does, as the toolkit's do.
class Control : public ControlEvents {
 public:
  Control(FormPeer& formPeer, ControlKind kind, const char* name, Log& log, bool several = false,
          const Control* container = nullptr)
      : log_(log) {
    if (container) state.container = &container->state;
    state.kind = kind;
    state.name = name;
    state.place = {1, 2, 80, 30};
    state.multiSelect = kind == ControlKind::kListBox && several;
    state.multiLine = kind == ControlKind::kTextBox && several;
    if (kind == ControlKind::kListBox) state.items = {"a", "b", "c"};
    if (state.multiSelect) state.marked.resize(3);
    peer = formPeer.Add(state, *this);
  }
  void UserClick() override { Say("click"); }
  void UserDoubleClick() override { Say("dblclick"); }
  void UserRightClick() override { Say("right"); }
  void UserSelect(int row, bool keep) override {
    Say("select " + std::to_string(row) + (keep ? "+" : ""));
    state.selected = row;
    for (std::size_t i = 0; i < state.marked.size(); ++i)
      state.marked[i] =
          static_cast<int>(i) == row ? !keep || !state.marked[i] : keep && state.marked[i];
    peer->Changed(Aspect::kSelection);
  }
  void UserText(const std::string& text) override {
    Say("text " + text);
    state.text = text;
    peer->Changed(Aspect::kText);
  }
  bool UserKey(Key) override { return usesKeys; }
  void WindowPlaced(const Rect& place) override {
    state.place = place;
    Say("placed " + std::to_string(place.left) + "," + std::to_string(place.top) + " " +
        std::to_string(place.width) + "x" + std::to_string(place.height));
  }
  void WindowLost() override { Say("lost"); }
  void Set(bool ControlState::*flag, bool value) {
    state.*flag = value;
    peer->Changed(flag == &ControlState::visible ? Aspect::kVisible : Aspect::kEnabled);
  }

  ControlState state;
  std::unique_ptr<ControlPeer> peer;
  bool usesKeys = false;

 private:
  void Say(const std::string& what) { log_.push_back(state.name + " " + what); }
  Log& log_;
};

class Form : public FormEvents {
 public:
  Form(Peers& peers, const char* name, Log& log, bool border = true) : log_(log) {
    state.name = name;
    state.caption = std::string("the ") + name;
    state.place = {100, 50, 300, 200};
    state.border = border;
    formPeer = peers.CreateForm(state, *this);
  }
  void UserClose() override { log_.push_back(state.name + " close"); }
  void UserMoved(int left, int top) override { Say("moved", left, top); }
  void UserResized(int width, int height) override { Say("resized", width, height); }
  void OnMessage(MessageId id, WParam wParam, LParam) override {
    log_.push_back(LogLine(state.name, {.id = id, .wParam = wParam}));
  }
  void Show(bool visible = true, bool activate = true) {
    state.visible = visible;
    formPeer->ApplyVisible(activate);
  }
  template <class T>
  void Set(T FormState::*member, T value, Aspect aspect) {
    state.*member = std::move(value);
    formPeer->Changed(aspect);
  }

  FormState state;
  std::unique_ptr<FormPeer> formPeer;

 private:
  void Say(const char* what, int x, int y) {
    log_.push_back(state.name + " " + what + " " + std::to_string(x) + "," + std::to_string(y));
  }
  Log& log_;
};

class PeersTest : public testing::Test {
 protected:
  void SetUp() override {
    home->Run([&] {
      form.emplace(peers, "frmTest", log);
      button.emplace(*form->formPeer, ControlKind::kButton, "cmdOk", log);
      list.emplace(*form->formPeer, ControlKind::kListBox, "lstNames", log);
      text.emplace(*form->formPeer, ControlKind::kTextBox, "txtName", log);
      marks.emplace(*form->formPeer, ControlKind::kListBox, "lstMarks", log, true);
      memo.emplace(*form->formPeer, ControlKind::kTextBox, "txtMemo", log, true);
      label.emplace(*form->formPeer, ControlKind::kLabel, "lblName", log);
      form->Show();
    });
    home->RunFor(20);
  }
  // What came of a deed, or why it could not be done.
  std::string Came(const std::string& refusal) {
    if (!refusal.empty()) return "refused: " + refusal;
    std::string all;
    for (const std::string& line : std::exchange(log, {})) all += line + ";";
    return all;
  }
  static Window Of(Control& control) { return control.peer->Handle(); }

  std::unique_ptr<Home> home = MakeHome();
  Platform& platform = home->platform();
  WindowSystem& windows = platform.windows;
  Peers& peers = platform.peers;
  User& user = home->user();
  Log log;
  std::optional<Form> form;
  std::optional<Control> button, list, text, marks, memo, label;
};

TEST_F(PeersTest, FormsAndControlsAreWindowsThatFollowTheirState) {
  const Window window = form->formPeer->Handle();
  EXPECT_EQ(windows.Find("CorvelForm", "the frmTest"), window);
  EXPECT_EQ(windows.Focus(), Of(*button)) << "the first in tab order";
  EXPECT_EQ(windows.PlaceOf(window), (Rect{100, 50, 300, 200}));
  const Size frame = form->formPeer->FrameSize();
  const int side = frame.width / 2;
  EXPECT_EQ(windows.PlaceOf(Of(*button)),
            (Rect{100 + side + 1, 50 + frame.height - side + 2, 80, 30}));
  text->state.text = "set";
  text->peer->Changed(Aspect::kText);
  EXPECT_EQ(windows.SendForText(Of(*text), wm::kGetText, 0, 100), "set");
  EXPECT_TRUE(windows.IsVisible(Of(*text)));
  text->Set(&ControlState::visible, false);
  EXPECT_FALSE(windows.IsVisible(Of(*text)));
  text->Set(&ControlState::enabled, false);
  EXPECT_FALSE(windows.IsEnabled(Of(*text)));
  form->Set(&FormState::caption, std::string("new"), Aspect::kText);
  EXPECT_EQ(windows.Find("CorvelForm", "new"), window);
  form->Set(&FormState::place, {0, 0, 320, 240}, Aspect::kPlace);
  EXPECT_EQ(windows.PlaceOf(window), (Rect{0, 0, 320, 240}));
  EXPECT_EQ(Came(""), "") << "code has done all this";
}

TEST_F(PeersTest, AFormWithoutABorderHasNoFrame) {
  home->Run([&] {
    Form bare(peers, "frmBare", log, false);
    Control inside(*bare.formPeer, ControlKind::kButton, "cmdIn", log);
    EXPECT_EQ(bare.formPeer->FrameSize(), Size{});
    EXPECT_EQ(windows.PlaceOf(Of(inside)), (Rect{101, 52, 80, 30}));
    EXPECT_FALSE(windows.IsVisible(bare.formPeer->Handle()));
    bare.Show(true, false);
    EXPECT_TRUE(windows.IsVisible(bare.formPeer->Handle()));
    EXPECT_EQ(windows.Focus(), Of(*button)) << "shown without activation";
    inside.peer->TakeFocus();
    EXPECT_EQ(windows.Focus(), Of(inside));
  });
}

TEST_F(PeersTest, TheUsersHandReachesTheEvents) {
  EXPECT_EQ(Came(user.Click(Of(*button))), "cmdOk click;");
  EXPECT_EQ(Came(user.Select(Of(*list), 2, true)), "lstNames select 2;") << "one row at a time";
  EXPECT_EQ(Came(user.DoubleClick(Of(*list))), "lstNames dblclick;");
  EXPECT_EQ(Came(user.RightClick(Of(*list))), "lstNames right;");
  EXPECT_EQ(Came(user.Select(Of(*marks), 0, false)), "lstMarks select 0;");
  EXPECT_EQ(Came(user.Select(Of(*marks), 2, true)), "lstMarks select 2+;");
  EXPECT_EQ(Came(user.Type(Of(*text), "new")), "txtName text new;");
  EXPECT_EQ(windows.Focus(), Of(*text));
  EXPECT_EQ(Came(user.Click(Of(*label))), "lblName click;");
  EXPECT_EQ(Came(user.Close(form->formPeer->Handle())), "frmTest close;");
  EXPECT_EQ(Came(user.MoveForm(form->formPeer->Handle(), 5, 6)), "frmTest moved 5,6;");
  EXPECT_EQ(windows.PlaceOf(form->formPeer->Handle()), (Rect{5, 6, 300, 200}));
  windows.Place(form->formPeer->Handle(), {5, 6, 310, 200});
  EXPECT_EQ(Came(""), "frmTest resized 310,200;") << "by another program";
}

TEST_F(PeersTest, KeysDoWhatTheSystemDoesUnlessTheControlUsesThem) {
  button->state.isDefault = button->state.isCancel = true;  // for the toolkit
  user.Type(Of(*text), "ab");
  user.Type(Of(*memo), "ab");
  user.Select(Of(*list), 1, false);
  log.clear();
  const struct {
    Control& control;
    Key key;
    const char* came;
  } cases[] = {
      {*text, Key::kEnter, ""},
      {*text, Key::kEscape, ""},
      {*text, Key::kBackspace, "txtName text a;"},
      {*text, Key::kUp, ""},
      {*list, Key::kDown, "lstNames select 2;"},
      {*list, Key::kHome, "lstNames select 0;"},
      {*memo, Key::kEnter, "txtMemo text ab\r\n;"},
      {*button, Key::kEnter, ""},
      {*button, Key::kSpace, "cmdOk click;"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Came(user.Press(Of(c.control), c.key)), c.came) << static_cast<int>(c.key);
  memo->usesKeys = true;
  EXPECT_EQ(Came(user.Press(Of(*memo), Key::kEnter)), "");
}

TEST_F(PeersTest, WhatAUserCannotReachIsRefusedInWords) {
  EXPECT_EQ(Came(user.Select(Of(*list), 3, false)), "refused: lstNames has no row 3");
  EXPECT_EQ(Came(user.DoubleClick(Of(*list))), "refused: lstNames has no current row");
  EXPECT_EQ(Came(user.Type(Of(*button), "x")), "refused: cmdOk is not a text box");
  EXPECT_EQ(Came(user.Click({})), "refused: there is no such control");
  button->Set(&ControlState::enabled, false);
  EXPECT_EQ(Came(user.Click(Of(*button))), "refused: cmdOk is disabled");
  button->Set(&ControlState::visible, false);
  EXPECT_EQ(Came(user.Click(Of(*button))), "refused: cmdOk is not visible");
  std::string meanwhile;
  user.WillAnswer({.button = 1, .before = [&] { meanwhile = user.Click(Of(*list)); }});
  home->Run([&] { platform.dialogs.PlainMessage(form->formPeer->Handle(), "text", "title", 0); });
  EXPECT_EQ(meanwhile, "a dialog of the system waits for its answer");
  form->Set(&FormState::enabled, false, Aspect::kEnabled);
  EXPECT_EQ(Came(user.Click(Of(*list))), "refused: frmTest is disabled");
  home->Run([&] { form->Show(false); });
  EXPECT_EQ(Came(user.Click(Of(*list))), "refused: frmTest is not visible");
}

TEST_F(PeersTest, HurriedDeedsComeInOrderAndThoseTooLateDoNothing) {
  user.hurries = true;
  user.Type(Of(*text), "new");
  user.Select(Of(*list), 1, false);
  user.Click(Of(*button));
  home->RunFor(50);
  EXPECT_EQ(Came(""), "txtName text new;lstNames select 1;cmdOk click;");
  user.Click(Of(*button));
  user.Select(Of(*marks), 1, false);
  user.Click(Of(*label));
  button->Set(&ControlState::enabled, false);
  marks.reset();
  home->RunFor(50);
  EXPECT_EQ(Came(""), "lblName click;");
}

TEST_F(PeersTest, MessagesToAFormReachItsEvents) {
  const Window window = form->formPeer->Handle();
  home->Run([&] {
    platform.events.StartTimer(window, 3, 400);
    windows.Post(window, wm::kUser, 8, 0);
    windows.Send(window, wm::kClose, 0, 0);
    home->RunFor(500);
    platform.events.StopTimer(window, 3);
  });
  EXPECT_EQ(log, (Log{"frmTest close", "frmTest:1024(8)", "frmTest:timer(3)"}));
  EXPECT_TRUE(windows.Exists(window)) << "closing is the form's own affair";
}

TEST_F(PeersTest, AFormOutlivesItsWindow) {
  const Window window = form->formPeer->Handle();
  home->Run([&] { platform.ownWindows.Destroy(window); });
  EXPECT_FALSE(windows.Exists(window));
  EXPECT_EQ(Came(user.Click(Of(*button))), "refused: there is no such control");
  form->Show();
  text->Set(&ControlState::enabled, false);
  form.reset();
  text->Set(&ControlState::visible, false);
}

TEST_F(PeersTest, AFormGoesWithAnOwnerOfAnotherProcess) {
  const Window window = form->formPeer->Handle();
  const Window frame =
      home->other().Make("f", {.className = "F", .caption = {}, .systemClass = {}});
  windows.SetOwner(window, frame);
  EXPECT_EQ(windows.Parent(window), frame);
  home->other().Destroy(frame);
  home->RunFor(20);
  EXPECT_FALSE(windows.Exists(window));
}

// --- Containers ----------------------------------------------------------------------------------

class ContainerTest : public PeersTest {
 protected:
  void SetUp() override {
    PeersTest::SetUp();
    home->Run([&] { MakeBox(); });
    home->RunFor(20);
    log.clear();
  }
  void MakeBox() {
    FormPeer& peer = *form->formPeer;
    box.emplace(peer, ControlKind::kContainer, "picBox", log);
    box->state.place = {40, 50, 120, 90};
    box->peer->Changed(Aspect::kPlace);
    inner.emplace(peer, ControlKind::kContainer, "picInner", log, false, &*box);
    inner->state.place = {10, 20, 100, 60};
    inner->peer->Changed(Aspect::kPlace);
    inside.emplace(peer, ControlKind::kButton, "cmdIn", log, false, &*inner);
    typed.emplace(peer, ControlKind::kTextBox, "txtIn", log, false, &*inner);
    for (Control* control : {&*box, &*inner, &*inside, &*typed}) control->state.visible = true;
  }
  void TearDown() override {
    for (auto* control : {&typed, &inside, &inner, &box}) control->reset();
  }
  Window MakeFrame() {
    return home->other().Make(
        "f",
        {.className = "Frame", .caption = {}, .place = {200, 100, 300, 200}, .systemClass = {}});
  }
  // As the toolkit does it.
  void Hang(Window host) {
    home->Run([&] {
      windows.SetParent(Of(*box), host ? host : form->formPeer->Handle());
      box->state.host = host;
      box->state.place = {0, 0, 150, 100};
      box->peer->Changed(Aspect::kPlace);
    });
  }
  Rect Within(Window outer, Window window) {
    const Rect at = windows.PlaceOf(window), from = windows.PlaceOf(outer);
    return {at.left - from.left, at.top - from.top, at.width, at.height};
  }

  std::optional<Control> box, inner, inside, typed;
};

TEST_F(ContainerTest, ControlsStandInTheirContainersWindow) {
  EXPECT_EQ(windows.Parent(Of(*box)), form->formPeer->Handle());
  EXPECT_EQ(windows.Parent(Of(*inner)), Of(*box));
  EXPECT_EQ(windows.Parent(Of(*inside)), Of(*inner));
  EXPECT_EQ(Within(Of(*box), Of(*inside)), (Rect{11, 22, 80, 30}));
  EXPECT_EQ(Came(user.Click(Of(*inside))), "cmdIn click;");
  EXPECT_EQ(Came(user.Click(Of(*box))), "picBox click;") << "on its bare area";
  box->Set(&ControlState::enabled, false);
  EXPECT_EQ(Came(user.Click(Of(*inside))), "refused: cmdIn is disabled");
  box->Set(&ControlState::enabled, true);
  box->Set(&ControlState::visible, false);
  EXPECT_EQ(Came(user.Click(Of(*inside))), "refused: cmdIn is not visible");
  // A control that its form has had goes into a container, and is moved there.
  button->state.container = &box->state;
  button->peer->Changed(Aspect::kParent);
  EXPECT_EQ(windows.Parent(Of(*button)), Of(*box));
}

TEST_F(ContainerTest, HangsInAWindowOfAnotherProcessAndComesBack) {
  const Window frame = MakeFrame();
  Hang(frame);
  EXPECT_EQ(windows.Parent(Of(*box)), frame);
  home->Run([&] { form->Show(false); });
  EXPECT_TRUE(windows.IsVisible(Of(*inside)));
  EXPECT_EQ(Came(user.Click(Of(*inside))), "cmdIn click;");
  EXPECT_EQ(Came(user.Type(Of(*typed), "ab")), "txtIn text ab;");
  EXPECT_EQ(Came(user.Press(Of(*typed), Key::kBackspace)), "txtIn text a;");
  user.Press(Of(*typed), Key::kTab);
  EXPECT_EQ(windows.Focus(), Of(*inside)) << "round in what hangs there";
  user.Press(Of(*inside), Key::kTab);
  EXPECT_EQ(windows.Focus(), Of(*typed));
  log.clear();
  windows.Place(Of(*box), {5, 6, 170, 100});
  EXPECT_EQ(Came(""), "picBox placed 5,6 170x100;") << "by another program";
  form->Set(&FormState::enabled, false, Aspect::kEnabled);
  EXPECT_EQ(Came(user.Click(Of(*inside))), "refused: frmTest is disabled");
  form->Set(&FormState::enabled, true, Aspect::kEnabled);
  Hang({});
  EXPECT_EQ(Came(user.Click(Of(*inside))), "refused: frmTest is not visible");
  EXPECT_EQ(Came(""), "") << "code has done this";
  home->Run([&] { form->Show(); });
  EXPECT_EQ(Came(user.Click(Of(*inside))), "cmdIn click;");
  EXPECT_TRUE(windows.Exists(frame));
  EXPECT_EQ(windows.TopChild(frame), Window{});
}

TEST_F(ContainerTest, HoldsWindowsOfAnotherProcess) {
  const Window frame = MakeFrame();
  const NewWindow child{.className = "C", .caption = "c", .parent = frame, .systemClass = {}};
  const Window first = home->other().Make("a", child), second = home->other().Make("b", child);
  home->Run([&] {
    windows.SetParent(first, Of(*inner));
    windows.SetParent(second, Of(*inner));
  });
  EXPECT_EQ(windows.TopChild(Of(*inner)), second) << "what has just come lies on top";
  EXPECT_EQ(windows.Next(second), first);
  EXPECT_TRUE(windows.IsVisible(first));
  EXPECT_EQ(Came(user.Click(Of(*inside))), "cmdIn click;");
  home->Run([&] { windows.SetParent(first, frame); });
  EXPECT_EQ(windows.Parent(first), frame);
  form.reset();
  home->RunFor(50);
  EXPECT_TRUE(windows.Exists(first)) << "it had been given back";
  EXPECT_FALSE(windows.Exists(second)) << "it hadn't";
}

// Whether the window goes or its whole process.
TEST_F(ContainerTest, GoesWithItsHostAndIsMadeAnew) {
  for (const bool crash : {false, true}) {
    const Window frame = MakeFrame(), before = Of(*box);
    Hang(frame);
    user.Click(Of(*inside));
    log.clear();
    if (crash)
      home->other().Crash();
    else
      home->other().Destroy(frame);
    home->RunFor(100);
    EXPECT_FALSE(windows.Exists(before));
    EXPECT_NE(Came("").find("picBox lost;"), std::string::npos);
    EXPECT_FALSE(Of(*inside));
    inside->Set(&ControlState::enabled, false);  // without a window nothing is shown
    EXPECT_EQ(Came(user.Click(Of(*inside))), "refused: there is no such control");
    TearDown();
    home->Run([&] { MakeBox(); });
    EXPECT_EQ(Came(user.Click(Of(*inside))), "cmdIn click;");
  }
}

TEST_F(ContainerTest, LeavesNothingInItsHostWhenItsFormGoes) {
  const Window frame = MakeFrame();
  Hang(frame);
  TearDown();
  form.reset();
  home->RunFor(20);
  EXPECT_EQ(Came(""), "");
  EXPECT_TRUE(windows.Exists(frame));
  EXPECT_EQ(windows.TopChild(frame), Window{});
}

// --- The frame -----------------------------------------------------------------------------------

TEST_F(PeersTest, AFormIsDraggedByALabelOfIt) {
  EXPECT_EQ(Came(user.Drag(Of(*label), 3, -4)), "refused: lblName doesn't drag its window");
  label->state.dragsForm = true;
  EXPECT_EQ(Came(user.Drag(Of(*label), 3, -4)), "frmTest moved 103,46;") << "once, at the end";
  EXPECT_EQ(windows.PlaceOf(form->formPeer->Handle()), (Rect{103, 46, 300, 200}));
}

TEST_F(PeersTest, TheFocusPassesOnFromWhatGoesOutOfReach) {
  for (int i = 0; Control * control : {&*button, &*list, &*text}) control->state.tabOrder = i++;
  home->Run([&] { button->peer->TakeFocus(); });
  home->Run([&] { button->Set(&ControlState::enabled, false); });
  EXPECT_EQ(windows.Focus(), Of(*list));
  home->Run([&] { list->Set(&ControlState::visible, false); });
  EXPECT_EQ(windows.Focus(), Of(*text));
}

}  // namespace
}  // namespace corvel::test
