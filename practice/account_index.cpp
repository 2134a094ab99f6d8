// The account index file, main.idx.
//
// Records of 22 bytes; a record's first 16 bytes are a name, padded with blanks. The account's
// names stand directly in front of the record of the guest, whose name is padded to 10 and closed
// by a NUL. The last of them is closed by a NUL too, if it leaves room: a reader tells by that where
// the names end. What lies around them is not relied on by anybody.
#include "practice/practice_client.h"

namespace corvel::practice {
namespace {

constexpr std::size_t kRecord = 22;
constexpr std::size_t kName = 16;

std::string Record(const std::string& name, bool isLast) {
  std::string record = name.substr(0, kName);
  record.resize(kName, isLast ? '\0' : ' ');
  record.resize(kRecord, '\0');
  return record;
}

}  // namespace

std::string AccountIndex(const std::vector<std::string>& screenNames) {
  constexpr std::size_t kUnusedRecords = 16;
  std::string bytes = "AOLIDX\x01";
  bytes.resize(kUnusedRecords * kRecord, '\0');
  // Several names are headed by a record that can't be a name. A single one has unused records in
  // front: so it is found once and not twice by a reader that walks back and then forth.
  if (screenNames.size() > 1) bytes += std::string(kRecord - 1, '\x01') + '\0';
  if (screenNames.empty()) bytes += Record("New User", true);
  for (const std::string& name : screenNames) bytes += Record(name, &name == &screenNames.back());
  std::string guest = "Guest     ";
  guest.resize(kRecord, '\0');
  bytes += guest;
  bytes.resize(bytes.size() + kUnusedRecords * kRecord, '\0');
  return bytes;
}

}  // namespace corvel::practice
