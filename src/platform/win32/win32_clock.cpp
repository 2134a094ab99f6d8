#include "platform/win32/win32_clock.h"

#include <iterator>
#include <windows.h>

namespace corvel::win32 {
namespace {

constexpr int kTextRoom = 256;

SYSTEMTIME SystemTimeOf(const CivilTime& time) {
  SYSTEMTIME result{};
  result.wYear = static_cast<WORD>(time.year);
  result.wMonth = static_cast<WORD>(time.month);
  result.wDay = static_cast<WORD>(time.day);
  result.wHour = static_cast<WORD>(time.hour);
  result.wMinute = static_cast<WORD>(time.minute);
  result.wSecond = static_cast<WORD>(time.second);
  return result;
}

}  // namespace

std::uint32_t Win32Clock::TickCount() { return GetTickCount(); }

CivilTime Win32Clock::Now() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {.year = now.wYear,
          .month = now.wMonth,
          .day = now.wDay,
          .hour = now.wHour,
          .minute = now.wMinute,
          .second = now.wSecond,
          .millisecond = now.wMilliseconds};
}

std::string Win32Clock::TimeZoneName() {
  TIME_ZONE_INFORMATION zone{};
  if (GetTimeZoneInformation(&zone) == TIME_ZONE_ID_INVALID) return {};
  char name[2 * std::size(zone.StandardName) + 1] = {};  // wide on every release
  const int size = WideCharToMultiByte(CP_ACP, 0, zone.StandardName, -1, name, sizeof name - 1,
                                       nullptr, nullptr);
  return size > 0 ? std::string(name) : std::string();
}

std::string Win32Clock::DateText(const CivilTime& date, DateForm form) {
  const SYSTEMTIME when = SystemTimeOf(date);
  char text[kTextRoom] = {};
  GetDateFormatA(LOCALE_USER_DEFAULT, form == DateForm::kLong ? DATE_LONGDATE : DATE_SHORTDATE,
                 &when, nullptr, text, kTextRoom - 1);
  return text;
}

std::string Win32Clock::TimeText(const CivilTime& time) {
  const SYSTEMTIME when = SystemTimeOf(time);
  char text[kTextRoom] = {};
  GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &when, nullptr, text, kTextRoom - 1);
  return text;
}

void Win32Random::Reseed() {
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  state_ +=
      (static_cast<std::uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime) + GetTickCount();
}

double Win32Random::Draw() {
  std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;  // SplitMix64
  z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9u;
  z = (z ^ z >> 27) * 0x94D049BB133111EBu;
  return static_cast<double>((z ^ z >> 31) >> 11) * 0x1p-53;
}

}  // namespace corvel::win32
