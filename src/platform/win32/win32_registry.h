// The user's part of the registry.
#pragma once

#include "platform/registry.h"

namespace corvel::win32 {

class Win32Registry : public Registry {
 public:
  std::optional<RegistryValue> Read(std::string_view key, std::string_view name,
                                    std::size_t room) override;
  bool Write(std::string_view key, std::string_view name, const RegistryValue& value) override;
  bool DeleteValue(std::string_view key, std::string_view name) override;
  bool DeleteKey(std::string_view key) override;
  bool KeyExists(std::string_view key) override;
  std::optional<std::vector<std::string>> ValueNames(std::string_view key) override;
  std::optional<std::vector<std::string>> SubKeyNames(std::string_view key) override;
};

}  // namespace corvel::win32
