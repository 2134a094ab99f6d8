// Menus of another process's window.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

using namespace menu_flag;

class MenusTest : public testing::Test {
 protected:
  MenusTest() {
    frame = other.Make("frame", {.className = "AOL Frame25", .caption = {}, .systemClass = {}});
    other.MakeMenu(frame, {"&File/&New\tCtrl+N=101", "&File/-", "&File/E&xit=8207",
                           "&Help/&About=7", "Plain=9"});
    bar = menus.MenuOf(frame);
    file = menus.SubMenu(bar, 0);
  }
  Log Rows(MenuHandle menu) {
    Log rows;
    for (int i = 0; i < menus.Count(menu); ++i)
      rows.push_back(menus.TextAt(menu, i) + "=" +
                     std::to_string(static_cast<int>(menus.IdAt(menu, i))));
    return rows;
  }

  std::unique_ptr<Home> home = MakeHome();
  OtherProcess& other = home->other();
  Menus& menus = home->platform().menus;
  Window frame;
  MenuHandle bar, file;
};

TEST_F(MenusTest, AreTreesOfRows) {
  EXPECT_EQ(Rows(bar), (Log{"&File=-1", "&Help=-1", "Plain=9"}));
  EXPECT_EQ(Rows(file), (Log{"&New\tCtrl+N=101", "=0", "E&xit=8207"}));
  EXPECT_EQ(menus.SubMenu(bar, 2), MenuHandle{});
  EXPECT_TRUE(menus.StateAt(file, 1) & kSeparator);
  EXPECT_EQ(menus.TextAt(file, 3), "");
  EXPECT_EQ(menus.IdAt(file, -1), 0xFFFFFFFFu);
}

TEST_F(MenusTest, TakeRowsByPositionAndByCommandInAnyDepth) {
  EXPECT_TRUE(menus.Insert(bar, 8207, kByCommand, 1402, {}, "&Turn IM's Off"));
  EXPECT_TRUE(menus.Insert(file, 0, kByPosition | kChecked, 1, {}, "first"));
  EXPECT_TRUE(menus.Insert(file, -1, kByPosition | kSeparator, 2, {}, "ignored"));
  EXPECT_TRUE(menus.Insert(file, 5555, kByCommand, 3, {}, "unknown: to the end"));
  EXPECT_EQ(Rows(file), (Log{"first=1", "&New\tCtrl+N=101", "=0", "&Turn IM's Off=1402",
                             "E&xit=8207", "=0", "unknown: to the end=3"}));
  EXPECT_EQ(menus.StateAt(file, 0), kChecked);
}

TEST_F(MenusTest, AreModifiedAndDeletedByCommandFromTheBar) {
  EXPECT_TRUE(menus.Modify(bar, 101, kByCommand | kGrayed, 102, "changed"));
  EXPECT_FALSE(menus.Modify(bar, 101, kByCommand, 101, "gone"));
  EXPECT_FALSE(menus.Modify(bar, 3, kByPosition, 101, "no such row"));
  EXPECT_TRUE(menus.Delete(bar, 7, kByCommand));
  EXPECT_FALSE(menus.Delete(bar, 7, kByCommand));
  EXPECT_TRUE(menus.Delete(file, 1, kByPosition));
  EXPECT_EQ(Rows(file), (Log{"changed=102", "E&xit=8207"}));
  EXPECT_EQ(menus.StateAt(file, 0), kGrayed);
  EXPECT_EQ(menus.Count(menus.SubMenu(bar, 1)), 0);
  menus.DrawBar(frame);
}

TEST_F(MenusTest, OwnTheirSubMenus) {
  MenuHandle popup, deeper;
  home->Run([&] {
    popup = menus.CreatePopup();
    deeper = menus.CreatePopup();
  });
  EXPECT_TRUE(menus.Insert(popup, -1, kByPosition | kPopup, 0, deeper, "deeper"));
  EXPECT_TRUE(menus.Insert(bar, 1, kByPosition | kPopup, 0, popup, "&Corvel"));
  EXPECT_EQ(menus.SubMenu(bar, 1), popup);
  EXPECT_FALSE(menus.Insert(deeper, -1, kByPosition | kPopup, 0, bar, "itself"));
  EXPECT_TRUE(menus.Delete(bar, 1, kByPosition));
  for (const MenuHandle gone : {popup, deeper}) {
    EXPECT_EQ(menus.Count(gone), -1);
    EXPECT_FALSE(menus.Insert(gone, -1, kByPosition, 1, {}, "x"));
    EXPECT_EQ(menus.TextAt(gone, 0), "");
  }
}

TEST_F(MenusTest, OfOursAreFreedByHandWithTheirSubMenus) {
  home->Run([&] {
    const MenuHandle popup = menus.CreatePopup(), deeper = menus.CreatePopup();
    menus.Insert(popup, -1, kByPosition | kPopup, 0, deeper, "deeper");
    menus.Destroy(popup);
    EXPECT_EQ(menus.Count(popup), -1);
    EXPECT_EQ(menus.Count(deeper), -1);
    menus.Destroy(popup);
  });
}

TEST_F(MenusTest, PopUpAndWaitForTheUser) {
  Counting procedure(home->platform().ownWindows);
  home->Run([&] {
    const Window owner = home->platform().ownWindows.Create(
        {.className = "Owner", .caption = {}, .place = {0, 0, 99, 99}, .systemClass = {}},
        procedure);
    const MenuHandle popup = menus.CreatePopup();
    for (const std::uint32_t id : {11, 12, 13})
      menus.Insert(popup, -1, kByPosition, id, {}, "row " + std::to_string(id));
    home->platform().events.StartTimer(owner, 1, 10);
    home->user().WillAnswer({.row = 1, .before = [&] { home->RunFor(50); }});
    EXPECT_EQ(menus.TrackPopup(popup, owner), 12u);
    EXPECT_GE(procedure.came[wm::kTimer], 1) << "events go on meanwhile";
    home->user().WillAnswer({.row = -1});
    EXPECT_EQ(menus.TrackPopup(popup, owner), 0u);
    EXPECT_EQ(menus.TrackPopup({}, owner), 0u);
    EXPECT_EQ(menus.TrackPopup(popup, {}), 0u);
    menus.Destroy(popup);
    home->platform().ownWindows.Destroy(owner);
  });
}

TEST_F(MenusTest, GoWithTheirWindow) {
  other.Destroy(frame);
  EXPECT_EQ(menus.MenuOf(frame), MenuHandle{});
  EXPECT_EQ(menus.Count(bar), -1);
  EXPECT_EQ(menus.Count(file), -1);
}

}  // namespace
}  // namespace corvel::test
