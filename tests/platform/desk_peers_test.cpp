// What the desk tells of forms beyond the seam: who stands where, and the journal.
#include "platform/desk/desk_peers.h"

#include "platform/desk/desk_services.h"
#include "tests/platform/desk_home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

struct NoFormEvents : FormEvents {
  void UserClose() override {}
  void UserMoved(int, int) override {}
  void UserResized(int, int) override {}
  void OnMessage(MessageId, WParam, LParam) override {}
};

struct NoControlEvents : ControlEvents {
  void UserClick() override {}
  void UserDoubleClick() override {}
  void UserRightClick() override {}
  void UserSelect(int, bool) override {}
  void UserText(const std::string&) override {}
  bool UserKey(Key) override { return false; }
  void WindowPlaced(const Rect&) override {}
  void WindowLost() override {}
};

class DeskPeersTest : public testing::Test {
 protected:
  std::unique_ptr<FormPeer> Show(FormState& state, const char* name) {
    state.name = name;
    state.visible = true;
    std::unique_ptr<FormPeer> form;
    home.Run([&] {
      form = peers.CreateForm(state, formEvents);
      form->ApplyVisible(true);
    });
    return form;
  }
  Log Kinds() {
    Log kinds;
    for (const auto& entry : home.desk.journal().Entries())
      if (entry.kind == "shown" || entry.kind == "hidden")
        kinds.push_back(entry.kind + " " + entry.words[0]);
    return kinds;
  }

  DeskHome home;
  desk::DeskPeers& peers = home.desk.peers();
  NoFormEvents formEvents;
  NoControlEvents controlEvents;
  FormState first, second;
};

TEST_F(DeskPeersTest, FormsAndControlsAreFoundByName) {
  auto form = Show(first, "frmTest");
  ControlState state;
  state.kind = ControlKind::kButton;
  state.name = "cmdOk";
  state.index = 3;
  const auto button = form->Add(state, controlEvents);
  form->ApplyVisible(true);
  EXPECT_EQ(peers.FindForm("FRMTEST")->window, form->Handle());
  EXPECT_EQ(peers.FindControl(form->Handle(), "CMDOK", 3)->window, button->Handle());
  EXPECT_FALSE(peers.FindControl(form->Handle(), "cmdOk", -1));
  EXPECT_EQ(peers.ControlsOf(form->Handle()).size(), 1u);
  EXPECT_EQ(peers.FocusedControl(), button->Handle());
  home.desk.Prompts().push_back(std::make_shared<desk::Prompt>());
  home.desk.Prompts()[0]->kind = desk::Prompt::Kind::kPopup;
  EXPECT_EQ(home.user().Click(button->Handle()), "a pop-up menu is open");
  home.desk.Prompts().clear();
}

TEST_F(DeskPeersTest, ShowingIsJournalledOnceAlsoWhereAnOwnerTakesTheFormAlong) {
  auto form = Show(first, "frmTest");
  form->ApplyVisible(true);
  Show(second, "frmSecond").reset();
  const Window frame = home.other().Make("f", {.className = "F", .caption = {}, .systemClass = {}});
  home.platform().windows.SetOwner(form->Handle(), frame);
  home.other().Destroy(frame);
  EXPECT_TRUE(peers.Forms().empty());
  form.reset();
  EXPECT_EQ(Kinds(),
            (Log{"shown frmTest", "shown frmSecond", "hidden frmSecond", "hidden frmTest"}));
}

}  // namespace
}  // namespace corvel::test
