#include "platform/win32/win32_registry.h"

#include "base/text.h"
#include "platform/win32/owned.h"

namespace corvel::win32 {
namespace {

constexpr std::size_t kLongestName = 255;
constexpr DWORD kNameRoom = 16384;  // the longest name of a value that any release takes

using OwnedKey = Owned<HKEY, RegCloseKey>;

// The path without leading, doubled and trailing backslashes.
std::string Normalised(std::string_view path) {
  std::string result;
  for (const char c : path.substr(0, path.find('\0')))
    if (c != '\\' || (!result.empty() && result.back() != '\\')) result += c;
  if (result.ends_with('\\')) result.pop_back();
  return result;
}

bool HasOverlongName(std::string_view path) {
  while (path.size() > kLongestName) {
    const auto end = path.find('\\');
    if (std::min(end, path.size()) > kLongestName) return true;
    path.remove_prefix(end + 1);
  }
  return false;
}

OwnedKey Open(const std::string& path, REGSAM access) {
  HKEY key = nullptr;
  const LSTATUS status = RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, access, &key);
  return status == ERROR_SUCCESS ? OwnedKey(key) : OwnedKey();
}

OwnedKey Make(const std::string& path) {
  HKEY key = nullptr;
  DWORD disposition = 0;
  const LSTATUS status =
      RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_WRITE, nullptr, &key, &disposition);
  return status == ERROR_SUCCESS ? OwnedKey(key) : OwnedKey();
}

// The names that an enumeration gives: name(index, buffer, &room).
template <class Enumerate>
std::optional<std::vector<std::string>> Names(const OwnedKey& key, Enumerate&& enumerate) {
  if (!key) return std::nullopt;
  std::vector<std::string> names;
  std::string buffer(kNameRoom, '\0');
  for (DWORD index = 0, length = kNameRoom;
       enumerate(key.Get(), index, buffer.data(), &length) == ERROR_SUCCESS;
       ++index, length = kNameRoom)
    names.push_back(buffer.substr(0, length));
  return names;
}

std::optional<std::vector<std::string>> SubKeysOf(const OwnedKey& key) {
  return Names(key, [](HKEY handle, DWORD index, char* name, DWORD* length) {
    return RegEnumKeyExA(handle, index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

// Only Windows 95 and 98 delete a key that has others below it.
bool DeleteTree(HKEY parent, const std::string& name) {
  HKEY handle = nullptr;
  if (RegOpenKeyExA(parent, name.c_str(), 0, KEY_READ | KEY_WRITE, &handle) != ERROR_SUCCESS)
    return false;
  OwnedKey key(handle);
  if (const auto subKeys = SubKeysOf(key))
    for (const std::string& subKey : *subKeys) DeleteTree(handle, subKey);
  key.Reset();
  return RegDeleteKeyA(parent, name.c_str()) == ERROR_SUCCESS;
}

}  // namespace

std::optional<RegistryValue> Win32Registry::Read(std::string_view key, std::string_view name,
                                                 std::size_t room) {
  const OwnedKey opened = Open(Normalised(key), KEY_QUERY_VALUE);
  const std::string valueName = CutAtNul(name);
  DWORD type = 0, size = 0;
  if (!opened || RegQueryValueExA(opened.Get(), valueName.c_str(), nullptr, &type, nullptr,
                                  &size) != ERROR_SUCCESS)
    return std::nullopt;
  if (size > room) return std::nullopt;
  std::string bytes(size, '\0');
  if (RegQueryValueExA(opened.Get(), valueName.c_str(), nullptr, &type,
                       reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS)
    return std::nullopt;
  bytes.resize(size);
  return RegistryValue{static_cast<ValueType>(type), std::move(bytes)};
}

bool Win32Registry::Write(std::string_view key, std::string_view name, const RegistryValue& value) {
  const std::string path = Normalised(key), valueName = CutAtNul(name);
  if (HasOverlongName(path) || valueName.size() > kLongestName) return false;
  const OwnedKey made = Make(path);
  return made && RegSetValueExA(made.Get(), valueName.c_str(), 0, static_cast<DWORD>(value.type),
                                reinterpret_cast<const BYTE*>(value.bytes.data()),
                                static_cast<DWORD>(value.bytes.size())) == ERROR_SUCCESS;
}

bool Win32Registry::DeleteValue(std::string_view key, std::string_view name) {
  const OwnedKey opened = Open(Normalised(key), KEY_SET_VALUE);
  return opened && RegDeleteValueA(opened.Get(), CutAtNul(name).c_str()) == ERROR_SUCCESS;
}

bool Win32Registry::DeleteKey(std::string_view key) {
  const std::string path = Normalised(key);
  return !path.empty() && DeleteTree(HKEY_CURRENT_USER, path);
}

bool Win32Registry::KeyExists(std::string_view key) {
  return static_cast<bool>(Open(Normalised(key), KEY_QUERY_VALUE));
}

std::optional<std::vector<std::string>> Win32Registry::ValueNames(std::string_view key) {
  return Names(Open(Normalised(key), KEY_QUERY_VALUE), [](HKEY handle, DWORD index, char* name,
                                                          DWORD* length) {
    return RegEnumValueA(handle, index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

std::optional<std::vector<std::string>> Win32Registry::SubKeyNames(std::string_view key) {
  return SubKeysOf(Open(Normalised(key), KEY_ENUMERATE_SUB_KEYS));
}

}  // namespace corvel::win32
