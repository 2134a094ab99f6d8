// The machine's clock, and chance.
#pragma once

#include "platform/clock.h"

namespace corvel::win32 {

class Win32Clock : public Clock {
 public:
  std::uint32_t TickCount() override;
  CivilTime Now() override;
  std::string TimeZoneName() override;
  std::string DateText(const CivilTime& date, DateForm form) override;
  std::string TimeText(const CivilTime& time) override;
};

class Win32Random : public Random {
 public:
  Win32Random() { Reseed(); }
  void Reseed() override;
  double Draw() override;

 private:
  std::uint64_t state_ = 0;
};

}  // namespace corvel::win32
