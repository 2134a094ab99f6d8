#include "tests/tidy/system_rules.h"

#include <unordered_set>

namespace corvel::tidy {
namespace {

using Words = std::unordered_set<std::string_view>;

// --- Headers -------------------------------------------------------------------------------------

// Computes only: the same on every home, and with nothing in it that Windows 95 and 98 lack.
const Words kPlain = {"algorithm",   "array",     "bit",           "cfloat",
                      "charconv",    "climits",   "cmath",         "compare",
                      "concepts",    "cstddef",   "cstdint",       "cstring",
                      "deque",       "exception", "functional",    "initializer_list",
                      "iterator",    "limits",    "list",          "map",
                      "memory",      "numbers",   "numeric",       "optional",
                      "queue",       "set",       "span",          "stack",
                      "stdexcept",   "string",    "string_view",   "tuple",
                      "type_traits", "typeinfo",  "unordered_map", "unordered_set",
                      "utility",     "variant",   "vector"};

// Of the machines of developers: streams, files, threads, clocks, the C library's system.
const Words kMachine = {"cctype",     "chrono",  "cinttypes", "cstdio", "cstdlib",  "ctime",
                        "filesystem", "fstream", "iomanip",   "iosfwd", "iostream", "istream",
                        "ostream",    "random",  "sstream",   "thread", "unistd.h"};

// Of Windows, with what its compiler's library has beside the standard.
const Words kWindows = {"atomic",     "commctrl.h", "commdlg.h",  "cstdlib",    "float.h",
                        "mmsystem.h", "new",        "shellapi.h", "sys/stat.h", "tlhelp32.h",
                        "windows.h",  "windowsx.h", "wininet.h",  "winioctl.h", "winsock2.h",
                        "winspool.h", "winver.h"};

bool IsTestLibrary(const std::string& header) {
  return header.starts_with("gtest/") || header.starts_with("benchmark/");
}

// --- Words ---------------------------------------------------------------------------------------

// Members of std that reach the system, or are another way to do so.
const Words kOfStd = {
    "abort",       "cerr",     "chrono",        "cin",        "clock",    "clog",     "cout",
    "exit",        "fclose",   "filebuf",       "filesystem", "fopen",    "fprintf",  "free",
    "freopen",     "fstream",  "getenv",        "gmtime",     "ifstream", "jthread",  "locale",
    "localtime",   "malloc",   "mktime",        "mutex",      "ofstream", "printf",   "putchar",
    "puts",        "rand",     "random_device", "regex",      "remove",   "rename",   "setlocale",
    "signal",      "snprintf", "sprintf",       "sscanf",     "srand",    "strftime", "system",
    "this_thread", "thread",   "time",          "tmpfile",    "tmpnam",   "vsnprintf"};

// Calls of them without "std::", as far as no method of ours would be called so.
const Words kCalls = {"fclose",    "fopen",    "fprintf",  "freopen", "getenv", "gmtime",
                      "localtime", "mktime",   "printf",   "putchar", "puts",   "rand",
                      "setlocale", "snprintf", "sprintf",  "srand",   "sscanf", "strftime",
                      "tmpfile",   "tmpnam",   "vsnprintf"};

// Not to be written at all: declarations of the system's calls, code of a machine, modules.
const Words kNever = {"asm", "extern", "import"};

const Words kDirectives = {"include", "define", "undef", "pragma", "if",   "ifdef",
                           "ifndef",  "elif",   "else",  "endif",  "error"};

// A name in the code and what stands around it.
struct Word {
  std::string_view name;
  std::size_t start = 0, end = 0;
};

char Behind(const std::string& code, std::size_t at) {
  const std::size_t found = code.find_first_not_of(" \t\n", at);
  return found == std::string::npos ? ' ' : code[found];
}

// "std" of std::time, "::" of ::time, "" of time, "." of a.time and a->time.
std::string ScopeOf(const std::string& code, std::size_t start) {
  std::size_t at = code.find_last_not_of(" \t\n", start - 1);
  if (start == 0 || at == std::string::npos) return "";
  if (code[at] == '.' || (code[at] == '>' && at > 0 && code[at - 1] == '-')) return ".";
  if (code[at] != ':' || at == 0 || code[at - 1] != ':') return "";
  if (at < 2 || !IsWordCharacter(code[at - 2])) return "::";
  std::size_t from = at - 2;
  while (from > 0 && IsWordCharacter(code[from - 1])) --from;
  return code.substr(from, at - 1 - from);
}

// time(nullptr), time(0): what no method of ours would be asked.
bool IsAskedForTime(const std::string& code, const Word& word) {
  if (word.name != "time" || Behind(code, word.end) != '(') return false;
  const std::size_t open = code.find('(', word.end);
  const std::size_t in = code.find_first_not_of(" \t\n", open + 1);
  if (in == std::string::npos) return false;
  return code.compare(in, 7, "nullptr") == 0 || code.compare(in, 4, "NULL") == 0 ||
         code[in] == '0' || code[in] == '&';
}

bool IsOfCompiler(std::string_view name) {
  return name.size() > 1 && name[0] == '_' &&
         (name[1] == '_' || (name[1] >= 'A' && name[1] <= 'Z'));
}

// The line of a caller, which the compilers that we build with give in no other way yet.
constexpr std::string_view kCallersLine = "__builtin_LINE";

// Why a word may not stand in code for every home; "" if it may.
std::string WhyNotWord(const std::string& code, const Word& word) {
  if (IsOfCompiler(word.name) && word.name != kCallersLine)
    return "is a name of a compiler or a system";
  if (kNever.contains(word.name)) return "is not for code above the seam";
  if (!kOfStd.contains(word.name)) return "";
  const std::string scope = ScopeOf(code, word.start);
  const bool isCall = Behind(code, word.end) == '(' && kCalls.contains(word.name);
  if (scope == "std" || scope == "::" || (scope.empty() && isCall) ||
      (scope.empty() && IsAskedForTime(code, word)))
    return "reaches past the seam";
  return "";
}

void CheckWords(const std::string& path, const SourceText& source, Faults& faults) {
  const std::string& code = source.code;
  for (std::size_t at = 0; at < code.size();) {
    if (!IsWordCharacter(code[at])) {
      ++at;
      continue;
    }
    Word word{{}, at, at};
    while (word.end < code.size() && IsWordCharacter(code[word.end])) ++word.end;
    word.name = std::string_view(code).substr(at, word.end - at);
    if (const std::string why = WhyNotWord(code, word); !why.empty())
      faults.push_back(path + ":" + std::to_string(source.LineOf(at)) + ": \"" +
                       std::string(word.name) + "\" " + why + " (tests/tidy/system_rules.cpp)");
    at = word.end;
  }
}

// --- Directives ----------------------------------------------------------------------------------

std::string WhyNotDirective(const Directive& directive, const std::string& path,
                            const Floor& floor) {
  const std::string& name = directive.name;
  if (!kDirectives.contains(name)) return "is no directive of this project";
  if (floor.mayWindows || name == "include" || name == "undef") return "";
  if (name == "pragma") return directive.rest == "once" ? "" : "only once may be asked for here";
  if (name != "define") return "code that differs by home belongs behind the seam";
  if (floor.IsPure() && IsHeader(path)) return "a header gives no macro to those who include it";
  return "";
}

}  // namespace

std::string WhyNotHeader(const Floor& floor, const std::string& header) {
  if (kPlain.contains(header)) return "";
  const bool isOfMachine = kMachine.contains(header), isOfWindows = kWindows.contains(header);
  if ((floor.mayMachine && isOfMachine) || (floor.mayWindows && isOfWindows)) return "";
  if (floor.mayTestLibrary && IsTestLibrary(header)) return "";
  if (isOfWindows && !isOfMachine) return "Windows belongs behind the seam";
  if (isOfMachine) return "old systems lack it, or it reaches past the seam";
  if (IsTestLibrary(header)) return "the test library is for tests";
  return "no list in tests/tidy/system_rules.cpp has it: put it into the one where it belongs";
}

void CheckSystemUse(const std::string& path, const SourceText& source, const Floor& floor,
                    Faults& faults) {
  for (const Directive& directive : source.directives)
    if (const std::string why = WhyNotDirective(directive, path, floor); !why.empty())
      faults.push_back(path + ":" + std::to_string(directive.line) + ": #" + directive.name + ": " +
                       why);
  if (floor.IsPure()) CheckWords(path, source, faults);
}

}  // namespace corvel::tidy
