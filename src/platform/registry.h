// The tree of named values under HKEY_CURRENT_USER.
//
// Paths are key names parted by backslashes; leading and doubled backslashes mean nothing. Names of
// keys and values are compared without case and keep the case they were made with. Every operation
// opens and closes what it needs; no handle stays open between calls.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

enum class ValueType : std::uint32_t {
  kNone = 0,
  kText = 1,
  kExpandText = 2,
  kBinary = 3,
  kDword = 4
};

struct RegistryValue {
  ValueType type = ValueType::kText;
  std::string bytes;  // as stored: a text with its NUL, a dword low byte first
};

class Registry {
 public:
  virtual ~Registry() = default;

  // Nothing if the key or the value doesn't exist, or its bytes don't fit in `room`.
  virtual std::optional<RegistryValue> Read(std::string_view key, std::string_view name,
                                            std::size_t room) = 0;
  // Creates the key with its parents if needed. False if it can't be written.
  virtual bool Write(std::string_view key, std::string_view name, const RegistryValue& value) = 0;
  virtual bool DeleteValue(std::string_view key, std::string_view name) = 0;
  // Deletes a key with its values, and on Windows 95 and 98 with its sub-keys. False if not there.
  virtual bool DeleteKey(std::string_view key) = 0;
  virtual bool KeyExists(std::string_view key) = 0;
  // The values' names in the registry's own order: that of writing, a value that is written anew
  // keeping its place. Nothing if the key can't be opened.
  virtual std::optional<std::vector<std::string>> ValueNames(std::string_view key) = 0;
  virtual std::optional<std::vector<std::string>> SubKeyNames(std::string_view key) = 0;
};

}  // namespace corvel
