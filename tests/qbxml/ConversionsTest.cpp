// Value conversions between qbXML text and typed values, whatever the locale.
#include <clocale>
#include <cstdio>
#include <locale>

#include "QbxmlTestSupport.hpp"
#include "brenvale/qbxml/Conversions.hpp"

namespace brenvale {
namespace {

using testing::SessionTest;

Currency C(const char* text) { return *Currency::Parse(text); }

class Conversions : public SessionTest {};

TEST_F(Conversions, TextToDateReadsFixedPositions) {
  const std::pair<const char*, Date> cases[] = {
      {"2012-05-01", Date::Serial(2012, 5, 1)},
      {"2012-05-01T13:45:30", Date::FromParts(2012, 5, 1, 13, 45, 30)},
      {"2012-05-01T13:45:30-05:00", Date::FromParts(2012, 5, 1, 13, 45, 30)},  // offset dropped
      {"2012/05/01", Date::Serial(2012, 5, 1)},                                // separators not checked
      {"0999-01-02", Date::Serial(999, 1, 2)},
      {"None", Date::Null()},
      {"", Date::Null()},
      {"2012-05", Date::Null()},
      {"2012-5-1", Date::Null()},
      {"yyyy-mm-dd", Date::Null()},
      {"2012-05-01T13", Date::Null()},
      {"2012-05-01Thh:mm:ss", Date::Null()},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(TextToDate(text), expected) << text;
}

TEST_F(Conversions, DatesToText) {
  EXPECT_EQ(DateToText(Date::Null()), "None");
  EXPECT_EQ(DateToText(Date::Serial(2012, 5, 1)), "2012-05-01");
  EXPECT_EQ(DateToText(Date::FromParts(2012, 5, 1, 23, 59, 59)), "2012-05-01");
  EXPECT_EQ(DateToText(Date::Serial(999, 12, 31)), "0999-12-31");

  const Date t = Date::FromParts(2012, 5, 1, 13, 45, 30);
  const Date almostMidnight(Date::Serial(2012, 5, 1).Value() + 0.9999999);
  SetVersion("2.0");
  EXPECT_EQ(DateTimeToText(t), "2012-05-01T13:45:30");
  EXPECT_EQ(DateTimeToText(Date::Serial(2012, 5, 1)), "2012-05-01T00:00:00");
  EXPECT_EQ(DateTimeToText(almostMidnight), "2012-05-02T00:00:00");  // date and time round together
  EXPECT_EQ(DateToText(almostMidnight), "2012-05-02");
  EXPECT_EQ(DateTimeToText(Date::Null()), "None");
  SetVersion("13.0");
  EXPECT_EQ(DateTimeToText(t), "2012-05-01T13:45:30");
  SetVersion("1.1");  // decided by the session at the time of the call
  EXPECT_EQ(DateTimeToText(t), "2012-05-01");
  SetVersion("");
  EXPECT_EQ(DateTimeToText(t), "2012-05-01");
  EXPECT_EQ(TextToDate(DateTimeToText(t)), Date::Serial(2012, 5, 1));
}

TEST_F(Conversions, TextToNumbers) {
  const std::pair<const char*, Currency> amounts[] = {
      {"12.5%", C("12.5")}, {"", Currency()},     {"-3.005", C("-3.005")}, {" 7 ", C("7")},
      {"1.23456", C("1.2346")}, {"abc", Currency()}, {"5%%", Currency()},   {"%", Currency()},
  };
  for (const auto& [text, expected] : amounts) EXPECT_EQ(TextToAmount(text), expected) << text;

  EXPECT_EQ(TextToSingle("12.5%"), 12.5f);
  EXPECT_EQ(TextToSingle(""), 0.0f);
  EXPECT_EQ(TextToSingle("0.1"), 0.1f);
  EXPECT_EQ(TextToSingle("+2.25"), 2.25f);
  EXPECT_EQ(TextToSingle("1e2"), 100.0f);
  EXPECT_EQ(TextToSingle("x1"), 0.0f);

  EXPECT_EQ(TextToRate("1.23456"), static_cast<float>(1.2346));  // at most four decimals survive
  EXPECT_EQ(TextToRate(""), 0.0f);
  EXPECT_EQ(TextToRate("0.875"), 0.875f);

  EXPECT_EQ(TextToLong("42"), 42);
  EXPECT_EQ(TextToLong("-7"), -7);
  EXPECT_EQ(TextToLong("12.5"), 12);  // halves to even
  EXPECT_EQ(TextToLong("13.5"), 14);
  EXPECT_EQ(TextToLong(""), 0);
  EXPECT_EQ(TextToLong("abc"), 0);
  EXPECT_EQ(TextToInteger("32767"), 32767);
  EXPECT_EQ(TextToInteger("-32768"), -32768);
  for (const char* tooBig : {"3000000000", "99999999999999999999"}) {
    try {
      TextToLong(tooBig);
      ADD_FAILURE() << tooBig;
    } catch (const BrenvaleError& e) {
      EXPECT_EQ(e.Number(), platform::kOverflow);
    }
  }
  EXPECT_THROW(TextToInteger("40000"), BrenvaleError);
}

TEST_F(Conversions, NumbersToText) {
  const std::pair<const char*, const char*> amounts[] = {
      {"1234.5", "1234.50"}, {"0", "0.00"},       {"0.125", "0.12"},       {"0.135", "0.14"},
      {"-3.005", "-3.00"},   {"-3.015", "-3.02"}, {"1234567.891", "1234567.89"}, {"-0.001", "0.00"},
  };
  for (const auto& [text, expected] : amounts) {
    EXPECT_EQ(AmountToText(C(text)), expected) << text;
    EXPECT_EQ(AmountToText(C(text).ToDouble()), expected) << text << " as double";
  }
  // Doubles round as the decimal the host wrote, halves to even.
  EXPECT_EQ(AmountToText(2.675), "2.68");
  EXPECT_EQ(AmountToText(2.665), "2.66");
  EXPECT_EQ(AmountToText(1e15), "1000000000000000.00");
  EXPECT_EQ(AmountToText(0), "0.00");

  struct Case {
    std::string (*format)(double);
    double value;
    const char* expected;
  };
  const Case cases[] = {
      {PriceToText, 12.5, "0000012.50000"},
      {PriceToText, 0, "0000000.00000"},
      {PriceToText, -12.5, "-0000012.50000"},  // the sign goes before the padded digits
      {PriceToText, 12345678.123456, "12345678.12346"},
      {PriceToText, 1.234565, "0000001.23457"},  // halves away from zero
      {PriceToText, 0.000004, "0000000.00000"},
      {QuantityToText, 1.5, "1.500000"},
      {QuantityToText, 0, "0.000000"},
      {QuantityToText, 2.0000005, "2.000001"},
      {QuantityToText, -0.25, "-0.250000"},
      {QuantityToText, 1e-7, "0.000000"},
      {FourDecimalToText, 3.14159, "0000003.1416"},
      {FourDecimalToText, 12345678.9, "12345678.9000"},
      {FourDecimalToText, 9999999.99995, "10000000.0000"},
      {DisplayAmountToText, 1234567.891, "1,234,567.89"},
      {DisplayAmountToText, 0, "0.00"},
      {DisplayAmountToText, 999.995, "1,000.00"},
      {DisplayAmountToText, -1234.5, "-1,234.50"},
      {DisplayAmountToText, 100, "100.00"},
      {DisplayAmountToText, 123456, "123,456.00"},
      {NumberToText, 12.5, "12.5"},
      {NumberToText, 3, "3"},
      {NumberToText, -0.0, "0"},
      {NumberToText, 0.1, "0.1"},
      {NumberToText, 1e-7, "0.0000001"},
      {NumberToText, -250000, "-250000"},
  };
  for (const Case& c : cases) EXPECT_EQ(c.format(c.value), c.expected) << c.value;
}

TEST_F(Conversions, Booleans) {
  EXPECT_EQ(BoolToText(true), "true");
  EXPECT_EQ(BoolToText(false), "false");
  for (const char* yes : {"true", "TRUE", "True", "1", " true "}) EXPECT_TRUE(TextToBool(yes)) << yes;
  for (const char* no : {"false", "0", "yes", "", "truee", "2"}) EXPECT_FALSE(TextToBool(no)) << no;
}

// Restores the C and C++ locales when it goes.
class LocaleGuard {
 public:
  LocaleGuard() : numeric_(std::setlocale(LC_NUMERIC, nullptr)), global_(std::locale()) {}
  ~LocaleGuard() {
    std::setlocale(LC_NUMERIC, numeric_.c_str());
    std::locale::global(global_);
  }
  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;

 private:
  std::string numeric_;
  std::locale global_;
};

TEST_F(Conversions, PointsWhateverTheLocale) {
  LocaleGuard guard;
  std::string chosen;
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "fr_FR.utf8", "nl_NL.UTF-8",
                           "es_ES.UTF-8", "ru_RU.UTF-8"}) {
    if (std::setlocale(LC_NUMERIC, name)) {
      chosen = name;
      break;
    }
  }
  char probe[16];
  std::snprintf(probe, sizeof probe, "%.1f", 1.5);
  if (chosen.empty() || std::string(probe) != "1,5") GTEST_SKIP() << "no locale with a decimal comma is installed";
  try {
    std::locale::global(std::locale(chosen));
  } catch (const std::runtime_error&) {
    // the C locale alone is enough for the check
  }

  SetVersion("2.0");
  EXPECT_EQ(AmountToText(1234.5), "1234.50");
  EXPECT_EQ(AmountToText(C("1234.5")), "1234.50");
  EXPECT_EQ(PriceToText(12.5), "0000012.50000");
  EXPECT_EQ(QuantityToText(1.5), "1.500000");
  EXPECT_EQ(FourDecimalToText(3.14159), "0000003.1416");
  EXPECT_EQ(DisplayAmountToText(1234567.891), "1,234,567.89");
  EXPECT_EQ(NumberToText(12.5), "12.5");
  EXPECT_EQ(TextToAmount("12.5"), C("12.5"));
  EXPECT_EQ(TextToSingle("12.5"), 12.5f);
  EXPECT_EQ(TextToRate("0.25"), 0.25f);
  EXPECT_EQ(TextToLong("12.5"), 12);
  EXPECT_EQ(DateTimeToText(Date::FromParts(2012, 5, 1, 13, 45, 30)), "2012-05-01T13:45:30");
}

}  // namespace
}  // namespace brenvale
