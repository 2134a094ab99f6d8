// The settings tree on top of the registry.
#include "core/settings_store.h"

#include "base/text.h"

#include <cstdint>

namespace corvel {

namespace {

constexpr std::string_view kRoot = "Software\\QRV Software\\Corvel\\";
// A value and its NUL have to fit in this; a longer one can be stored but reads as "".
constexpr std::size_t kReadBuffer = 1024;

std::string KeyOf(std::string_view section) { return std::string(kRoot) + std::string(section); }

// Numbers in the tree are signed 32-bit decimals (a system colour is negative), so a number that
// somebody put in as a number reads like one that was put in as text. Each byte counts for two
// hexadecimal digits: without the leading zeros 0x0100 and 0x0010 would be the same.
std::string DecimalOfDword(std::string_view bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes.size() && i < sizeof number; ++i)
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  return std::to_string(static_cast<std::int32_t>(number));
}

}  // namespace

std::string SettingsStore::ReadKey(std::string_view section, std::string_view name) const {
  const auto value = registry_.Read(KeyOf(section), name, kReadBuffer);
  if (!value) return {};
  switch (value->type) {
    case ValueType::kText:
    case ValueType::kExpandText:
      return CutAtNul(value->bytes);
    case ValueType::kDword:
      return DecimalOfDword(value->bytes);
    default:
      return {};
  }
}

bool SettingsStore::WriteKey(std::string_view section, std::string_view name,
                             std::string_view value) {
  std::string bytes(value.empty() ? " " : value);
  bytes += '\0';
  return registry_.Write("\\" + KeyOf(section), name, {ValueType::kText, std::move(bytes)});
}

bool SettingsStore::DeleteValue(std::string_view section, std::string_view name) {
  return registry_.DeleteValue(KeyOf(section), name);
}

bool SettingsStore::DeleteSection(std::string_view section) {
  if (CutAtNul(section).find_first_not_of('\\') == std::string::npos) return false;
  return registry_.DeleteKey(KeyOf(section));
}

std::optional<std::vector<std::string>> SettingsStore::Names(std::string_view section) const {
  return registry_.ValueNames(KeyOf(section));
}

std::vector<std::string> SettingsStore::Sections(std::string_view section) const {
  return registry_.SubKeyNames(KeyOf(section)).value_or(std::vector<std::string>{});
}

}  // namespace corvel
