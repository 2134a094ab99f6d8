// docs/formats/settings.md: what stands behind its mark is made of the declarations. To make it
// anew:  CORVEL_WRITE_PAGE=1 build/test/tests/test_core --gtest_filter='SettingsPage.*'
#include "base/cp1252.h"
#include "tests/core/core_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace corvel {
namespace {

constexpr const char* kPage = CORVEL_SOURCE_DIR "/docs/formats/settings.md";
constexpr std::string_view kMark = "<!-- From here on made of the declarations:";

std::string Code(const std::string& text) { return "`" + text + "`"; }
std::string Section(const std::string& name) { return name.empty() ? "(root)" : Code(name); }

std::string KindOf(const Setting& setting) {
  std::string kind = setting.Kind();
  if (setting.HowRead() & kTrim) kind += ", trim";
  if (setting.HowRead() & kLower) kind += ", lower";
  if (setting.HowRead() & kForgiving) kind += ", forgiving";
  return kind;
}

std::string DefaultOf(const Setting& setting) {
  const std::string kind = setting.Kind(), text = setting.DefaultText();
  if (kind == "boolean") return text == "True" ? "true" : "false";
  if (kind == "integer" || kind == "single") return text;
  if (kind != "colour") return '"' + ToUtf8(text) + '"';
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%06X", static_cast<unsigned>(std::stol(text)));
  return hex;
}

std::string Rows(const SettingsTree& tree, bool whenUsed) {
  std::vector<const Setting*> settings(tree.settings.begin(), tree.settings.end());
  std::stable_sort(settings.begin(), settings.end(), [](const Setting* a, const Setting* b) {
    return a->Section().group < b->Section().group;
  });
  std::string rows = "\n| Section | Key | Kind | Default | Meaning |\n|---|---|---|---|---|\n";
  for (const Setting* s : settings)
    if ((s->Section().group == LoadGroup::kWhenUsed) == whenUsed)
      rows += "| " + Section(s->Section().name) + " | " + Code(s->Key()) + " | " + KindOf(*s) +
              " | " + DefaultOf(*s) + " | " + s->Meaning() + " |\n";
  return rows;
}

std::string Tables(const SettingsTree& tree) {
  std::string text = "\n## Keys that are read at start-up, in this order\n" + Rows(tree, false) +
                     "\n## Keys that are read where they are used\n" + Rows(tree, true) +
                     "\n## Sections of free names\n\n| Section | Values |\n|---|---|\n";
  for (const auto& section : tree.freeSections)
    text += "| " + Section(section.name) + " | " + section.meaning + " |\n";
  return text;
}

std::string ReadPage() {
  std::ifstream in(kPage);
  return {std::istreambuf_iterator<char>(in), {}};
}

class SettingsPage : public CoreTest {};

TEST_F(SettingsPage, TellsWhatIsDeclared) {
  const std::string page = ReadPage();
  const auto mark = page.find(kMark);
  ASSERT_NE(mark, std::string::npos);
  const auto begin = page.find('\n', mark) + 1;
  const std::string tables = Tables(program_->settings.tree);
  if (std::getenv("CORVEL_WRITE_PAGE")) std::ofstream(kPage) << page.substr(0, begin) << tables;
  EXPECT_EQ(ReadPage().substr(begin), tables)
      << "make the page anew: the first lines of this test tell how";
}

}  // namespace
}  // namespace corvel
