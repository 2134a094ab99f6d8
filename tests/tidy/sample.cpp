#include "tests/tidy/sample.h"

namespace corvel::tidy {
namespace {

const std::string kTableHead =
    "| Folder | What it is | May include | Of the system |\n|---|---|---|---|\n";

// Words that would be faults, where they are none.
const char* const kDecoys =
    "#include \"core/hub.h\"\n\n"
    "// #include \"wavlib/list.h\" stood here once, and time(nullptr).\n"
    "/* #include <windows.h>\n#if 0\n*/\n"
    "#define FIELD(x) \\\n  x\n"
    "const char* kText = \"#include <fstream> // \\\" printf(1)\";\n"
    "const char* kLines = R\"x(\n#include <windows.h>\n#ifdef _WIN32\n)\" std::time )x\";\n"
    "const int kDay = 86'400'000; const char kQuote = '\"'; const char kMark = '\\'';\n"
    "Clock& clock(); SystemInfo& system(); double time() const;\n"
    "void Hub::Run() { services.system().time(); old->remove(x); Files::rename(y); }\n"
    "#undef FIELD\n";

}  // namespace

std::string Header(const std::string& body) {
  return "// What it is for.\n#pragma once\n\n" + body;
}

std::string RowOf(const std::string& folder, const std::string& may, const std::string& system) {
  return "| `" + folder + "/` | what it is | " + may + " | " + system + " |\n";
}

Tree Sample() {
  return {
      {"src/README.md", "# The source\n\n" + kTableHead + RowOf("base", "nothing", "nothing") +
                            RowOf("platform", "`base`", "nothing") +
                            RowOf("platform/desk", "down to `platform`", "nothing") +
                            RowOf("platform/win32", "down to `platform`", "Windows") +
                            RowOf("core", "down to `platform`", "nothing") +
                            RowOf("fader", "`core/colors.h`", "nothing") +
                            RowOf("wavlib", "`fader`, down to `core`", "nothing") +
                            RowOf("shell", "down to `core`", "nothing") +
                            RowOf("app", "down to `wavlib`, `shell`", "nothing")},
      {"src/base/text.h", Header("#include <string>\n")},
      {"src/base/text.cpp", "#include \"base/text.h\"\n\n#include <algorithm>\n"},
      {"src/platform/files.h", Header("#include \"base/text.h\"\n")},
      {"src/platform/desk/desk.h", Header("#include \"platform/files.h\"\n")},
      {"src/platform/win32/win32_files.h", Header("#include <windows.h>\n")},
      {"src/platform/win32/win32_files.cpp",
       "// Real files.\n#include \"platform/files.h\"\n\n#include <windows.h>\n#ifdef __i386__\n"
       "extern \"C\" int GetTickCount();\n#endif\n"},
      {"src/core/colors.h", Header("")},
      {"src/core/hub.h", Header("#include \"base/text.h\"\n#include \"platform/files.h\"\n")},
      {"src/core/hub.cpp", kDecoys},
      {"src/fader/fade.h", Header("#include \"core/colors.h\"\n")},
      {"src/wavlib/list.h", Header("#include \"base/text.h\"\n#include \"fader/fade.h\"\n")},
      {"src/shell/tray.h", Header("#include \"core/hub.h\"\n")},
      {"src/app/compose.cpp",
       "// Composes.\n#include \"shell/tray.h\"\n#include \"wavlib/list.h\"\n"},
      {"practice/README.md",
       kTableHead + RowOf("practice/controls", "down to `platform`", "nothing") +
           RowOf("practice", "down to `practice/controls`", "nothing") +
           RowOf("practice/win32", "`platform/win32`, down to `practice`", "Windows")},
      {"practice/controls/icon.h", Header("#include \"platform/files.h\"\n")},
      {"practice/practice_client.h", Header("#include \"practice/controls/icon.h\"\n")},
      {"practice/win32/practice.rc", "#include <winver.h>\n"},
      {"practice/win32/main.cpp", "// Starts.\n#include <windows.h>\n"},
      {"tools/README.md",
       kTableHead + RowOf("tools", "`practice`, down to `core`", "this machine")},
      {"tools/stage.h", Header("#include \"practice/practice_client.h\"\n\n#include <fstream>\n")},
      {"tests/README.md", kTableHead + RowOf("tests/*", "anything", "this machine, test library")},
      {"tests/core/fixture.h", Header("#include \"core/hub.h\"\n")},
      {"tests/tools/stage_fixture.h", Header("#include \"tests/core/fixture.h\"\n")},
      {"tests/tools/words.h", Header("")},
      {"tests/core/hub_test.cpp",
       "#include \"core/hub.h\"\n\n#include \"tools/stage.h\"\n\n#include <gtest/gtest.h>\n"},
  };
}

}  // namespace corvel::tidy
