// Time and chance.
#pragma once

#include "base/civil_time.h"

#include <cstdint>
#include <string>

namespace corvel {

enum class DateForm { kLong, kShort };

class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::uint32_t TickCount() = 0;   // milliseconds since the system started; wraps at 2^32
  virtual CivilTime Now() = 0;             // local time
  virtual std::string TimeZoneName() = 0;  // "Eastern Standard Time"
  // As the user's regional settings write them; in the US "Sunday, November 21, 1999", "11/21/99",
  // "8:15:00 PM".
  virtual std::string DateText(const CivilTime& date, DateForm form) = 0;
  virtual std::string TimeText(const CivilTime& time) = 0;
};

class Random {
 public:
  virtual ~Random() = default;
  virtual void Reseed() = 0;  // from the clock
  virtual double Draw() = 0;  // in [0, 1)
};

}  // namespace corvel
