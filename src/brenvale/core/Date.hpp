#pragma once
// A calendar date with a time of day, held as days since 30 December 1899 with the time as the
// fraction. The value 0 is the null date: no date set.
#include <compare>
#include <string>

namespace brenvale {

class Date {
 public:
  constexpr Date() = default;
  constexpr explicit Date(double serial) : serial_(serial) {}

  // Builds a date the forgiving way: a month beyond 12 or a day beyond the month's end rolls
  // forward into the following months and years; zero or negative values roll backwards
  // (month 0 is December of the year before, day 0 the last day of the month before).
  static Date Serial(int year, int month, int day);
  // As Serial, plus a time of day; hours, minutes and seconds roll over the same way.
  static Date FromParts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
  static constexpr Date Null() { return Date(); }

  constexpr double Value() const { return serial_; }
  constexpr bool IsNull() const { return serial_ == 0.0; }

  int Year() const;
  int Month() const;
  int Day() const;
  int Hour() const;
  int Minute() const;
  int Second() const;
  // 1 = Sunday ... 7 = Saturday.
  int Weekday() const;
  // The date alone, time of day dropped.
  Date DateOnly() const;
  Date AddDays(int days) const { return Date(serial_ + days); }

  friend constexpr bool operator==(Date, Date) = default;
  friend constexpr auto operator<=>(Date, Date) = default;

 private:
  double serial_ = 0.0;
};

}  // namespace brenvale
