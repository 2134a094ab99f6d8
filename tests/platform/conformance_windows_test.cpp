// Finding, walking, placing and ordering windows of another process.
#include "tests/platform/home.h"

#include <gtest/gtest.h>
#include <set>

namespace corvel::test {
namespace {

class Windows : public testing::Test {
 protected:
  Window Frame(const char* caption = "America  Online", bool visible = true) {
    return Keep(other.Make("frame", {.className = "AOL Frame25",
                                     .caption = caption,
                                     .place = {10, 20, 600, 400},
                                     .visible = visible,
                                     .systemClass = {}}));
  }
  Window Child(Window parent, const char* className, const char* caption, bool mdi = false,
               Rect place = {}) {
    return Keep(other.Make(caption, {.className = className,
                                     .caption = caption,
                                     .parent = parent,
                                     .place = place,
                                     .mdiChild = mdi,
                                     .systemClass = {}}));
  }
  // Those of ours: on top of a desktop there are windows of others too.
  std::vector<Window> Siblings(Window parent) {
    std::vector<Window> all;
    for (Window w = windows.TopChild(parent); w; w = windows.Next(w))
      if (made.count(w)) all.push_back(w);
    return all;
  }
  // Its place in its parent's pixels, which begin inside the parent's borders.
  Rect PlaceInParent(Window window) {
    const Window probe = Child(windows.Parent(window), "A", "probe");
    const Rect origin = windows.PlaceOf(probe);
    other.Destroy(probe);
    Rect place = windows.PlaceOf(window);
    place.left -= origin.left;
    place.top -= origin.top;
    return place;
  }

  std::unique_ptr<Home> home = MakeHome();
  OtherProcess& other = home->other();
  WindowSystem& windows = home->platform().windows;

 private:
  Window Keep(Window window) {
    made.insert(window);
    return window;
  }
  std::set<Window> made;
};

using List = std::vector<Window>;

TEST_F(Windows, AreFoundByClassWithoutCaseAndByWholeCaptionWithoutCase) {
  const Window frame = Frame();
  EXPECT_EQ(windows.Find("AOL FRAME25", std::nullopt), frame);
  EXPECT_EQ(windows.Find("aol frame25", "AMERICA  online"), frame);
  EXPECT_EQ(windows.Find(std::nullopt, "America  Online"), frame);
  EXPECT_EQ(windows.Find("AOL Frame25", "America"), Window{});
  EXPECT_EQ(windows.Find("AOL Frame2", std::nullopt), Window{});
  EXPECT_EQ(windows.ClassOf(frame), "AOL Frame25");
  EXPECT_EQ(windows.ProcessOf(frame), other.Id());
}

TEST_F(Windows, OfAClassFirstWrittenOtherwiseKeepTheFirstSpelling) {
  const Window first = Child(Frame(), "_AOL_ICON", "a");
  const Window second = Child(windows.Parent(first), "_AOL_Icon", "b");
  EXPECT_EQ(windows.ClassOf(second), "_AOL_ICON");
}

TEST_F(Windows, NewChildrenStandLastAndMdiChildrenFirst) {
  const Window mdi = Child(Frame(), "MDIClient", "");
  const Window a = Child(mdi, "AOL Child", "a");
  const Window b = Child(mdi, "AOL Child", "b");
  const Window c = Child(mdi, "AOL Child", "c", true);
  EXPECT_EQ(Siblings(mdi), (List{c, a, b}));
  EXPECT_EQ(windows.FindChild(mdi, {}, "aol child", std::nullopt), c);
  EXPECT_EQ(windows.FindChild(mdi, c, "aol child", std::nullopt), a);
  EXPECT_EQ(windows.FindChild(mdi, {}, std::nullopt, "B"), b);
  EXPECT_EQ(windows.FindChild(mdi, b, "aol child", std::nullopt), Window{});
  EXPECT_EQ(windows.FindChild(mdi, windows.Parent(mdi), "aol child", std::nullopt), Window{})
      << "not a child of that parent";
  windows.BringToTop(b);
  EXPECT_EQ(Siblings(mdi), (List{b, c, a}));
}

TEST_F(Windows, TopLevelWindowsComeUpOnTopAndBelowTopmostOnes) {
  const Window first = Frame("first"), second = Frame("second"), third = Frame("third");
  EXPECT_EQ(windows.TopChild({}), third);
  windows.SetTopMost(first);
  windows.BringToTop(second);
  EXPECT_EQ(Siblings({}), (List{first, second, third}));
}

TEST_F(Windows, AnOwnerIsTheParentOfATopLevelWindowAndStaysBelowIt) {
  const Window owner = Frame("owner"), owned = Frame("owned"), third = Frame("third");
  const Window child = Child(owner, "AOL Child", "child");
  windows.SetOwner(owned, child);
  EXPECT_EQ(windows.Parent(owned), owner) << "of a child, its top-level window owns";
  EXPECT_EQ(windows.Parent(third), Window{});
  windows.BringToTop(owner);
  EXPECT_EQ(Siblings({}), (List{owned, owner, third}));
  windows.SetOwner(owner, owned);
  EXPECT_EQ(windows.Parent(owner), Window{}) << "no window owns its owner";
  other.Destroy(owner);
  EXPECT_FALSE(windows.Exists(owned));
}

TEST_F(Windows, EnumerationGoesParentsFirstStopsOnRequestAndSkipsTheDead) {
  const Window frame = Frame();
  const Window a = Child(frame, "A", "a"), aa = Child(a, "A", "aa"), b = Child(frame, "B", "b");
  List seen;
  const auto see = [&](Window w) {
    seen.push_back(w);
    return true;
  };
  EXPECT_TRUE(windows.EnumDescendants(frame, see));
  EXPECT_EQ(seen, (List{a, aa, b}));
  EXPECT_FALSE(windows.EnumDescendants(frame, [&](Window w) { return w != aa; }));
  EXPECT_TRUE(windows.EnumDescendants(aa, [](Window) { return false; }));
  seen.clear();
  EXPECT_TRUE(windows.EnumDescendants(frame, [&](Window w) {
    if (w == a) other.Destroy(a);
    return see(w);
  }));
  EXPECT_EQ(seen, (List{a, b}));
}

TEST_F(Windows, AreVisibleOnlyWithAllTheirParentsButEnabledByThemselves) {
  const Window frame = Frame("f", false);
  const Window child = Child(frame, "A", "a");
  EXPECT_FALSE(windows.IsVisible(child));
  windows.Show(frame, show::kNoActivate);
  EXPECT_TRUE(windows.IsVisible(child));
  windows.Enable(frame, false);
  EXPECT_FALSE(windows.IsEnabled(frame));
  EXPECT_TRUE(windows.IsEnabled(child));
  windows.Show(frame, 6);
  EXPECT_TRUE(windows.IsIconic(frame));
  windows.Show(frame, show::kShow);
  EXPECT_TRUE(windows.IsIconic(frame)) << "showing does not restore";
  windows.Show(frame, show::kRestore);
  EXPECT_FALSE(windows.IsIconic(frame));
}

TEST_F(Windows, GoToANewParentOnTopOfItsChildrenWithTheirPlace) {
  const Window from = Frame("from"), to = Frame("to");
  const Window moved = Child(from, "AOL Child", "moved", false, {5, 6, 50, 60});
  const Window there = Child(to, "A", "there", false, {1, 2, 30, 40});
  EXPECT_EQ(PlaceInParent(moved), (Rect{5, 6, 50, 60}));
  windows.SetParent(moved, to);
  EXPECT_EQ(windows.Parent(moved), to);
  EXPECT_EQ(Siblings(to), (List{moved, there}));
  EXPECT_EQ(windows.TopChild(from), Window{});
  windows.Place(moved, {7, 8, 9, 10});
  EXPECT_EQ(PlaceInParent(moved), (Rect{7, 8, 9, 10}));
  EXPECT_EQ(windows.PlaceOf(to), (Rect{10, 20, 600, 400}));
  windows.SetParent(to, moved);
  EXPECT_EQ(windows.Parent(to), Window{}) << "no window goes into its own child";
}

TEST_F(Windows, WhenDeadAnswerNothingAndTakeNoOrders) {
  const Window frame = Frame();
  const Window child = Child(frame, "A", "a");
  other.Destroy(frame);
  for (const Window dead : {Window{}, frame, child}) {
    EXPECT_FALSE(windows.Exists(dead));
    EXPECT_FALSE(windows.IsVisible(dead));
    EXPECT_FALSE(windows.IsEnabled(dead));
    EXPECT_EQ(windows.ClassOf(dead), "");
    EXPECT_EQ(windows.ProcessOf(dead), 0u);
    EXPECT_EQ(windows.PlaceOf(dead), Rect{});
    EXPECT_EQ(windows.Next(dead), Window{});
    EXPECT_EQ(windows.Send(dead, wm::kGetTextLength, 0, 0), 0);
    EXPECT_EQ(windows.SendForText(dead, wm::kGetText, 0, 10), "");
    EXPECT_FALSE(windows.Post(dead, wm::kClose, 0, 0));
    windows.SetFocus(dead);
    windows.SetParent(dead, {});
    windows.Place(dead, {1, 1, 1, 1});
    windows.EndDialog(dead, 1);
  }
  EXPECT_NE(Frame(), frame) << "a handle is not given out again";
}

TEST_F(Windows, AreActivatedByWholeCaptionElseByItsBeginning) {
  const Window longer = Frame("AOL Canada"), whole = Frame("AOL"), third = Frame("other");
  EXPECT_TRUE(windows.ActivateByCaption("aol"));
  EXPECT_EQ(windows.TopChild({}), whole);
  EXPECT_EQ(windows.Focus(), whole);
  EXPECT_TRUE(windows.ActivateByCaption("AOL C"));
  EXPECT_EQ(windows.Focus(), longer);
  EXPECT_FALSE(windows.ActivateByCaption("nothing"));
  EXPECT_EQ(Siblings({}), (List{longer, whole, third}));
}

TEST_F(Windows, DialogsHaveIconTextAndButtonAndEndByAnyRoad) {
  const Window frame = Frame();
  const auto open = [&] { return other.ShowDialog(frame, "America  Online", "too long"); };
  Window dialog = open();
  EXPECT_EQ(windows.Find("#32770", "America  Online"), dialog);
  EXPECT_EQ(windows.Parent(dialog), frame);
  const Window icon = windows.FindChild(dialog, {}, "Static", std::nullopt);
  const Window text = windows.FindChild(dialog, icon, "Static", std::nullopt);
  EXPECT_EQ(windows.SendForText(text, wm::kGetText, 0, 100), "too long");
  const Window button = windows.FindChild(dialog, {}, "button", std::nullopt);
  windows.Send(button, wm::kLButtonUp, 0, 0);
  EXPECT_TRUE(windows.Exists(dialog)) << "the mouse did not go down on the button";
  windows.Send(button, wm::kLButtonDown, 0, 0);
  windows.Send(button, wm::kLButtonUp, 0, 0);
  EXPECT_FALSE(windows.Exists(dialog));
  const std::function<void(Window)> roads[] = {
      [&](Window d) { windows.EndDialog(d, -1); },
      [&](Window d) { windows.Send(d, wm::kClose, 0, 0); },
      [&](Window d) { windows.Send(d, wm::kCommand, 2, 0); }};
  for (const auto& road : roads) {
    dialog = open();
    ASSERT_TRUE(windows.Exists(dialog));
    road(dialog);
    EXPECT_FALSE(windows.Exists(dialog));
  }
  windows.EndDialog(frame, -1);
  EXPECT_TRUE(windows.Exists(frame)) << "only dialogs end so";
}

}  // namespace
}  // namespace corvel::test
