#include "brenvale/core/Currency.hpp"

#include <cmath>
#include <cstdlib>

namespace brenvale {
namespace {

// Divides by 10^k, rounding halves to the even neighbour.
std::int64_t DivRoundHalfEven(std::int64_t value, std::int64_t divisor) {
  std::int64_t q = value / divisor;
  std::int64_t r = value % divisor;
  if (r == 0) return q;
  std::int64_t twice = 2 * (r < 0 ? -r : r);
  bool away = twice > divisor || (twice == divisor && (q % 2 != 0));
  if (away) q += (value < 0) ? -1 : 1;
  return q;
}

constexpr std::int64_t kPow10[] = {1, 10, 100, 1000, 10000};

}  // namespace

Currency Currency::FromDouble(double value) {
  double scaled = value * static_cast<double>(kScale);
  return FromUnits(static_cast<std::int64_t>(std::nearbyint(scaled)));
}

std::optional<Currency> Currency::Parse(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  if (text.empty()) return std::nullopt;
  bool negative = false;
  if (text.front() == '-' || text.front() == '+') {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  std::int64_t whole = 0;
  std::int64_t frac = 0;  // in units of 10^-digits
  int fracDigits = 0;
  bool anyDigit = false;
  bool seenPoint = false;
  // Digits beyond the fourth decimal decide the rounding: 0 none, 1 below half, 2 exactly half so
  // far, 3 above half.
  int beyond = 0;
  for (char c : text) {
    if (c == '.') {
      if (seenPoint) return std::nullopt;
      seenPoint = true;
      continue;
    }
    if (c < '0' || c > '9') return std::nullopt;
    anyDigit = true;
    int d = c - '0';
    if (!seenPoint) {
      if (whole > (INT64_MAX / kScale - 9) / 10) return std::nullopt;
      whole = whole * 10 + d;
    } else if (fracDigits < 4) {
      frac = frac * 10 + d;
      ++fracDigits;
    } else if (beyond == 0) {
      beyond = d > 5 ? 3 : d == 5 ? 2 : 1;
    } else if (beyond == 2 && d > 0) {
      beyond = 3;
    }
  }
  if (!anyDigit) return std::nullopt;
  std::int64_t units = whole * kScale + frac * kPow10[4 - fracDigits];
  if (beyond == 3 || (beyond == 2 && units % 2 != 0)) ++units;
  return FromUnits(negative ? -units : units);
}

Currency Currency::RoundedTo(int decimals) const {
  if (decimals >= 4) return *this;
  if (decimals < 0) decimals = 0;
  std::int64_t div = kPow10[4 - decimals];
  return FromUnits(DivRoundHalfEven(units_, div) * div);
}

std::string Currency::ToString(int decimals) const {
  if (decimals < 0) decimals = 0;
  if (decimals > 4) decimals = 4;
  std::int64_t div = kPow10[4 - decimals];
  std::int64_t v = DivRoundHalfEven(units_, div);
  bool negative = v < 0;
  std::uint64_t mag = negative ? static_cast<std::uint64_t>(-(v + 1)) + 1 : static_cast<std::uint64_t>(v);
  std::uint64_t scale = static_cast<std::uint64_t>(kPow10[decimals]);
  std::string out = negative ? "-" : "";
  out += std::to_string(mag / scale);
  if (decimals > 0) {
    std::string f = std::to_string(mag % scale);
    out += '.';
    out.append(static_cast<std::size_t>(decimals) - f.size(), '0');
    out += f;
  }
  return out;
}

std::string Currency::ToShortString() const {
  std::string s = ToString(4);
  while (!s.empty() && s.back() == '0') s.pop_back();
  if (!s.empty() && s.back() == '.') s.pop_back();
  if (s == "-0") s = "0";
  return s;
}

}  // namespace brenvale
