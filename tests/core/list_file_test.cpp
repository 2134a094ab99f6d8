#include "core/list_file.h"

#include "base/error.h"
#include "core/helpers.h"
#include "tests/core/core_fixture.h"

#include <fstream>
#include <iterator>

namespace corvel {
namespace {

std::string Shown(const std::vector<ListRow>& rows) {
  std::string text;
  for (const ListRow& row : rows) text += row.text + "=" + std::to_string(row.number) + ";";
  return text;
}

TEST(ListFile, ReadsRowsFromAnyBytes) {
  using namespace std::string_literals;
  struct Case {
    std::string bytes, rows;
  };
  const Case cases[] = {
      {"", ""},
      {"one\t\r\ntwo\t5\r\n", "one=0;two=5;"},
      {"no tab\r\nwith\t-3", "with=-3;"},
      {"cut\tat\tthe first\r\n", "cut=0;"},
      {"\t7\r\n\t\r\n", "=7;=0;"},
      {"big\t99999999999\r\n", "big=2147483647;"},
      {"not a number\tabc\r\n", "not a number=0;"},
      {"lone\t1\nline\t2\rends\t3", "lone=1;line=2;ends=3;"},
      {"a\0b\t4\r\n\xFF\t\r\n"s, "a\0b=4;\xFF=0;"s},
  };
  for (const Case& c : cases) EXPECT_EQ(Shown(ParseListFile(c.bytes)), c.rows);
}

TEST(ListFile, WhatIsWrittenIsReadAgain) {
  const std::vector<std::string> rows = {"", "plain", " blanks ", "\x80\xFF~B", "line\r\nend"};
  EXPECT_EQ(Shown(ParseListFile(FormatListFile(rows))),
            "=0;plain=0; blanks =0;\x80\xFF~B=0;line  end=0;");
}

TEST(ListFile, TheExampleOfItsPageIsReadAsThePageSays) {
  std::ifstream file(CORVEL_SOURCE_DIR "/docs/formats/list.dat", std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  EXPECT_EQ(Shown(ParseListFile(bytes)), "pear=1;Ann Bob=0;\x95\xA4\x95{%}=-3;");
}

class ListFileTest : public CoreTest {
 protected:
  struct ListForm : ProgramForm {
    explicit ListForm(Program& p)
        : ProgramForm(p, "frmList"),
          plain(*this, "plain"),
          sorted(*this, "sorted", true),
          combo(*this, "combo") {}
    forms::ListBox plain, sorted;
    forms::ComboBox combo;
  };
  void SetUp() override { desk_.files().PutFolder("C:\\Corvel\\data"); }
  std::string Path() const { return "C:\\Corvel\\data\\list.dat"; }
};

TEST_F(ListFileTest, LoadsNumbersBesideTheirRowsInEveryKindOfList) {
  desk_.files().Put(Path(), "pear\t1\r\nno row\r\napple\t2\r\nfig\t\r\n");
  As([&] {
    auto form = program_->forms.LoadNew<ListForm>(*program_);
    for (forms::Rows* list :
         std::initializer_list<forms::Rows*>{&form->plain, &form->sorted, &form->combo})
      LoadListItemData(*program_, *list, Path());
    EXPECT_EQ(form->plain.Items(), (std::vector<std::string>{"pear", "apple", "fig"}));
    EXPECT_EQ(form->combo.ItemData(1), 2);
    EXPECT_EQ(form->sorted.Items(), (std::vector<std::string>{"apple", "fig", "pear"}));
    EXPECT_EQ(form->sorted.ItemData(0), 2);
    EXPECT_EQ(form->sorted.ItemData(2), 1);
    LoadListItemData(*program_, form->plain, Path());
    EXPECT_EQ(form->plain.ListCount(), 6) << "added to what is there";
    SaveListItemData(*program_, form->combo, Path());
  });
  EXPECT_EQ(desk_.files().Peek(Path()), "pear\t\r\napple\t\r\nfig\t\r\n") << "numbers aren't kept";
}

TEST_F(ListFileTest, AMissingFileComesToExist) {
  As([&] {
    auto form = program_->forms.LoadNew<ListForm>(*program_);
    LoadListItemData(*program_, form->plain, Path());
    EXPECT_EQ(form->plain.ListCount(), 0);
    EXPECT_THROW(LoadListItemData(*program_, form->plain, "C:\\No\\list.dat"), RunTimeError);
  });
  EXPECT_EQ(desk_.files().Peek(Path()), "");
}

TEST_F(ListFileTest, AppendAddsToBothOrToNeither) {
  desk_.files().Put(Path(), "edited by hand\t");
  As([&] {
    auto form = program_->forms.LoadNew<ListForm>(*program_);
    std::string text = "new";
    AppendList(*program_, form->plain, Path(), text);
    EXPECT_EQ(text, "");
    desk_.files().Lock(Path(), true);
    text = "refused";
    EXPECT_THROW(AppendList(*program_, form->plain, Path(), text), RunTimeError);
    EXPECT_EQ(text, "refused");
    EXPECT_EQ(form->plain.Items(), std::vector<std::string>{"new"});
  });
  EXPECT_EQ(desk_.files().Peek(Path()), "edited by hand\t\r\nnew\t\r\n");
}

}  // namespace
}  // namespace corvel
