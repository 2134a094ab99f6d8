#include "core/free_names.h"

#include "base/text.h"

namespace corvel {

FreeNames::FreeNames(SettingsTree& tree, const char* section, const char* meaning)
    : store_(tree.store), section_(section) {
  tree.freeSections.push_back({section, meaning});
}

std::optional<std::vector<std::string>> FreeNames::Names() const { return store_.Names(section_); }

std::string FreeNames::Read(std::string_view name) const { return store_.ReadKey(section_, name); }

bool FreeNames::Write(std::string_view name, std::string_view value) {
  return store_.WriteKey(section_, name, value);
}

bool FreeNames::Delete(std::string_view name) { return store_.DeleteValue(section_, name); }

NamedSections::NamedSections(SettingsTree& tree, const char* section, const char* meaning)
    : store_(tree.store), section_(section) {
  tree.freeSections.push_back({section, meaning});
}

// The registry ends a name at its first NUL, and takes none that is longer.
bool NamedSections::IsName(std::string_view name) {
  constexpr std::size_t kLongest = 255;
  constexpr std::string_view kForbidden{"\\\0", 2};
  return !name.empty() && name.size() <= kLongest &&
         name.find_first_of(kForbidden) == std::string_view::npos;
}

std::string NamedSections::Of(std::string_view name) const {
  return std::string(section_) + "\\" + std::string(name);
}

std::vector<std::string> NamedSections::Names() const { return store_.Sections(section_); }

std::string NamedSections::Read(std::string_view name, std::string_view key) const {
  return IsName(name) ? store_.ReadKey(Of(name), key) : std::string();
}

bool NamedSections::Write(std::string_view name, std::string_view key, std::string_view value) {
  return IsName(name) && store_.WriteKey(Of(name), key, value);
}

bool NamedSections::Delete(std::string_view name) {
  return IsName(name) && store_.DeleteSection(Of(name));
}

}  // namespace corvel
