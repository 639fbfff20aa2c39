#include "brenvale/qbxml/Conversions.hpp"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/detail/DecimalText.hpp"

namespace brenvale {
namespace {

using detail::FixedPattern;
using detail::HalfRounding;

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view WithoutPercent(std::string_view text) {
  if (!text.empty() && text.back() == '%') text.remove_suffix(1);
  return text;
}

// Reads `length` digits at `pos`; false when the text is too short or a character is not a digit.
bool ReadDigits(std::string_view text, std::size_t pos, std::size_t length, int& out) {
  if (pos + length > text.size()) return false;
  int value = 0;
  for (std::size_t i = pos; i < pos + length; ++i) {
    if (text[i] < '0' || text[i] > '9') return false;
    value = value * 10 + (text[i] - '0');
  }
  out = value;
  return true;
}

void AppendPadded(std::string& out, long long value, int width) {
  if (value < 0) {
    out += '-';
    value = -value;
  }
  char buffer[24];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  const auto length = static_cast<int>(result.ptr - buffer);
  if (length < width) out.append(static_cast<std::size_t>(width - length), '0');
  out.append(buffer, result.ptr);
}

// Splits a date into whole days and seconds of the day, rounded to the nearest second (so that
// 23:59:59.9999 is the next midnight, for the date and the time alike).
struct SplitDate {
  Date day;
  long long seconds;
};

SplitDate Split(Date d) {
  const long long total = std::llround(d.Value() * 86400.0);
  long long days = total / 86400;
  long long seconds = total % 86400;
  if (seconds < 0) {
    seconds += 86400;
    --days;
  }
  return {Date(static_cast<double>(days)), seconds};
}

void AppendDate(std::string& out, Date day) {
  AppendPadded(out, day.Year(), 4);
  out += '-';
  AppendPadded(out, day.Month(), 2);
  out += '-';
  AppendPadded(out, day.Day(), 2);
}

// Integer text: whole numbers directly, decimals rounded half to even; malformed text gives
// nothing, a value outside [low, high] the platform's overflow error.
std::optional<long long> ReadWhole(std::string_view text, long long low, long long high) {
  text = Trim(text);
  if (text.empty()) return 0;
  std::string_view digits = text.front() == '+' ? text.substr(1) : text;
  long long value = 0;
  auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec == std::errc() && result.ptr == digits.data() + digits.size()) {
    // whole number
  } else if (result.ec == std::errc::result_out_of_range) {
    platform::Raise(platform::kOverflow, "Brenvale");
  } else if (auto amount = Currency::Parse(text)) {
    value = amount->RoundedTo(0).Units() / Currency::kScale;
  } else {
    return std::nullopt;
  }
  if (value < low || value > high) platform::Raise(platform::kOverflow, "Brenvale");
  return value;
}

}  // namespace

Date TextToDate(std::string_view text) {
  if (text == "None") return Date::Null();
  int year = 0, month = 0, day = 0;
  if (!ReadDigits(text, 0, 4, year) || !ReadDigits(text, 5, 2, month) || !ReadDigits(text, 8, 2, day))
    return Date::Null();
  if (text.size() < 11) return Date::Serial(year, month, day);
  int hour = 0, minute = 0, second = 0;
  if (!ReadDigits(text, 11, 2, hour) || !ReadDigits(text, 14, 2, minute) || !ReadDigits(text, 17, 2, second))
    return Date::Null();
  return Date::FromParts(year, month, day, hour, minute, second);
}

std::string DateToText(Date d) {
  if (d.IsNull()) return "None";
  std::string out;
  out.reserve(10);
  AppendDate(out, Split(d).day);
  return out;
}

std::string DateTimeToText(Date d) { return DateTimeToText(d, CurrentSession().qbXMLVersionNumber); }

std::string DateTimeToText(Date d, Currency versionNumber) {
  if (d.IsNull()) return "None";
  const SplitDate parts = Split(d);
  std::string out;
  out.reserve(19);
  AppendDate(out, parts.day);
  if (versionNumber >= Currency(2)) {
    out += 'T';
    AppendPadded(out, parts.seconds / 3600, 2);
    out += ':';
    AppendPadded(out, parts.seconds / 60 % 60, 2);
    out += ':';
    AppendPadded(out, parts.seconds % 60, 2);
  }
  return out;
}

Currency TextToAmount(std::string_view text) {
  text = WithoutPercent(Trim(text));
  if (text.empty()) return Currency();
  return Currency::Parse(text).value_or(Currency());
}

Single TextToSingle(std::string_view text) {
  text = WithoutPercent(Trim(text));
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  if (text.empty()) return 0.0f;
  float value = 0.0f;
  auto result = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::general);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return 0.0f;
  return value;
}

std::optional<double> TextToNumber(std::string_view text) {
  text = WithoutPercent(Trim(text));
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  if (text.empty()) return 0.0;
  double value = 0.0;
  auto result = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

Single TextToRate(std::string_view text) {
  text = WithoutPercent(Trim(text));
  if (text.empty()) return 0.0f;
  return static_cast<Single>(Currency::Parse(text).value_or(Currency()).ToDouble());
}

std::string AmountToText(Currency amount) { return amount.RoundedTo(2).ToString(2); }

std::string AmountToText(double amount) {
  return detail::FormatFixed(amount, FixedPattern{1, 2, false, HalfRounding::ToEven});
}

std::string PriceToText(double value) {
  return detail::FormatFixed(value, FixedPattern{7, 5, false, HalfRounding::AwayFromZero});
}

std::string QuantityToText(double value) {
  return detail::FormatFixed(value, FixedPattern{1, 6, false, HalfRounding::AwayFromZero});
}

std::string QuantityToRequestText(double value) {
  return detail::FormatFixed(value, FixedPattern{1, 5, false, HalfRounding::AwayFromZero});
}

std::string FourDecimalToText(double value) {
  return detail::FormatFixed(value, FixedPattern{7, 4, false, HalfRounding::AwayFromZero});
}

std::string DisplayAmountToText(double value) {
  return detail::FormatFixed(value, FixedPattern{1, 2, true, HalfRounding::AwayFromZero});
}

std::string BoolToText(bool value) { return value ? "true" : "false"; }

bool TextToBool(std::string_view text) {
  text = Trim(text);
  if (text == "1") return true;
  constexpr std::string_view kTrue = "true";
  if (text.size() != kTrue.size()) return false;
  for (std::size_t i = 0; i < kTrue.size(); ++i) {
    const char c = text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] - 'A' + 'a') : text[i];
    if (c != kTrue[i]) return false;
  }
  return true;
}

Long TextToLong(std::string_view text) {
  return static_cast<Long>(
      ReadWhole(text, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()).value_or(0));
}

Integer TextToInteger(std::string_view text) {
  return static_cast<Integer>(
      ReadWhole(text, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()).value_or(0));
}

std::string NumberToText(double value) { return detail::ShortestDecimal(value); }

}  // namespace brenvale
