#include "base/file_name.h"

#include <gtest/gtest.h>

namespace corvel {
namespace {

TEST(FileName, StaysInItsFolder) {
  for (const char* name : {"boing", "two words", "a.b", "d\xE9j\xE0 vu", "con1", "com", "com0",
                           "nulls", ".hidden", "a;b [c] {d}", "lpt10"})
    EXPECT_TRUE(IsFileName(name)) << name;
  for (const char* name :
       {"",    ".",   "..",      "..\\up", "a\\b",     "a/b",  "c:a",    "*",
        "a?",  "a|b", "a<b",     "a>b",    "\"a\"",    "a\tb", "dot.",   "blank ",
        "con", "PRN", "Aux.txt", "nul",    "nul .txt", "com1", "LPT9.x", "clock$"})
    EXPECT_FALSE(IsFileName(name)) << name;
}

}  // namespace
}  // namespace corvel
