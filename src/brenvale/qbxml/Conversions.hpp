#pragma once
// Conversions between qbXML text and the library's typed values. Numbers always use the point as
// decimal separator, whatever the locale.
#include <optional>
#include <string>
#include <string_view>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/Types.hpp"

namespace brenvale {

Date TextToDate(std::string_view text);
std::string DateToText(Date d);
std::string DateTimeToText(Date d);
// As DateTimeToText, for a given qbXML version number rather than the session's.
std::string DateTimeToText(Date d, Currency versionNumber);
Currency TextToAmount(std::string_view text);
Single TextToSingle(std::string_view text);
Single TextToRate(std::string_view text);
std::string AmountToText(Currency amount);
std::string AmountToText(double amount);
std::string PriceToText(double value);
std::string QuantityToText(double value);
// A quantity as a request carries it: at most five decimals ("2.00000"). QuickBooks' QUANTYPE takes
// no more than five, so the six of QuantityToText would have the whole document refused.
std::string QuantityToRequestText(double value);
std::string FourDecimalToText(double value);
std::string DisplayAmountToText(double value);

// Booleans as qbXML writes them ("true"/"false") and reads them (any case; "1" is true too).
std::string BoolToText(bool value);
bool TextToBool(std::string_view text);
Long TextToLong(std::string_view text);
Integer TextToInteger(std::string_view text);
// A price, rate, percentage or quantity read as written: every decimal is kept (12.34567 stays
// 12.34567), one trailing "%" is removed, empty text gives 0; text that is not a number gives nothing.
std::optional<double> TextToNumber(std::string_view text);
// Shortest decimal text of a number (point separator): 12.5 -> "12.5", 3 -> "3".
std::string NumberToText(double value);

}  // namespace brenvale
