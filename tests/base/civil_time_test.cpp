#include "base/civil_time.h"

#include <gtest/gtest.h>

namespace corvel {
namespace {

TEST(CivilTime, CountsDaysThroughLeapYears) {
  const struct {
    int year, month, day;
    std::int64_t days;
    int weekday;
  } rows[] = {{1970, 1, 1, 0, 4},     {1999, 11, 21, 10916, 0}, {2000, 2, 29, 11016, 2},
              {2000, 3, 1, 11017, 3}, {1900, 3, 1, -25508, 4},  {1969, 12, 31, -1, 3}};
  for (const auto& row : rows) {
    EXPECT_EQ(DaysFromCivil(row.year, row.month, row.day), row.days);
    const CivilTime back = CivilFromMilliseconds(row.days * 86'400'000);
    EXPECT_EQ(back.year, row.year);
    EXPECT_EQ(back.month, row.month);
    EXPECT_EQ(back.day, row.day);
    EXPECT_EQ(Weekday(back), row.weekday);
  }
}

TEST(CivilTime, KeepsTheMillisecond) {
  const CivilTime time{1999, 12, 31, 23, 59, 59, 999};
  EXPECT_EQ(CivilFromMilliseconds(MillisecondsFromCivil(time)), time);
  EXPECT_EQ(CivilFromMilliseconds(MillisecondsFromCivil(time) + 1),
            (CivilTime{2000, 1, 1, 0, 0, 0, 0}));
}

TEST(CivilTime, TextsAreTheUsualAmericanOnes) {
  const CivilTime time{1999, 11, 5, 20, 5, 9, 0};
  EXPECT_EQ(DateMmDdYy(time), "11-05-99");
  EXPECT_EQ(LongDate(time), "Friday, November 05, 1999");
  EXPECT_EQ(ShortDate(time), "11/5/99");
  EXPECT_EQ(LongTime(time), "8:05:09 PM");
  EXPECT_EQ(LongTime(CivilTime{2000, 1, 1, 0, 0, 0, 0}), "12:00:00 AM");
  EXPECT_EQ(LongTime(CivilTime{2000, 1, 1, 12, 0, 0, 0}), "12:00:00 PM");
}

}  // namespace
}  // namespace corvel
