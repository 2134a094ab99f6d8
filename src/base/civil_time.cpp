#include "base/civil_time.h"

#include "base/text.h"

#include <array>

namespace corvel {
namespace {

constexpr std::int64_t kDayMs = 86'400'000;
constexpr std::array<const char*, 7> kDays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                              "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

}  // namespace

// The usual era-based conversion: a year is taken to begin in March, so the leap day comes last.
std::int64_t DaysFromCivil(int year, int month, int day) {
  year -= month <= 2;
  const int era = (year >= 0 ? year : year - 399) / 400;
  const int yearOfEra = year - era * 400;
  const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return static_cast<std::int64_t>(era) * 146097 + dayOfEra - 719468;
}

CivilTime CivilFromMilliseconds(std::int64_t sinceEpoch) {
  std::int64_t days = sinceEpoch / kDayMs;
  std::int64_t rest = sinceEpoch % kDayMs;
  if (rest < 0) rest += kDayMs, --days;
  days += 719468;
  const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
  const int dayOfEra = static_cast<int>(days - era * 146097);
  const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const int shifted = (5 * dayOfYear + 2) / 153;
  CivilTime time;
  time.day = dayOfYear - (153 * shifted + 2) / 5 + 1;
  time.month = shifted < 10 ? shifted + 3 : shifted - 9;
  time.year = static_cast<int>(yearOfEra + era * 400) + (time.month <= 2 ? 1 : 0);
  const int ms = static_cast<int>(rest);
  time.hour = ms / 3'600'000;
  time.minute = ms / 60'000 % 60;
  time.second = ms / 1000 % 60;
  time.millisecond = ms % 1000;
  return time;
}

std::int64_t MillisecondsFromCivil(const CivilTime& t) {
  return DaysFromCivil(t.year, t.month, t.day) * kDayMs +
         ((t.hour * 60 + t.minute) * 60 + t.second) * std::int64_t{1000} + t.millisecond;
}

int Weekday(const CivilTime& time) {
  return static_cast<int>((DaysFromCivil(time.year, time.month, time.day) % 7 + 11) % 7);
}

double SecondsOfDay(const CivilTime& t) {
  return (t.hour * 60 + t.minute) * 60 + t.second + t.millisecond / 1000.0;
}

std::string DateMmDdYy(const CivilTime& t) {
  return TwoDigits(t.month) + "-" + TwoDigits(t.day) + "-" + TwoDigits(t.year % 100);
}

std::string LongDate(const CivilTime& t) {
  return kDays[static_cast<std::size_t>(Weekday(t))] + std::string(", ") +
         kMonths[static_cast<std::size_t>(t.month - 1)] + " " + TwoDigits(t.day) + ", " +
         std::to_string(t.year);
}

std::string ShortDate(const CivilTime& t) {
  return std::to_string(t.month) + "/" + std::to_string(t.day) + "/" + TwoDigits(t.year % 100);
}

std::string LongTime(const CivilTime& t) {
  return std::to_string(t.hour % 12 == 0 ? 12 : t.hour % 12) + ":" + TwoDigits(t.minute) + ":" +
         TwoDigits(t.second) + (t.hour < 12 ? " AM" : " PM");
}

}  // namespace corvel
