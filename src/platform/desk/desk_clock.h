// The virtual clock. It moves only when the scheduler, or a message to a hung process, moves it.
#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <string>

namespace corvel::desk {

class DeskClock : public Clock {
 public:
  std::uint32_t TickCount() override {
    return static_cast<std::uint32_t>(nowMs_ + ticksAtStart_);  // wraps by itself
  }
  CivilTime Now() override { return CivilFromMilliseconds(wallAtStart_ + nowMs_); }
  std::string TimeZoneName() override { return zone_; }
  std::string DateText(const CivilTime& date, DateForm form) override {
    return form == DateForm::kLong ? LongDate(date) : ShortDate(date);
  }
  std::string TimeText(const CivilTime& time) override { return LongTime(time); }

  std::int64_t NowMs() const { return nowMs_; }  // since the desk began
  void MoveTo(std::int64_t ms) { nowMs_ = ms; }
  void SetTickCount(std::uint32_t now) { ticksAtStart_ = static_cast<std::int64_t>(now) - nowMs_; }
  void SetWall(const CivilTime& now) { wallAtStart_ = MillisecondsFromCivil(now) - nowMs_; }
  void SetZone(std::string name) { zone_ = std::move(name); }

 private:
  std::int64_t nowMs_ = 0;
  std::int64_t ticksAtStart_ = 60'000;  // the machine has been on for a minute
  std::int64_t wallAtStart_ =
      MillisecondsFromCivil({.year = 1999, .month = 11, .day = 21, .hour = 20, .minute = 15});
  std::string zone_ = "Eastern Standard Time";
};

}  // namespace corvel::desk
