#pragma once
// Locale-free decimal text of binary floating-point numbers, for the value conversions.
//
// A double is first turned into its shortest decimal text (the digits that read back as the same
// double, as std::to_chars gives them), and that decimal text is then rounded. So 2.675 rounds
// as the decimal 2.675 that the host wrote, not as the binary 2.67499999... that stores it.
// Nothing here depends on the C or C++ locale.
#include <string>

namespace brenvale::detail {

enum class HalfRounding {
  ToEven,        // a tie goes to the even neighbour (amounts)
  AwayFromZero,  // a tie goes away from zero (the fixed display patterns)
};

struct FixedPattern {
  int minIntegerDigits = 1;  // leading zeros pad the integer part up to this many digits
  int decimals = 2;          // exactly this many decimals
  bool grouping = false;     // "," between groups of three integer digits
  HalfRounding rounding = HalfRounding::AwayFromZero;
};

// The value rounded and written by the pattern; the minus sign comes before the padded digits
// ("-0000012.50000"); a value that rounds to zero is written without a sign. NaN and infinities
// are written as zero.
std::string FormatFixed(double value, const FixedPattern& pattern);

// The shortest decimal text that reads back as the same double: 12.5 -> "12.5", 3 -> "3",
// 1e-7 -> "0.0000001"; never exponent notation; "-0" is written "0".
std::string ShortestDecimal(double value);

}  // namespace brenvale::detail
