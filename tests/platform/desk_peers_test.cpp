// Forms and controls on the desk, and the user's hand on them.

#include "platform/desk/desk_peers.h"

#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "tests/platform/desk_home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class Control : public ControlEvents {
 public:
  Control(FormPeer& form, ControlKind kind, const char* name, Log& log) : log_(log) {
    state.kind = kind;
    state.name = name;
    state.place = {1, 2, 30, 10};
    peer = form.Add(state, *this);
  }
  void UserClick() override { Say("click"); }
  void UserDoubleClick() override { Say("dblclick"); }
  void UserRightClick() override { Say("right"); }
  void UserSelect(int row, bool keep) override {
    Say("select " + std::to_string(row) + (keep ? "+" : ""));
  }
  void UserText(const std::string& text) override { Say("text " + text); }
  bool UserKey(Key) override { return usesKeys; }
  void UserDrag(int dx, int dy) override {
    Say("drag " + std::to_string(dx) + "," + std::to_string(dy));
  }
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
  Form(Peers& peers, const char* name, Log& log) : log_(log) {
    state.name = name;
    state.caption = std::string("the ") + name;
    state.place = {100, 50, 300, 200};
    peer = peers.CreateForm(state, *this);
  }
  void UserClose() override { log_.push_back(state.name + " close"); }
  void UserMoved(int left, int top) override {
    log_.push_back(state.name + " moved " + std::to_string(left) + "," + std::to_string(top));
  }
  void UserResized(int, int) override {}
  void OnMessage(MessageId id, WParam wParam, LParam) override {
    log_.push_back(LogLine(state.name, {.id = id, .wParam = wParam}));
  }
  void Show(bool visible = true, bool activate = true) {
    state.visible = visible;
    peer->ApplyVisible(activate);
  }

  FormState state;
  std::unique_ptr<FormPeer> peer;

 private:
  Log& log_;
};

class DeskPeersTest : public testing::Test {
 protected:
  void SetUp() override {
    home.Run([&] {
      form.emplace(platform.peers, "frmTest", log);
      button.emplace(*form->peer, ControlKind::kButton, "cmdOk", log);
      list.emplace(*form->peer, ControlKind::kListBox, "lstNames", log);
      text.emplace(*form->peer, ControlKind::kTextBox, "txtName", log);
      form->Show();
    });
    list->state.items = {"a", "b", "c"};
  }
  // Runs what the user does and gives what came of it, or why it could not be done.
  std::string Came(const desk::DeskPeers::Done& done) {
    if (!done.refusal.empty()) return "refused: " + done.refusal;
    log.clear();
    desk.RunDue();
    std::string all;
    for (const std::string& line : log) all += line + ";";
    return all;
  }
  Window Of(Control& control) { return control.peer->Handle(); }

  DeskHome home;
  desk::Desk& desk = home.desk;
  Platform& platform = home.platform();
  desk::DeskPeers& user = desk.peers();
  Log log;
  std::optional<Form> form;
  std::optional<Control> button, list, text;
};

TEST_F(DeskPeersTest, FormsAndControlsAreWindowsThatFollowTheirState) {
  WindowSystem& windows = platform.windows;
  const Window window = form->peer->Handle();
  EXPECT_EQ(windows.Find("CorvelForm", "the frmTest"), window);
  EXPECT_EQ(windows.PlaceOf(Of(*button)), (Rect{101, 52, 30, 10}));
  text->state.text = "typed";
  EXPECT_EQ(windows.SendForText(Of(*text), wm::kGetText, 0, 100), "typed");
  EXPECT_TRUE(windows.IsVisible(Of(*text)));
  text->Set(&ControlState::visible, false);
  EXPECT_FALSE(windows.IsVisible(Of(*text)));
  EXPECT_EQ(windows.Focus(), Of(*button)) << "the first in tab order";
  EXPECT_EQ(user.FindForm("FRMTEST")->window, window);
  EXPECT_EQ(user.FindControl(window, "CMDOK", -1)->window, Of(*button));
  EXPECT_FALSE(user.FindControl(window, "cmdOk", 0));
  EXPECT_EQ(user.ControlsOf(window).size(), 3u);
}

TEST_F(DeskPeersTest, TheUsersHandReachesTheEvents) {
  EXPECT_EQ(Came(user.Click(Of(*button))), "cmdOk click;");
  EXPECT_EQ(Came(user.Select(Of(*list), 2, true)), "lstNames select 2+;");
  list->state.selected = 0;
  EXPECT_EQ(Came(user.DoubleClick(Of(*list))), "lstNames dblclick;");
  EXPECT_EQ(Came(user.RightClick(Of(*list))), "lstNames right;");
  EXPECT_EQ(Came(user.Type(Of(*text), "new")), "txtName text new;");
  EXPECT_EQ(user.FocusedControl(), Of(*text));
  EXPECT_EQ(Came(user.Drag(Of(*button), 3, -4)), "cmdOk drag 3,-4;");
  EXPECT_EQ(Came(user.Close(form->peer->Handle())), "frmTest close;");
  EXPECT_EQ(Came(user.MoveForm(form->peer->Handle(), 5, 6)), "frmTest moved 5,6;");
  EXPECT_EQ(platform.windows.PlaceOf(form->peer->Handle()), (Rect{5, 6, 300, 200}));
}

TEST_F(DeskPeersTest, KeysDoWhatTheSystemDoesUnlessTheControlUsesThem) {
  button->state.isDefault = button->state.isCancel = true;
  text->state.text = "ab";
  list->state.selected = 1;
  const struct {
    Control& control;
    Key key;
    const char* came;
  } cases[] = {
      {*text, Key::kEnter, "cmdOk click;"},        {*text, Key::kEscape, "cmdOk click;"},
      {*text, Key::kBackspace, "txtName text a;"}, {*text, Key::kUp, ""},
      {*list, Key::kDown, "lstNames select 2;"},   {*list, Key::kHome, "lstNames select 0;"},
      {*button, Key::kSpace, "cmdOk click;"}};
  for (const auto& c : cases)
    EXPECT_EQ(Came(user.Press(Of(c.control), c.key)), c.came) << static_cast<int>(c.key);
  text->state.multiLine = true;
  EXPECT_EQ(Came(user.Press(Of(*text), Key::kEnter)), "txtName text ab\r\n;");
  text->usesKeys = true;
  EXPECT_EQ(Came(user.Press(Of(*text), Key::kEscape)), "");
}

TEST_F(DeskPeersTest, WhatAUserCannotReachIsRefusedInWords) {
  EXPECT_EQ(Came(user.Select(Of(*list), 3, false)), "refused: lstNames has no row 3");
  EXPECT_EQ(Came(user.DoubleClick(Of(*list))), "refused: lstNames has no current row");
  EXPECT_EQ(Came(user.Type(Of(*button), "x")), "refused: cmdOk is not a text box");
  EXPECT_EQ(Came(user.Click({})), "refused: there is no such control");
  button->Set(&ControlState::enabled, false);
  EXPECT_EQ(Came(user.Click(Of(*button))), "refused: cmdOk is disabled");
  button->Set(&ControlState::visible, false);
  EXPECT_EQ(Came(user.Click(Of(*button))), "refused: cmdOk is not visible");
  desk.Prompts().push_back(std::make_shared<desk::Prompt>());
  EXPECT_EQ(Came(user.Click(Of(*list))), "refused: a dialog of the system waits for its answer");
  desk.Prompts().clear();
  form->state.closable = false;
  EXPECT_EQ(Came(user.Close(form->peer->Handle())), "refused: frmTest has no close box");
  form->state.enabled = false;
  form->peer->Changed(Aspect::kEnabled);
  EXPECT_EQ(Came(user.Click(Of(*list))), "refused: frmTest is disabled");
  home.Run([&] { form->Show(false); });
  EXPECT_EQ(Came(user.Click(Of(*list))), "refused: frmTest is not visible");
}

TEST_F(DeskPeersTest, AnActThatComesTooLateDoesNothing) {
  user.Click(Of(*button));
  button->Set(&ControlState::enabled, false);
  user.Click(Of(*list));
  list.reset();
  desk.RunDue();
  EXPECT_EQ(log, Log{});
}

TEST_F(DeskPeersTest, MessagesToAFormReachItsEvents) {
  const Window window = form->peer->Handle();
  platform.events.StartTimer(window, 3, 50);
  platform.windows.Post(window, wm::kUser, 8, 0);
  platform.windows.Send(window, wm::kClose, 0, 0);
  desk.RunFor(60);
  EXPECT_EQ(log, (Log{"frmTest close", "frmTest:1024(8)", "frmTest:timer(3)"}));
  EXPECT_TRUE(platform.windows.Exists(window)) << "closing is the form's own affair";
}

TEST_F(DeskPeersTest, ShowingIsJournalledOnceAndFormsGoInAnyOrder) {
  const Window window = form->peer->Handle();
  home.Run([&] {
    form->Show();
    Form second(platform.peers, "frmSecond", log);
    second.Show(true, false);
    EXPECT_EQ(user.Forms().size(), 2u);
    EXPECT_EQ(platform.windows.Focus(), Of(*button)) << "shown without activation";
  });
  const Window frame = home.other().Make("f", {.className = "F", .caption = {}, .systemClass = {}});
  platform.windows.SetOwner(window, frame);
  home.other().Destroy(frame);
  EXPECT_TRUE(user.Forms().empty());
  form->Show();
  form.reset();
  Log kinds;
  for (const auto& entry : desk.journal().Entries())
    if (entry.kind == "shown" || entry.kind == "hidden")
      kinds.push_back(entry.kind + " " + entry.words[0]);
  EXPECT_EQ(kinds, (Log{"shown frmTest", "shown frmSecond", "hidden frmSecond", "hidden frmTest"}));
}

}  // namespace
}  // namespace corvel::test
