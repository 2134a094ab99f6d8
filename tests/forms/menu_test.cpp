#include "platform/menus.h"
#include "tests/forms/forms_fixture.h"

namespace corvel::forms {
namespace {

// A user at the open pop-up menu: writes down what it shows and chooses the row of that caption.
class MenuUser : public desk::Agent {
 public:
  explicit MenuUser(desk::Desk& desk) : desk_(desk) {}

  bool Act() override {
    if (desk_.Prompts().empty() || desk_.Prompts().back()->answered) return false;
    desk::Prompt& prompt = *desk_.Prompts().back();
    prompt.row = 0;
    shown = Look(prompt.menu, prompt.row);
    if (meanwhile) meanwhile();
    prompt.answered = true;
    return true;
  }
  std::optional<std::int64_t> NextActAt() override { return std::nullopt; }

  std::string choice, shown;
  std::function<void()> meanwhile;

 private:
  std::string Look(MenuHandle menu, std::uint32_t& chosen) {
    Menus& menus = desk_.platform().menus;
    std::string out;
    for (int row = 0; row < menus.Count(menu); ++row) {
      const std::uint32_t state = menus.StateAt(menu, row);
      const std::string text = menus.TextAt(menu, row);
      if (text == choice) chosen = menus.IdAt(menu, row);
      if (state & menu_flag::kSeparator) {
        out += "- ";
        continue;
      }
      out += text + (state & menu_flag::kGrayed ? "(grey)" : "") +
             (state & menu_flag::kChecked ? "(check)" : "");
      if (const MenuHandle sub = menus.SubMenu(menu, row)) out += "{ " + Look(sub, chosen) + "}";
      out += " ";
    }
    return out;
  }

  desk::Desk& desk_;
};

class MenuTest : public FormsTest {
 protected:
  MenuTest() : form_(Load()), user_(desk_) { desk_.SetAgent(&user_); }
  ~MenuTest() override { desk_.SetAgent(nullptr); }

  std::string Choose(Menu& menu, std::string caption) {
    user_.choice = std::move(caption);
    done_.clear();
    As([&] { form_->PopupMenu(menu); });
    return done_;
  }

  MenuRow Named(std::string caption, int id = 0) {
    MenuRow row;
    row.caption = caption;
    row.id = id;
    row.onClick = [this, caption] { done_ += caption; };
    return row;
  }

  std::shared_ptr<TestForm> form_;
  MenuUser user_;
  std::string done_;
};

MenuRow Separator() {
  MenuRow row;
  row.caption = "-";
  return row;
}

TEST_F(MenuTest, ShowsWhatIsVisibleWithSeparatorsOnlyBetweenRows) {
  Menu menu("mnuTest", "Test",
            {Separator(), Named("a", 1), Separator(), Named("b", 2), Separator(), Separator(),
             Named("c", 3), Separator()});
  EXPECT_EQ(Choose(menu, "c"), "c");
  EXPECT_EQ(user_.shown, "a - b - c ");
  menu.Row(2).visible = false;
  Choose(menu, "");
  EXPECT_EQ(user_.shown, "a - c ");
  menu.Row(1).visible = false;
  menu.Row(3).enabled = false;
  menu.Row(3).checked = true;
  EXPECT_EQ(Choose(menu, "c"), "");
  EXPECT_EQ(user_.shown, "c(grey)(check) ");
  EXPECT_THROW(menu.Row(4), std::out_of_range);
}

TEST_F(MenuTest, RunsTheRowsOfSubMenusAndFreesThem) {
  MenuRow deep = Named("deep"), hidden = Named("hidden"), greyed = Named("greyed");
  deep.rows = {Named("x", 7), Named("y")};
  hidden.rows = {Named("x", 8)};
  hidden.visible = false;
  greyed.rows = {Named("z")};
  greyed.enabled = false;
  Menu menu("mnuTest", "Test", {Named("first"), hidden, deep, greyed, Named("last")});
  for (const char* caption : {"first", "x", "y", "last"}) EXPECT_EQ(Choose(menu, caption), caption);
  EXPECT_EQ(user_.shown, "first deep{ x y } greyed(grey){ z } last ");
  EXPECT_EQ(Choose(menu, "nothing"), "");
  EXPECT_EQ(menu.Find(7)->caption, "x") << "found by what it does, wherever it stands";
  EXPECT_EQ(menu.Find(8)->caption, "x") << "hidden ones too";
  EXPECT_EQ(menu.Find(0), nullptr) << "which is no row's id";
}

TEST_F(MenuTest, AMenuMayChangeAndItsFormGoWhileItIsOpen) {
  Menu menu("mnuTest", "Test", {Named("&Turn IMs Off", 1), Named("b", 2)});
  user_.meanwhile = [&] {
    menu.Row(1).caption = "Turn IMs On";
    menu.Rows().clear();
    form_->Unload();
  };
  EXPECT_EQ(Choose(menu, "b"), "b");
  EXPECT_EQ(menu.Find(2), nullptr);
}

}  // namespace
}  // namespace corvel::forms
