// The clients that the program knows, each as a practice client.
#pragma once

#include "tests/aolbridge/bridge_fixture.h"

namespace corvel {

struct KnownClient {
  const char* name;
  const char* version;
  practice::Locale locale;
  const char* aolVer;
  int aolLocale;
  const char* writeTitle;
  const char* country;

  bool Is3() const { return aolVer[0] == '3'; }
  Edition Known() const { return *EditionOf(aolVer, aolLocale); }
  practice::Setup Setup() const {
    practice::Setup setup;
    setup.version = version;
    setup.locale = locale;
    setup.screenNames = {"PracticeOne", "Practice Two"};
    return setup;
  }
};

inline const KnownClient kKnownClients[] = {
    {"Us3", "3.0", practice::Locale::kUs, "3", 0, "Compose Mail", "US"},
    {"Us4", "4.0", practice::Locale::kUs, "4", 0, "Write Mail", "US"},
    {"Us5", "5.0", practice::Locale::kUs, "5", 0, "Write Mail", "US"},
    {"Us51", "5.1", practice::Locale::kUs, "5", 0, "Write Mail", "US"},
    {"Uk4", "4.0", practice::Locale::kUk, "4", 1, "Write Mail", "UK"},
    {"Uk5", "5.0", practice::Locale::kUk, "5", 1, "Write Email", "UK"},
    {"Ca4", "4.0", practice::Locale::kCanada, "4", 2, "Write Mail", "CA"},
    {"Ca5", "5.0", practice::Locale::kCanada, "5", 2, "Write Mail", "CA"},
    {"Au4", "4.0", practice::Locale::kAustralia, "4", 3, "Write e-mail", "AU"},
    {"Au5", "5.0", practice::Locale::kAustralia, "5", 3, "Write e-mail", "AU"},
};

class EveryClient : public testing::TestWithParam<KnownClient> {};

}  // namespace corvel
