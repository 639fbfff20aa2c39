#pragma once
// Exact fixed-point money: a signed count of ten-thousandths.
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brenvale {

class Currency {
 public:
  static constexpr std::int64_t kScale = 10000;

  constexpr Currency() = default;
  constexpr Currency(int whole) : units_(static_cast<std::int64_t>(whole) * kScale) {}  // NOLINT
  // From a double, rounded to the nearest ten-thousandth, halves to even.
  static Currency FromDouble(double value);
  static constexpr Currency FromUnits(std::int64_t units) {
    Currency c;
    c.units_ = units;
    return c;
  }
  // Decimal text with a point ("-12.5", "3", ".25", "1e2" is refused). Digits beyond the fourth
  // decimal are rounded half to even. Empty or malformed text gives nothing.
  static std::optional<Currency> Parse(std::string_view text);

  constexpr std::int64_t Units() const { return units_; }
  double ToDouble() const { return static_cast<double>(units_) / kScale; }

  // Rounded to `decimals` places (0..4), halves to the even neighbour.
  Currency RoundedTo(int decimals) const;
  // Plain decimal text with exactly `decimals` places (0..4), point separator, no grouping.
  std::string ToString(int decimals = 4) const;
  // Shortest decimal text that keeps the value ("12.5", "3", "-0.0001").
  std::string ToShortString() const;

  constexpr Currency operator-() const { return FromUnits(-units_); }
  constexpr Currency& operator+=(Currency o) { units_ += o.units_; return *this; }
  constexpr Currency& operator-=(Currency o) { units_ -= o.units_; return *this; }
  friend constexpr Currency operator+(Currency a, Currency b) { return a += b; }
  friend constexpr Currency operator-(Currency a, Currency b) { return a -= b; }
  friend constexpr bool operator==(Currency, Currency) = default;
  friend constexpr auto operator<=>(Currency, Currency) = default;

 private:
  std::int64_t units_ = 0;
};

}  // namespace brenvale
