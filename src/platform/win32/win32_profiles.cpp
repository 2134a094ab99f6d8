// Profile files, by the system's own routines.
#include "base/text.h"
#include "platform/win32/win32_files.h"

#include <cstdint>

namespace corvel::win32 {
namespace {

constexpr std::size_t kLargestProfile = 0x10000;  // what the routines of Windows 95 and 98 take

std::string OneLine(std::string_view text) {
  return std::string(text.substr(0, text.find_first_of(std::string_view("\r\n\0", 3))));
}

// A bare name is the system's to find, in its own folder; any other path must not be looked for.
std::string ProfilePath(std::string_view path) {
  const std::string text = CutAtNul(path);
  char full[MAX_PATH], *name = nullptr;
  if (text.find_first_of("\\/:") == std::string::npos) return text;
  const DWORD length = GetFullPathNameA(text.c_str(), sizeof full, full, &name);
  return length > 0 && length < sizeof full ? std::string(full, length) : text;
}

// Windows 95 and 98 keep the file that was used last in memory. Afterwards it is on the disk, and
// what others write to it there is seen.
void Flush(const std::string& path) {
  WritePrivateProfileStringA(nullptr, nullptr, nullptr, path.c_str());
}

std::string ValueOf(const std::string& path, const std::string& section, const std::string& key,
                    const char* otherwise) {
  std::string value(kLargestProfile, '\0');
  const DWORD length =
      GetPrivateProfileStringA(section.c_str(), key.c_str(), otherwise, value.data(),
                               static_cast<DWORD>(value.size() - 1), path.c_str());
  value.resize(length);
  return value;
}

std::size_t SizeOf(const std::string& path) {
  WIN32_FIND_DATAA found;
  const HANDLE find = FindFirstFileA(path.c_str(), &found);
  if (find == INVALID_HANDLE_VALUE) return 0;
  FindClose(find);
  return found.nFileSizeHigh ? SIZE_MAX / 2 : found.nFileSizeLow;
}

bool IsThere(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool IsWritable(const std::string& path) {
  constexpr DWORD kBarred = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;
  return !path.empty() && (!IsThere(path) || !(GetFileAttributesA(path.c_str()) & kBarred));
}

std::string WithoutQuotes(const std::string& text) {
  const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                      (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

// Where a key's value stands for the routines.
struct Entry {
  std::string key;
  std::string front;  // of the value there: the rest of the key
};

// The routines end a key at its first "=" when they read the file from the disk, so one that holds
// a "=" is looked for under what stands before it, too.
Entry EntryOf(const std::string& path, const std::string& section, const std::string& key) {
  const auto equal = key.find('=');
  if (equal == std::string::npos) return {key, {}};
  const std::string begin = Trim(std::string_view(key).substr(0, equal));
  const std::string rest = key.substr(equal + 1) + '=';
  const std::string front = ValueOf(path, section, begin, "").substr(0, rest.size());
  return EqualNoCase(front, rest) ? Entry{begin, front} : Entry{key, {}};
}

// Whether the file can take the value without outgrowing its limit.
bool HasRoom(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) {
  constexpr const char* kMissing = "\x01";
  constexpr std::size_t kAround = 9;  // brackets, equals sign, three line ends
  const std::string old = ValueOf(path, section, key, kMissing);
  const bool isNew = old == kMissing;
  const std::size_t more = isNew ? section.size() + key.size() + kAround : 0;
  return SizeOf(path) + more + value.size() <= kLargestProfile + (isNew ? 0 : old.size());
}

}  // namespace

std::string Win32Files::ReadProfile(std::string_view path, std::string_view section,
                                    std::string_view key) {
  const std::string file = ProfilePath(path);
  if (file.empty()) return {};
  Flush(file);
  const std::string sectionName = OneLine(section);
  const Entry entry = EntryOf(file, sectionName, OneLine(key));
  const std::string value = ValueOf(file, sectionName, entry.key, "");
  return entry.front.empty() ? value : WithoutQuotes(Trim(value.substr(entry.front.size())));
}

bool Win32Files::WriteProfile(std::string_view path, std::string_view section, std::string_view key,
                              std::optional<std::string_view> value) {
  const std::string file = ProfilePath(path), sectionName = OneLine(section);
  if (!IsWritable(file)) return false;
  Flush(file);
  if (!value && !IsThere(file)) return true;  // the routine would make it
  const Entry entry = EntryOf(file, sectionName, OneLine(key));
  const std::string text = entry.front + OneLine(value.value_or(""));
  if (value && !HasRoom(file, sectionName, entry.key, text)) return false;
  const bool done = WritePrivateProfileStringA(sectionName.c_str(), entry.key.c_str(),
                                               value ? text.c_str() : nullptr, file.c_str());
  Flush(file);
  return done;
}

}  // namespace corvel::win32
