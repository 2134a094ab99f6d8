// Which client it is, and its own texts.
#include "aolbridge/client_facts.h"

#include <algorithm>
#include <array>

namespace corvel {
namespace {

// A locale that no detection reaches now; its row stays, and all else is as in the US.
constexpr int kFormerLocale = 4;

struct LocaleRow {
  std::string_view versions;
  int locale;
  AolStrings strings;  // in the order of their declaration
};

// The two blanks in "America  Online" are the client's own.
constexpr std::array kLocaleRows = {
    LocaleRow{"3",
              0,
              {"Compose Mail", "America Online", "&About America Online", "America  Online",
               "Welcome", "Goodbye from America Online!", "Attach File"}},
    LocaleRow{"45",
              0,
              {"Write Mail", "America Online", "&About America Online", "America  Online",
               "Sign On", "Goodbye from America Online!", "Attach"}},
    LocaleRow{
        "4", 1, {"Write Mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Open"}},
    LocaleRow{
        "5",
        1,
        {"Write Email", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Attach"}},
    LocaleRow{"4",
              2,
              {"Write Mail", "AOL Canada", "&About AOL Canada", "AOL Canada", "Sign On",
               "Goodbye from AOL Canada!", "Open"}},
    LocaleRow{"5",
              2,
              {"Write Mail", "AOL", "&About AOL Canada", "AOL Canada", "Sign On",
               "Goodbye from AOL Canada!", "Attach"}},
    LocaleRow{
        "4",
        3,
        {"Write e-mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Attach"}},
    LocaleRow{
        "5",
        3,
        {"Write e-mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL", "Attach"}},
    LocaleRow{
        "45",
        kFormerLocale,
        {"Write e-mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!", "Attach"}},
};

struct CountryRow {
  Country country;
  HouseColors colors;
};
constexpr CountryRow kCountries[] = {
    {{"US", "US"}, {0xF0FBFF, 0xAD6D00, 0xFFB18C}},
    {{"UK", "UK"}, {0xF0FBFF, 0xC8876C, std::nullopt}},
    {{"Canada", "CA"}, {0xF0FBFF, 0xAD6D00, 0xFFB18C}},
    {{"Australia", "AU"}, {0xC0FFFF, 0xAD6D00, 0xFFB18C}},
};

const CountryRow& RowAt(int aolLocale) {
  const bool known = aolLocale >= 0 && aolLocale < static_cast<int>(std::size(kCountries));
  return kCountries[known ? aolLocale : locale::kUs];
}

}  // namespace

Country CountryAt(int aolLocale) { return RowAt(aolLocale).country; }
HouseColors HouseColorsAt(int aolLocale) { return RowAt(aolLocale).colors; }

std::optional<Edition> EditionOf(std::string_view aolVer, int aolLocale) {
  if (aolVer != "3" && aolVer != "4" && aolVer != "5") return std::nullopt;
  return Edition{aolVer.front() - '0', aolVer == "3" ? 0 : aolLocale};
}

AolStrings StringsOf(const std::optional<Edition>& edition) {
  if (!edition) return {};
  const char version = static_cast<char>('0' + edition->version);
  const auto row = std::find_if(kLocaleRows.begin(), kLocaleRows.end(), [&](const LocaleRow& r) {
    return r.locale == edition->locale && r.versions.find(version) != std::string_view::npos;
  });
  return row == kLocaleRows.end() ? AolStrings{} : row->strings;
}

}  // namespace corvel
