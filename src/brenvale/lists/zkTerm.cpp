#include "brenvale/lists/zkTerm.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
// Standard and date-driven terms share one list: "TermsQueryRq" answers both, a name is unique
// across them.
constexpr ListFacts kFacts{.listType = zqListTypeTerms};
constexpr RecordDecl kDecl{.label = "Terms",
                           .xmlName = "Terms",
                           .objectType = zqObjectTypeTerms,
                           .fields = detail::kBaseOnly.fields,
                           .read = detail::kBaseOnlyRead,
                           .list = &kFacts};
}  // namespace

const RecordDecl& zkTerm::Declaration() { return kDecl; }

Date zkTerm::DayOfMonthFrom(Date post, int day, int nextMonthDays) {
  if (post.IsNull()) return Date();
  const Date from = post.DateOnly();
  int month = from.Month();
  Date candidate = Date::Serial(from.Year(), month, day);
  // The second test can move a date late in a month on by two months.
  for (int test = 0; test < 2 && candidate.Value() - from.Value() < nextMonthDays; ++test)
    candidate = Date::Serial(from.Year(), ++month, day);
  return candidate;
}

}  // namespace brenvale
