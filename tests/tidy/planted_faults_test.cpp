// Each rule is shown to find what it is there for: a fault is planted in a tidy sample, and found.
#include "tests/tidy/sample.h"
#include "tests/tidy/tidy.h"

#include <gtest/gtest.h>

namespace corvel::tidy {
namespace {

struct Planted {
  const char* name;
  std::string path;   // of the file that is added or changed
  std::string text;   // all of it
  const char* finds;  // in one of the faults
};

// The sample's file with something behind it.
std::string With(const std::string& path, const std::string& more) {
  return Sample().at(path) + more;
}

std::string WithInstead(const std::string& path, const std::string& what, const std::string& by) {
  std::string text = Sample().at(path);
  text.replace(text.find(what), what.size(), by);
  return text;
}

std::string Include(const std::string& what) { return Header("#include " + what + "\n"); }

void ExpectFound(const std::vector<Planted>& faults) {
  for (const Planted& fault : faults) {
    Tree tree = Sample();
    tree[fault.path] = fault.text;
    std::string found;
    for (const std::string& line : FaultsOf(tree)) found += line + "\n";
    EXPECT_NE(found.find(fault.finds), std::string::npos) << fault.name << "\nfound: " << found;
  }
}

TEST(TidyRules, ATidySampleHasNoFault) { EXPECT_EQ(FaultsOf(Sample()), Faults{}); }

TEST(TidyRules, AnUpwardIncludeIsFoundHoweverItIsWritten) {
  const char* const kUpward = "src/core may not include src/wavlib";
  const std::string core = "src/core/other.h";
  ExpectFound({
      {"plain", core, Include("\"wavlib/list.h\""), kUpward},
      {"by a relative path", core, Include("\"../wavlib/list.h\""), kUpward},
      {"by a path with a detour", core, Include("\"core/../wavlib/list.h\""), kUpward},
      {"by the path from the root", core, Include("\"src/wavlib/list.h\""), kUpward},
      {"in angle brackets", core, Include("<wavlib/list.h>"), kUpward},
      {"behind blanks", core, Header("  #include \"wavlib/list.h\"\n"), kUpward},
      {"behind a tab and a blank", core, Header("\t# \tinclude\t\"wavlib/list.h\"\n"), kUpward},
      {"without a blank", core, Header("#include\"wavlib/list.h\"\n"), kUpward},
      {"behind comments", core, Header("/*x*/ # /*y*/ include /*z*/ \"wavlib/list.h\"\n"), kUpward},
      {"over two lines", core, Header("#\\\ninclude \"wavlib/list.h\"\n"), kUpward},
      {"by the other mark", core, Header("%:include \"wavlib/list.h\"\n"), kUpward},
      {"under a condition", core, Header("#if 0\n#include \"wavlib/list.h\"\n#endif\n"), kUpward},
      {"behind a raw literal", core, Header("auto t = R\"(\")\";\n#include \"wavlib/list.h\"\n"),
       kUpward},
      {"with old line ends", core, Header("\r\n#include \"wavlib/list.h\"\r\n"), kUpward},
      {"of a macro", core, Header("#define LIST \"wavlib/list.h\"\n#include LIST\n"),
       "not the macro LIST"},
      {"of a module", core, Header("import \"wavlib/list.h\";\n"), "\"import\""},
      {"of more than the one header", "src/fader/other.h", Include("\"core/hub.h\""),
       "src/fader may not include src/core (core/hub.h)"},
      {"of what is below, but not named", "src/platform/desk/x.h",
       Include("\"platform/win32/win32_files.h\""),
       "src/platform/desk may not include src/platform/win32"},
      {"inside of a folder below", "src/platform/files.h",
       With("src/platform/files.h", "#include \"platform/desk/desk.h\"\n"),
       "src/platform may not include src/platform/desk"},
  });
}

TEST(TidyRules, IncludesLeadSomewhereAndNotInACircle) {
  ExpectFound({
      {"nowhere", "src/core/other.h", Include("\"core/missing.h\""),
       "there is no \"core/missing.h\""},
      {"out of the project", "src/core/other.h", Include("\"../../../x.h\""), "there is no"},
      {"a file of another kind", "src/core/other.h", Include("\"../README.md\""),
       "only headers are included"},
      {"a source", "src/core/other.h", Include("\"core/hub.cpp\""), "only headers are included"},
      {"a sibling by its name alone", "src/core/other.h", Include("\"hub.h\""),
       "write \"core/hub.h\""},
      {"itself", "src/core/hub.h", Include("\"core/hub.h\""), "src/core/hub.h > src/core/hub.h"},
      {"two headers one another", "src/core/colors.h",
       Include("\"core/hub.h\"") + "#include \"core/colors.h\"\n", "in a circle"},
      {"three files one another", "src/base/text.h", Include("\"core/hub.h\""),
       "src/base/text.h > src/core/hub.h > src/base/text.h"},
      {"two folders one another", "src/base/other.cpp",
       "// Other.\n#include \"platform/files.h\"\n",
       "folders include one another in a circle: src/platform > src/base > src/platform"},
      {"two folders of tests one another", "tests/core/hub_test.cpp",
       "#include \"tests/tools/words.h\"\n",
       "folders include one another in a circle: tests/core > tests/tools > tests/core"},
  });
}

TEST(TidyRules, EachPartOfTheHouseKeepsToItsOwn) {
  ExpectFound({
      {"a feature includes a feature", "src/shell/tray.h", Include("\"wavlib/list.h\""),
       "src/shell may not include src/wavlib"},
      {"the table lets a feature include a feature", "src/README.md",
       WithInstead("src/README.md", RowOf("shell", "down to `core`", "nothing"),
                   RowOf("shell", "down to `wavlib`", "nothing")),
       "`wavlib` is a feature"},
      {"the table lets a feature include one header of another", "src/README.md",
       WithInstead("src/README.md", RowOf("shell", "down to `core`", "nothing"),
                   RowOf("shell", "`wavlib/list.h`, down to `core`", "nothing")),
       "`wavlib` is a feature"},
      {"the program includes a tool", "src/core/other.h", Include("\"tools/stage.h\""),
       "src/core may not include tools"},
      {"the program includes the practice client", "src/app/compose.cpp",
       With("src/app/compose.cpp", "#include \"practice/practice_client.h\"\n"),
       "src/app may not include practice"},
      {"the program includes a test", "src/core/other.h", Include("\"tests/core/fixture.h\""),
       "src/core may not include tests/core"},
      {"the practice client includes the program", "practice/controls/icon.h",
       Include("\"core/hub.h\""), "practice/controls may not include src/core"},
      {"the table lets it", "practice/README.md",
       WithInstead("practice/README.md", "down to `platform`", "down to `core`"),
       "shares nothing with the program"},
      {"the table lets a tool include a test", "tools/README.md",
       WithInstead("tools/README.md", "`practice`, ", "`practice`, `tests/core/fixture.h`, "),
       "nothing that is shipped includes a test"},
      {"a lower floor of the practice client includes a higher one", "practice/controls/icon.h",
       Include("\"practice/practice_client.h\""), "practice/controls may not include practice"},
      {"a tool for both homes includes real windows", "tools/stage.h",
       Include("\"platform/win32/win32_files.h\""), "tools may not include src/platform/win32"},
      {"a floor above the seam includes real windows", "src/core/other.h",
       Include("\"platform/win32/win32_files.h\""), "src/core may not include src/platform/win32"},
      {"the practice client includes a tool", "practice/practice_client.h",
       Include("\"tools/stage.h\""), "practice may not include tools"},
      {"a tool includes what it has not named", "tools/stage.h", Include("\"wavlib/list.h\""),
       "tools may not include src/wavlib"},
  });
}

TEST(TidyRules, EveryFolderHasARowAndEveryRowAFolder) {
  const std::string readme = "src/README.md";
  ExpectFound({
      {"a new folder", "src/voice/say.h", Header(""),
       "src/voice: the folder has no row. Add one to the table of src/README.md"},
      {"one below a folder that has a row", "src/core/features/list.h", Header(""),
       "src/core/features: the folder has no row"},
      {"one with real windows", "src/forms/win32/x.cpp", "// X.\n", "src/forms/win32: the folder"},
      {"a floor of the practice client", "practice/rooms/room.h", Header(""),
       "Add one to the table of practice/README.md"},
      {"a new top folder", "art/icon.cpp", "// Icon.\n",
       "art: the folder has no row. Add one to the table of art/README.md"},
      {"C++ at the root", "main.cpp", "// Main.\n", "C++ stands in a folder"},
      {"a row without a folder", readme, With(readme, RowOf("voice", "`base`", "nothing")),
       "there is no C++ in src/voice"},
      {"a row twice", readme, With(readme, RowOf("core", "`base`", "nothing")),
       "src/core has a row already"},
      {"a row in a foreign table", "practice/README.md",
       With("practice/README.md", RowOf("tools", "`base`", "nothing")),
       "the row of tools belongs in tools/README.md"},
      {"a row that names one above", readme,
       WithInstead(readme, RowOf("base", "nothing", "nothing"), RowOf("base", "`core`", "nothing")),
       "`core` is no folder of a row above this one"},
      {"a row that names what is not there", readme,
       WithInstead(readme, "down to `core`", "down to `cor`"), "`cor` is no folder"},
      {"a row that says it otherwise", readme, WithInstead(readme, "down to `core`", "all above"),
       "name folders in backquotes"},
      {"a row with a word too many", readme,
       WithInstead(readme, "down to `core`", "soon down to `core`"), "name folders in backquotes"},
      {"a row of anything", readme, WithInstead(readme, "`fader`, down to `core`", "anything"),
       "only tests may include anything"},
      {"a row with a cell too few", readme, With(readme, "| `core/` | what it is | nothing |\n"),
       "four cells"},
  });
}

TEST(TidyRules, TheSystemStandsBehindTheSeam) {
  const std::string core = "src/core/other.h";
  ExpectFound({
      {"windows.h", core, Include("<windows.h>"), "Windows belongs behind the seam"},
      {"windows.h in quotes", core, Include("\"windows.h\""), "there is no \"windows.h\""},
      {"commctrl.h in the practice client", "practice/controls/icon.h", Include("<commctrl.h>"),
       "Windows belongs behind the seam"},
      {"windows.h in a tool for both homes", "tools/stage.h", Include("<windows.h>"),
       "Windows belongs behind the seam"},
      {"a resource above the seam", "src/core/core.rc", "#include <winver.h>\n", "not <winver.h>"},
      {"a call that is declared by hand", core, Header("extern \"C\" int GetTickCount();\n"),
       "\"extern\""},
      {"a mark of the compiler", core, Header("__declspec(dllimport) int x();\n"), "__declspec"},
      {"a switch by home", core, Header("#ifdef _WIN32\n#endif\n"), "#ifdef: code that differs"},
      {"another one", core, Header("# if defined(UNIX)\n#endif\n"), "#if: code that differs"},
      {"one in a tool", "tools/stage.h", Header("#ifdef _WIN32\n#endif\n"), "#ifdef: code"},
      {"a pragma", core, Header("#pragma pack(1)\n"), "#pragma: only once"},
      {"a macro for others", core, Header("#define X 1\n"), "#define: a header gives no macro"},
      {"what no compiler must know", core, Header("#include_next <string>\n"), "is no directive"},
      {"the table lets a floor have Windows", "src/README.md",
       WithInstead("src/README.md", RowOf("fader", "`core/colors.h`", "nothing"),
                   RowOf("fader", "`core/colors.h`", "Windows")),
       "Windows belongs behind the seam, in a folder win32/"},
      {"the table lets the product have streams", "src/README.md",
       WithInstead("src/README.md", "| down to `platform` | Windows |",
                   "| down to `platform` | Windows, this machine |"),
       "what is shipped has no streams"},
      {"the table says something else of the system", "src/README.md",
       WithInstead("src/README.md", "| `base` | nothing |", "| `base` | posix |"), "not \"posix\""},
  });
}

TEST(TidyRules, WhatOldSystemsLackIsNotAboveTheSeam) {
  const std::string core = "src/core/other.h";
  std::vector<Planted> faults;
  for (const char* header : {"chrono", "thread", "mutex", "filesystem", "fstream", "iostream",
                             "sstream", "random", "ctime", "cstdio", "regex", "locale", "future",
                             "atomic", "format", "unistd.h", "sys/stat.h", "time.h", "strings.h"})
    faults.push_back({header, core, Include("<" + std::string(header) + ">"), "other.h:4: not <"});
  const char* const kCalls[] = {
      "std::time(nullptr)",     "::time(0)",           "time ( nullptr )",
      "std :: getenv(\"X\")",   "fopen(\"x\", \"r\")", "std::chrono::seconds(1)",
      "std::random_device()()", "std::system(\"x\")",  "rand()",
      "std::rename(a, b)",      "&std::localtime",     "printf(\"x\")"};
  for (const char* call : kCalls)
    faults.push_back({call, core, Header("inline auto x() { return " + std::string(call) + "; }\n"),
                      "other.h:4: \""});
  faults.push_back({"streams behind the seam", "src/platform/win32/x.cpp",
                    "// X.\n#include <fstream>\n", "not <fstream>"});
  faults.push_back({"a clock of the test library", core, Include("<gtest/gtest.h>"),
                    "the test library is for tests"});
  ExpectFound(faults);
}

TEST(TidyRules, AFileHasTheShapeOfAFile) {
  std::vector<Planted> faults = {
      {"601 lines", "src/core/hub.cpp", With("src/core/hub.cpp", std::string(601, '\n')),
       "lines; split it"},
      {"601 lines of a build file", "CMakeLists.txt", std::string(601, '\n'), "601 lines"},
      {"601 lines, the last without an end", "tests/x.cpp", "//" + std::string(600, '\n') + "x",
       "601 lines"},
      {"no comment", "src/core/hub.h", "#pragma once\n", "opens with a comment"},
      {"no pragma once", "src/core/hub.h", "// The hub.\nclass Hub;\n", "#pragma once is"},
      {"pragma once in a comment", "src/core/hub.h", "// The hub.\n// #pragma once\n",
       "#pragma once is"},
      {"pragma once behind an include", "src/core/hub.h",
       "// The hub.\n#include <string>\n#pragma once\n", "#pragma once is"},
      {"pragma once twice", "src/core/hub.h", Header("#pragma once\n"), "stands once"},
      {"a source without words or header", "src/app/compose.cpp", "#include \"shell/tray.h\"\n",
       "says what the file is for"},
  };
  for (const char* end : {"hpp", "hh", "cc", "cxx", "c", "inl", "ipp", "inc", "tpp", "H", "CPP"})
    faults.push_back({end, "src/core/other." + std::string(end), "#include <windows.h>\n",
                      "C++ stands in .h and .cpp"});
  ExpectFound(faults);
}

// The longest file there may be is no fault, and a row makes a new folder right.
TEST(TidyRules, WhatIsAllowedIsFoundRight) {
  Tree tree = Sample();
  tree["src/core/long.cpp"] = "// Long.\n" + std::string(599, '\n');
  tree["src/README.md"] =
      WithInstead("src/README.md", RowOf("wavlib", "`fader`, down to `core`", "nothing"),
                  RowOf("voice", "`fader`, down to `core`", "nothing") +
                      RowOf("wavlib", "down to `voice`", "nothing"));
  tree["src/voice/say.h"] = Include("\"fader/fade.h\"") + "#include \"core/hub.h\"\n";
  tree["src/wavlib/list.h"] = Include("\"voice/say.h\"") + "#include \"fader/fade.h\"\n";
  EXPECT_EQ(FaultsOf(tree), Faults{});
}

}  // namespace
}  // namespace corvel::tidy
