// The table of captions, and the few rules for places.
#include "practice/client/facts.h"

#include "base/cp1252.h"

#include <string_view>

namespace corvel::practice {
namespace {

struct Captions {
  int generation;
  Locale locale;
  std::string_view write, name, about, title, signOn, goodbye, attach;
};

constexpr std::string_view kOver = "&Über AOL 5.0"_cp;

// The two blanks in "America  Online" are the client's own.
constexpr Captions kCaptions[] = {
    {3, Locale::kUs, "Compose Mail", "America Online", "&About America Online", "America  Online",
     "Welcome", "Goodbye from America Online!", "Attach File"},
    {4, Locale::kUs, "Write Mail", "America Online", "&About America Online", "America  Online",
     "Sign On", "Goodbye from America Online!", "Attach"},
    {5, Locale::kUs, "Write Mail", "America Online", "&About America Online", "America  Online",
     "Sign On", "Goodbye from America Online!", "Attach"},
    {4, Locale::kUk, "Write Mail", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!",
     "Open"},
    {5, Locale::kUk, "Write Email", "AOL", "&About AOL", "AOL", "Sign On", "Goodbye from AOL!",
     "Attach"},
    {4, Locale::kCanada, "Write Mail", "AOL Canada", "&About AOL Canada", "AOL Canada", "Sign On",
     "Goodbye from AOL Canada!", "Open"},
    {5, Locale::kCanada, "Write Mail", "AOL", "&About AOL Canada", "AOL Canada", "Sign On",
     "Goodbye from AOL Canada!", "Attach"},
    {4, Locale::kAustralia, "Write e-mail", "AOL", "&About AOL", "AOL", "Sign On",
     "Goodbye from AOL!", "Attach"},
    {5, Locale::kAustralia, "Write e-mail", "AOL", "&About AOL", "AOL", "Sign On",
     "Goodbye from AOL", "Attach"},
    {4, Locale::kGermany, "Write e-mail", "AOL", kOver, "AOL", "Sign On", "Goodbye from AOL!",
     "Attach"},
    {5, Locale::kGermany, "Write e-mail", "AOL", kOver, "AOL", "Sign On", "Goodbye from AOL!",
     "Attach"},
};

// A version that nobody knows looks like the newest that somebody does.
int GenerationOf(const std::string& version) {
  if (version == "3.0") return 3;
  return version == "4.0" ? 4 : 5;
}

const Captions& CaptionsFor(int generation, Locale locale) {
  for (const Captions& row : kCaptions)
    if (row.generation == generation && (generation == 3 || row.locale == locale)) return row;
  return kCaptions[0];
}

void SetPlaces(Facts& facts) {
  const bool uk = facts.Is(Locale::kUk);
  const bool wideIm = facts.generation == 5 && facts.Is(Locale::kAustralia);
  facts.onlineIcon = facts.generation == 3 ? 6 : 1;
  facts.attachIcon = facts.generation == 3 ? 5 : facts.generation == 4 ? 13 : 14;
  facts.replyStatic = uk ? 9 : 3;
  facts.imNameStatic = wideIm ? 2 : 1;
  facts.imSendIcon = wideIm ? 10 : 9;
  facts.imNotifyIcon = uk ? 15 : wideIm ? 13 : 12;
  facts.mainCheckboxes = uk ? 17 : 19;
}

}  // namespace

Facts FactsFor(const Setup& setup) {
  const int generation = GenerationOf(setup.version);
  const Captions& row = CaptionsFor(generation, setup.locale);
  Facts facts;
  facts.generation = generation;
  facts.locale = row.locale;
  facts.writeTitle = row.write;
  facts.name = row.name;
  facts.aboutRow = row.about;
  facts.title = row.title;
  facts.signOnTitle = row.signOn;
  facts.goodbyeTitle = row.goodbye;
  facts.attachText = row.attach;
  facts.signOnRow = generation == 3              ? "Set Up && Sign On"
                    : facts.Is(Locale::kGermany) ? "Anm&elden"
                                                 : "&Sign On Screen";
  SetPlaces(facts);
  return facts;
}

}  // namespace corvel::practice
