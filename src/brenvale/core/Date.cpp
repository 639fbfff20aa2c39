#include "brenvale/core/Date.hpp"

#include <cmath>

namespace brenvale {
namespace {

// Days from 1970-01-01 of a proleptic Gregorian date (H. Hinnant's algorithm).
long long DaysFromCivil(long long y, unsigned m, unsigned d) {
  y -= m <= 2;
  const long long era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long long>(doe) - 719468;
}

struct Civil {
  long long y;
  unsigned m;
  unsigned d;
};

Civil CivilFromDays(long long z) {
  z += 719468;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const long long y = static_cast<long long>(yoe) + era * 400;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  const unsigned d = doy - (153 * mp + 2) / 5 + 1;
  const unsigned m = mp < 10 ? mp + 3 : mp - 9;
  return {y + (m <= 2), m, d};
}

// 1899-12-30 is day 0 of the serial count.
const long long kEpoch = DaysFromCivil(1899, 12, 30);

long long WholeDays(double serial) { return static_cast<long long>(std::floor(serial)); }

// Seconds into the day, rounded to the nearest second.
long long SecondsOfDay(double serial) {
  double frac = serial - std::floor(serial);
  long long s = std::llround(frac * 86400.0);
  return s >= 86400 ? 86399 : s;
}

Civil CivilOf(double serial) {
  // Round to the second first, so 23:59:59.9999 does not fall back a day.
  double frac = serial - std::floor(serial);
  long long days = WholeDays(serial);
  if (std::llround(frac * 86400.0) >= 86400) ++days;
  return CivilFromDays(days + kEpoch);
}

}  // namespace

Date Date::Serial(int year, int month, int day) {
  long long m0 = static_cast<long long>(month) - 1;
  long long y = year + (m0 >= 0 ? m0 / 12 : -((11 - m0) / 12));
  long long m = ((m0 % 12) + 12) % 12 + 1;
  long long days = DaysFromCivil(y, static_cast<unsigned>(m), 1) - kEpoch + (day - 1);
  return Date(static_cast<double>(days));
}

Date Date::FromParts(int year, int month, int day, int hour, int minute, int second) {
  double days = Serial(year, month, day).Value();
  long long secs = static_cast<long long>(hour) * 3600 + static_cast<long long>(minute) * 60 + second;
  return Date(days + static_cast<double>(secs) / 86400.0);
}

int Date::Year() const { return static_cast<int>(CivilOf(serial_).y); }
int Date::Month() const { return static_cast<int>(CivilOf(serial_).m); }
int Date::Day() const { return static_cast<int>(CivilOf(serial_).d); }
int Date::Hour() const { return static_cast<int>(SecondsOfDay(serial_) / 3600); }
int Date::Minute() const { return static_cast<int>(SecondsOfDay(serial_) / 60 % 60); }
int Date::Second() const { return static_cast<int>(SecondsOfDay(serial_) % 60); }

int Date::Weekday() const {
  // Day 0 (1899-12-30) was a Saturday.
  long long d = WholeDays(serial_);
  return static_cast<int>(((d + 6) % 7 + 7) % 7) + 1;
}

Date Date::DateOnly() const { return Date(std::floor(serial_)); }

}  // namespace brenvale
