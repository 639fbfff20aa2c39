#include "brenvale/qbxml/detail/DecimalText.hpp"

#include <charconv>
#include <cmath>
#include <string_view>

namespace brenvale::detail {
namespace {

// Enough for the longest fixed form of a double (about 330 characters for the smallest denormal).
constexpr std::size_t kBufferSize = 512;

std::string_view FixedDigits(double magnitude, char (&buffer)[kBufferSize]) {
  auto result = std::to_chars(buffer, buffer + kBufferSize, magnitude, std::chars_format::fixed);
  return {buffer, static_cast<std::size_t>(result.ptr - buffer)};
}

}  // namespace

std::string FormatFixed(double value, const FixedPattern& pattern) {
  if (!std::isfinite(value)) value = 0.0;
  const bool negative = std::signbit(value);
  char buffer[kBufferSize];
  std::string_view text = FixedDigits(std::fabs(value), buffer);

  const std::size_t point = text.find('.');
  std::string_view integerPart = text.substr(0, point);
  std::string_view fraction = point == std::string_view::npos ? std::string_view{} : text.substr(point + 1);
  const std::size_t decimals = pattern.decimals < 0 ? 0 : static_cast<std::size_t>(pattern.decimals);

  // The kept digits, integer and fraction together, with the fraction padded to `decimals`.
  std::string digits(integerPart);
  for (std::size_t i = 0; i < decimals; ++i) digits += i < fraction.size() ? fraction[i] : '0';

  bool roundUp = false;
  if (fraction.size() > decimals) {
    const char first = fraction[decimals];
    const bool restNonZero = fraction.substr(decimals + 1).find_first_not_of('0') != std::string_view::npos;
    if (first > '5' || (first == '5' && restNonZero)) {
      roundUp = true;
    } else if (first == '5') {
      roundUp = pattern.rounding == HalfRounding::AwayFromZero || ((digits.back() - '0') % 2 != 0);
    }
  }
  if (roundUp) {
    std::size_t i = digits.size();
    while (i > 0) {
      --i;
      if (digits[i] == '9') {
        digits[i] = '0';
      } else {
        ++digits[i];
        break;
      }
      if (i == 0) {  // every digit was a nine: one more digit in front
        std::string grown(1, '1');
        grown += digits;
        digits = std::move(grown);
      }
    }
  }

  std::string integerDigits = digits.substr(0, digits.size() - decimals);
  const std::string fractionDigits = digits.substr(digits.size() - decimals);
  // No leading zeros to strip: to_chars writes "0" alone for a value below one, and a carry out
  // of it makes "1".
  if (integerDigits.size() < static_cast<std::size_t>(pattern.minIntegerDigits))
    integerDigits.insert(0, static_cast<std::size_t>(pattern.minIntegerDigits) - integerDigits.size(), '0');
  if (pattern.grouping && integerDigits.size() > 3) {
    std::string grouped;
    grouped.reserve(integerDigits.size() + integerDigits.size() / 3);
    const std::size_t lead = integerDigits.size() % 3 == 0 ? 3 : integerDigits.size() % 3;
    grouped.append(integerDigits, 0, lead);
    for (std::size_t i = lead; i < integerDigits.size(); i += 3) {
      grouped += ',';
      grouped.append(integerDigits, i, 3);
    }
    integerDigits = std::move(grouped);
  }

  const bool isZero = digits.find_first_not_of('0') == std::string::npos;
  std::string out;
  out.reserve(integerDigits.size() + fractionDigits.size() + 2);
  if (negative && !isZero) out += '-';
  out += integerDigits;
  if (decimals > 0) {
    out += '.';
    out += fractionDigits;
  }
  return out;
}

std::string ShortestDecimal(double value) {
  if (!std::isfinite(value) || value == 0.0) return "0";
  char buffer[kBufferSize];
  std::string out = value < 0 ? "-" : "";
  out += FixedDigits(std::fabs(value), buffer);
  return out;
}

}  // namespace brenvale::detail
