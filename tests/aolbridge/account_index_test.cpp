#include "aolbridge/aolclient.h"

#include <gtest/gtest.h>
#include <string>

namespace corvel {
namespace {

using Names = std::vector<std::string>;

// A name field of 16 bytes in a record of 22; the record next to Guest closes its field with NULs.
std::string Record(std::string name, char fill) {
  name.resize(16, fill);
  name.resize(22, '\0');
  return name;
}

std::string Index(const std::string& front, const Names& names) {
  std::string bytes = front;
  for (std::size_t i = 0; i < names.size(); ++i)
    bytes += Record(names[i], i + 1 == names.size() ? '\0' : ' ');
  return bytes + std::string("Guest     \0\0\0\0\0\0", 16) + std::string(40, '\0');
}

const std::string kNoName(44, '\x01');

TEST(AccountIndex, FindsTheNamesInFrontOfGuest) {
  const Names rows[] = {{"One"}, {"One", "Two Words"}, {"A", "B", "C", "D", "E", "F", "G"}};
  for (const Names& names : rows) EXPECT_EQ(NamesInAccountIndex(Index(kNoName, names)), names);
}

TEST(AccountIndex, AForeignCharacterHidesTheNamesInFrontOfIt) {
  EXPECT_EQ(NamesInAccountIndex(Index(kNoName, {"One", "T-wo", "Three", "Four"})),
            (Names{"Three", "Four"}));
}

TEST(AccountIndex, GuestAcrossAChunkBorderIsMissed) {
  const Names names = {"One"};
  const std::size_t inFront = 22;
  const auto at = [&](std::size_t guest) {
    return NamesInAccountIndex(Index(std::string(guest - inFront, '\x01'), names));
  };
  EXPECT_EQ(at(16384 - 11), names);    // ends with the chunk: name, then its NUL
  EXPECT_EQ(at(16384 - 10), Names{});  // the closing NUL lies in the next one
  EXPECT_EQ(at(16384), Names{});       // the NUL in front lies in the last one
  EXPECT_EQ(at(16384 + 1), names);
}

TEST(AccountIndex, AFileCutAnywhereIsReadWithoutAFault) {
  const std::string whole = Index(kNoName, {"One", "Two", "Three"});
  for (std::size_t size = 0; size < whole.size(); ++size) {
    for (const Names& names :
         {NamesInAccountIndex(whole.substr(0, size)), NamesInAccountIndex(whole.substr(size))})
      EXPECT_LE(names.size(), 7U);
  }
}

TEST(AccountIndex, ScreenNamesAreBlanksLettersAndDigits) {
  for (const char* yes : {"", "Practice One", "abc123", "  "})
    EXPECT_TRUE(IsScreenName(yes)) << yes;
  for (const char* no : {"a_b", "a-b", "x\t", "a\x01"}) EXPECT_FALSE(IsScreenName(no)) << no;
}

}  // namespace
}  // namespace corvel
