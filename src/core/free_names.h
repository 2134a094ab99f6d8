// Sections of the settings tree whose names are the user's own.
#pragma once

#include "core/setting.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

// Values with names of the user's: any text is a name.
class FreeNames {
 public:
  FreeNames(SettingsTree& tree, const char* section, const char* meaning);
  // In the registry's own order; nothing if the section was never written.
  std::optional<std::vector<std::string>> Names() const;
  std::string Read(std::string_view name) const;
  bool Write(std::string_view name, std::string_view value);
  bool Delete(std::string_view name);

 private:
  SettingsStore& store_;
  const char* const section_;
};

// Sections below `section` with names of the user's. These come from keyboards and files, and with
// a backslash, or none at all, would lead to another section: what isn't a name reads as "", is
// never written, and deletes nothing.
class NamedSections {
 public:
  NamedSections(SettingsTree& tree, const char* section, const char* meaning);
  static bool IsName(std::string_view name);
  std::vector<std::string> Names() const;  // in the registry's own order
  std::string Read(std::string_view name, std::string_view key) const;
  bool Write(std::string_view name, std::string_view key, std::string_view value);
  bool Delete(std::string_view name);

 private:
  std::string Of(std::string_view name) const;

  SettingsStore& store_;
  const char* const section_;
};

}  // namespace corvel
