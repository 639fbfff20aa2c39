#pragma once
// QuickBooks' text forms of a moment: "2024-01-15T10:30:00-05:00" (local time with its offset) and
// "2024-01-15", and back.
#include <cstdint>
#include <string>
#include <string_view>

namespace brenvale::rqp::detail {

std::string DateTimeText(std::int64_t t);
std::string DateText(std::int64_t t);
// Seconds since 1970 of a date or date-time text; a date alone is the start of that day, or its
// end when `endOfDay`. 0 for text that is neither.
std::int64_t ParseDateTime(std::string_view text, bool endOfDay);

}  // namespace brenvale::rqp::detail
