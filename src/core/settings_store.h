// The settings tree: section / name / value, in the registry below
// HKEY_CURRENT_USER\Software\QRV Software\Corvel\.
//
// A section is a sub-key of the root; "" is the root itself; a nested one has a backslash in its
// name.
// "" is never stored: it is written as " ", so a reader gets "" only for what was never set. A
// failed read is "" too; a failed write answers false and the change lives in memory for this run.
#pragma once

#include "platform/registry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

class SettingsStore {
 public:
  explicit SettingsStore(Registry& registry) : registry_(registry) {}

  std::string ReadKey(std::string_view section, std::string_view name) const;
  bool WriteKey(std::string_view section, std::string_view name, std::string_view value);
  bool DeleteValue(std::string_view section, std::string_view name);
  // With all below it. The root is no section: false.
  bool DeleteSection(std::string_view section);
  // The free names of a section in the registry's own order; nothing if it can't be opened.
  std::optional<std::vector<std::string>> Names(std::string_view section) const;
  // The names of the sections below one, in the registry's own order.
  std::vector<std::string> Sections(std::string_view section) const;

 private:
  Registry& registry_;
};

}  // namespace corvel
