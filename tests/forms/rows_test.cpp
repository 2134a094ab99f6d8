#include "tests/forms/forms_fixture.h"

#include <numeric>

namespace corvel::forms {
namespace {

using Texts = std::vector<std::string>;

struct ListForm : TestForm {
  using TestForm::TestForm;
  ListBox plain{*this, "lstPlain"};
  ListBox sorted{*this, "lstSorted", true};
  ListBox multi{*this, "lstMulti", false, true};
  ComboBox combo{*this, "cboBox"};
  TabStrip tabs{*this, "TabStrip1"};
  ListView view{*this, "lvw", {"Name", "Count"}};
};

class RowsTest : public FormsTest {
 protected:
  RowsTest() : form_(Load<ListForm>()) {}

  // The rows that onClick was raised for.
  std::vector<int>& WatchClicks(Rows& rows) {
    rows.onClick = [this, &rows] { clicks_.push_back(rows.ListIndex()); };
    return clicks_;
  }

  std::shared_ptr<ListForm> form_;
  std::vector<int> clicks_;
};

TEST_F(RowsTest, KeepSortedRowsInOrderBehindEqualOnes) {
  ListBox& list = form_->sorted;
  for (const char* text : {"b", "A", "a", "C", "\xE4", "\xC4"}) list.AddItem(text);
  EXPECT_EQ(list.Items(), (Texts{"A", "a", "b", "C", "\xE4", "\xC4"}));
  EXPECT_EQ(list.AddItem("B"), 3);
  EXPECT_EQ(list.NewIndex(), 3);

  const std::vector<std::size_t> order =
      list.SetItems({"longer name b", "B", "longer name A", "b", "", "longer"});
  EXPECT_EQ(list.Items(), (Texts{"", "B", "b", "longer", "longer name A", "longer name b"}));
  EXPECT_EQ(order, (std::vector<std::size_t>{4, 1, 3, 5, 2, 0}));
}

TEST_F(RowsTest, SortInOneStepAsOneByOne) {
  Texts items;
  std::uint32_t seed = 17;
  for (int i = 0; i < 400; ++i) {
    std::string text;
    for (std::uint32_t n = (seed = seed * 1664525 + 1013904223) >> 29; n > 0; --n)
      text += std::string_view(
          "aA\xE9\0z"
          "bbbbbb",
          11)[(seed = seed * 1664525 + 1013904223) >> 16 & 7];
    items.push_back(text);
  }
  for (const std::string& text : items) form_->sorted.AddItem(text);
  const Texts oneByOne = form_->sorted.Items();
  form_->sorted.SetItems(items);
  EXPECT_EQ(form_->sorted.Items(), oneByOne);
}

TEST_F(RowsTest, CurrentRowFollowsItsItem) {
  ListBox& list = form_->plain;
  for (const char* text : {"a", "b", "c", "d"}) list.AddItem(text);
  for (int row = 0; row < 4; ++row) list.SetItemData(row, row * 10);
  list.SetListIndex(2);
  EXPECT_EQ(list.AddItem("front", 0), 0);
  EXPECT_EQ(list.Text(), "c");
  EXPECT_EQ(list.ItemData(3), 20);
  list.RemoveItem(1);
  EXPECT_EQ(list.Text(), "c");
  EXPECT_EQ(list.NewIndex(), -1);
  list.RemoveItem(2);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
  EXPECT_EQ(list.Items(), (Texts{"front", "b", "d"}));
  list.RemoveItem(3), list.RemoveItem(-1), list.SetItem(3, "x"), list.SetItemData(-1, 5);
  EXPECT_EQ(list.ListCount(), 3);
  EXPECT_EQ(list.List(-1) + list.List(3), "");
  EXPECT_EQ(list.AddItem("far", 99), 3);
}

TEST_F(RowsTest, SetListIndexRaisesClickOnlyForAChangeToARow) {
  ComboBox& combo = form_->combo;
  for (const char* text : {"a", "b"}) combo.AddItem(text);
  const auto& clicks = WatchClicks(combo);
  As([&] {
    for (const int row : {1, 1, 2, -7, 0}) combo.SetListIndex(row);
    combo.UserSelect(0, false);  // the user's click counts on the current row too
    combo.UserSelect(9, false);
  });
  EXPECT_EQ(clicks, (std::vector<int>{1, 0, 0}));
}

TEST_F(RowsTest, FindStringGoesRoundAndIgnoresCase) {
  for (const char* text : {"Garland", "hug", "Gar", "hugs"}) form_->combo.AddItem(text);
  const struct {
    int after;
    const char* text;
    int row;
  } kCases[] = {{-1, "gar", 0}, {0, "GAR", 2},  {2, "gar", 0}, {1, "hug", 3}, {3, "hug", 1},
                {1, "x", -1},   {3, "hugs", 3}, {99, "h", 1},  {-1, "", -1}};
  for (const auto& c : kCases)
    EXPECT_EQ(form_->combo.FindString(c.after, c.text), c.row) << c.after << c.text;
  EXPECT_EQ(form_->combo.FindExact("gar"), -1);
  EXPECT_EQ(form_->combo.FindExact("Gar"), 2);
}

TEST_F(RowsTest, MultipleSelectionMarksApartFromTheCurrentRow) {
  ListBox& list = form_->multi;
  for (const char* text : {"a", "b", "c", "d"}) list.AddItem(text);
  const auto marks = [&list] { return list.SelectedRows(); };
  using Marks = std::vector<int>;
  As([&] {
    list.SetListIndex(3);
    EXPECT_EQ(marks(), Marks{});
    list.UserSelect(1, false);
    list.UserSelect(2, true);
    EXPECT_EQ(marks(), (Marks{1, 2}));
    list.AddItem("front", 0);
    EXPECT_EQ(marks(), (Marks{2, 3}));
    list.RemoveItem(2);
    EXPECT_EQ(marks(), Marks{2});
    EXPECT_EQ(list.Text(), "c");
    list.UserSelect(2, true);  // turns it over
    EXPECT_EQ(marks(), Marks{});
    list.SetSelected(0, true), list.SetSelected(99, true);
    list.UserSelect(3, false);
    EXPECT_EQ(marks(), Marks{3});
    list.UserSelect(-1, false);
    EXPECT_EQ(marks(), Marks{});
    list.SetItems({"x"});
    EXPECT_FALSE(list.Selected(0));
  });
  form_->plain.AddItem("only");
  As([&] { form_->plain.SetSelected(0, true); });
  EXPECT_EQ(form_->plain.SelectedRows(), Marks{0});
  EXPECT_TRUE(form_->plain.State().marked.empty());
}

TEST_F(RowsTest, BulkStepsOnManyRows) {
  constexpr int kRows = 100'000;
  Texts names;
  for (int i = 0; i < kRows; ++i) names.push_back("wav" + std::to_string(i * 7919LL % kRows));
  form_->sorted.SetItems(names);
  EXPECT_EQ(form_->sorted.List(0), "wav0");
  EXPECT_EQ(form_->sorted.List(kRows - 1), "wav99999");
  As([&] {
    for (const std::string& name : names) form_->multi.AddItem(name);
    for (int row = 0; row < kRows; row += 2) form_->multi.SetSelected(row, true);
    form_->multi.SetListIndex(kRows - 1);
    form_->multi.RemoveRows(form_->multi.SelectedRows());
  });
  EXPECT_EQ(form_->multi.ListCount(), kRows / 2);
  EXPECT_EQ(form_->multi.List(0), names[1]);
  EXPECT_EQ(form_->multi.Text(), names[kRows - 1]);
  EXPECT_TRUE(form_->multi.SelectedRows().empty());
}

TEST_F(RowsTest, RemoveRowsForgivesWhatIsNotThere) {
  form_->plain.SetItems({"a", "b", "c"});
  form_->plain.SetListIndex(1);
  form_->plain.RemoveRows({-1, 1, 1, 3});
  EXPECT_EQ(form_->plain.Items(), (Texts{"a", "c"}));
  EXPECT_EQ(form_->plain.ListIndex(), -1);
}

TEST_F(RowsTest, ListViewSortsWithDataAndCurrentRow) {
  ListView& view = form_->view;
  view.SetItems({"zed\t1", "Amy\t3", "bob"});
  for (int row = 0; row < 3; ++row) view.SetItemData(row, row);
  view.SetListIndex(0);
  view.Sort();
  EXPECT_EQ(view.Items(), (Texts{"Amy\t3", "bob", "zed\t1"}));
  EXPECT_EQ(view.ListIndex(), 2);
  EXPECT_EQ(view.ItemData(0), 1);
  EXPECT_EQ(view.Cell(0, 1), "3");
  EXPECT_EQ(view.Cell(1, 1) + view.Cell(0, 2) + view.Cell(0, -1) + view.Cell(9, 0), "");
}

TEST_F(RowsTest, KeysMoveTheCurrentRow) {
  form_->plain.SetItems({"a", "b", "c"});
  form_->tabs.AddItem("1"), form_->tabs.AddItem("2");
  const auto& clicks = WatchClicks(form_->plain);
  As([&] {
    for (const Key key : {Key::kUp, Key::kDown, Key::kEnd, Key::kDown, Key::kUp, Key::kHome})
      EXPECT_TRUE(form_->plain.UserKey(key));
    EXPECT_FALSE(form_->plain.UserKey(Key::kRight));
    form_->tabs.UserKey(Key::kRight), form_->tabs.UserKey(Key::kRight);
    EXPECT_TRUE(form_->combo.UserKey(Key::kDown));  // without rows
  });
  EXPECT_EQ(clicks, (std::vector<int>{0, 1, 2, 1, 0}));
  EXPECT_EQ(form_->tabs.ListIndex(), 1);
  EXPECT_EQ(form_->combo.ListIndex(), -1);
}

TEST_F(RowsTest, PicturesGoWithTheirRows) {
  using Images = std::vector<int>;
  ListView& view = form_->view;
  const auto images = [&view] {
    Images all;
    for (int row = 0; row < view.ListCount(); ++row) all.push_back(view.Image(row));
    return all;
  };
  view.SetItems({"c", "a", "b"});
  EXPECT_TRUE(view.State().images.empty());
  view.SetImage(0, row_image::kUnread);
  view.SetImage(2, row_image::kRead);
  view.Sort();
  EXPECT_EQ(images(), (Images{0, 2, 1})) << "of a, b, c";
  view.AddItem("new", 1);
  EXPECT_EQ(images(), (Images{0, 0, 2, 1}));
  view.RemoveItem(0);
  EXPECT_EQ(images(), (Images{0, 2, 1}));
  view.SetImage(2, -1);
  view.SetImage(1, 99);
  view.SetImage(5, row_image::kRead);
  EXPECT_EQ(images(), (Images{0, 0, 0}));
  EXPECT_EQ(view.Image(7), row_image::kNone);
  view.SetImage(0, row_image::kRead);
  view.SetItems({"x"});
  EXPECT_EQ(images(), Images{0});
}

}  // namespace
}  // namespace corvel::forms
