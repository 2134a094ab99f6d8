// The client's account index, idb\main.idx. Records lie 22 bytes apart, their names take 16 bytes,
// and the account's screen names lie directly in front of the record of "Guest".
#include "aolbridge/aolclient.h"
#include "base/cp1252.h"
#include "base/text.h"

namespace corvel {
namespace {

constexpr std::string_view kGuest("\0Guest     \0", 12);
constexpr std::size_t kChunk = 16384, kRecord = 22, kName = 16, kMostNames = 7;

// The name field at `at`, as much of it as the file has.
std::string_view NameAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? bytes.substr(at, kName) : std::string_view();
}

// How many records in front of the one at `guest` hold a screen name, at most seven.
std::size_t CountBack(std::string_view bytes, std::size_t guest) {
  std::size_t count = 0;
  while (count < kMostNames && guest >= (count + 1) * kRecord) {
    const auto field = NameAt(bytes, guest - (count + 1) * kRecord);
    if (!IsScreenName(Replaced(field, std::string_view("\0", 1), ""))) break;
    ++count;
  }
  return count;
}

// The names from the first of `count` records on. A field with a NUL ends the walk: the record next
// to Guest is told apart by that, and `last` takes its place.
std::vector<std::string> WalkForward(std::string_view bytes, std::size_t guest, std::size_t count) {
  std::vector<std::string> names;
  for (std::size_t j = 0; j <= count; ++j) {
    const auto field = NameAt(bytes, guest - (count - j) * kRecord);
    if (field.find('\0') != std::string_view::npos) break;
    const std::string name = Trim(field);
    names.push_back(name == "Guest" ? std::string() : name);
  }
  const std::string last =
      guest < kRecord ? std::string() : Trim(CutAtNul(NameAt(bytes, guest - kRecord)));
  names.push_back(last);
  if (names.size() > kMostNames) names.resize(kMostNames);
  return names;
}

}  // namespace

bool IsScreenName(std::string_view name) {
  for (const char c : name)
    if (c != ' ' && !IsAlphaNumeric(c)) return false;
  return true;
}

std::vector<std::string> NamesInAccountIndex(std::string_view bytes) {
  for (std::size_t start = 0; start < bytes.size(); start += kChunk) {
    const auto hit = bytes.substr(start, kChunk).find(kGuest);
    if (hit == std::string_view::npos) continue;
    const std::size_t guest = start + hit + 1;
    std::vector<std::string> names = WalkForward(bytes, guest, CountBack(bytes, guest));
    if (IsScreenName(names.front())) return names;
  }
  return {};
}

}  // namespace corvel
