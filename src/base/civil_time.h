// The wall clock as the user reads it, and the texts made of it.
#pragma once

#include <cstdint>
#include <string>

namespace corvel {

struct CivilTime {
  int year = 1999, month = 1, day = 1;  // month and day from 1
  int hour = 0, minute = 0, second = 0, millisecond = 0;

  friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

// Days since 1970-01-01 in the Gregorian calendar, and back.
std::int64_t DaysFromCivil(int year, int month, int day);
CivilTime CivilFromMilliseconds(std::int64_t sinceEpoch);
std::int64_t MillisecondsFromCivil(const CivilTime& time);

int Weekday(const CivilTime& time);  // 0 Sunday to 6 Saturday

double SecondsOfDay(const CivilTime& time);

std::string DateMmDdYy(const CivilTime& time);  // "11-21-99", the log folders' form
std::string LongDate(const CivilTime& time);    // "Sunday, November 21, 1999", the US long date
std::string ShortDate(const CivilTime& time);   // "11/21/99", the US short date
std::string LongTime(const CivilTime& time);    // "8:15:00 PM"

}  // namespace corvel
