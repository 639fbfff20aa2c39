#include "brenvale/lists/DateDrivenTerm.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef DayOfMonthDue = field::Int("DayOfMonthDue").FixedAfterAdd();
  static constexpr FieldDef DueNextMonthDays = field::Int("DueNextMonthDays").FixedAfterAdd();
  static constexpr FieldDef DiscountDayOfMonth = field::Int("DiscountDayOfMonth").FixedAfterAdd();
  static constexpr FieldDef DiscountPct = field::Price("DiscountPct").FixedAfterAdd();
};
constexpr auto kFields = ListFields(F::DayOfMonthDue, F::DueNextMonthDays, F::DiscountDayOfMonth, F::DiscountPct);
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, F::DayOfMonthDue, F::DueNextMonthDays,
                                    F::DiscountDayOfMonth, F::DiscountPct);
constexpr auto kRead = ListRead(kFields, F::DayOfMonthDue, F::DueNextMonthDays, F::DiscountDayOfMonth, F::DiscountPct);
constexpr ListFacts kFacts{.listType = zqListTypeTerms, .collectionLabel = "Terms"};
constexpr FieldId kDue = kFields.Id(F::DayOfMonthDue);
constexpr FieldId kDiscountDay = kFields.Id(F::DiscountDayOfMonth);
}  // namespace

struct DateDrivenTermDecl {
  static constexpr Rule kRules[] = {detail::kNameRules[0], detail::kNameRules[1],
                                    rule::Own<&DateDrivenTerm::CheckDays>()};
  static constexpr RecordDecl kDecl{.label = "DateDrivenTerms",
                                    .xmlName = "DateDrivenTerms",
                                    .objectType = zqObjectTypeDateDrivenTerms,
                                    .fields = kFields.fields,
                                    .add = kAdd,
                                    .read = kRead,
                                    .rules = kRules,
                                    .modRefusal = "XMLModify not supported",
                                    .list = &kFacts};
};

const RecordDecl& DateDrivenTerm::Declaration() { return DateDrivenTermDecl::kDecl; }

Integer DateDrivenTerm::DayOfMonthDue() const { return static_cast<Integer>(Int(kDue)); }
void DateDrivenTerm::DayOfMonthDue(Integer value) { SetInt(kDue, value); }
Integer DateDrivenTerm::DueNextMonthDays() const { return static_cast<Integer>(Int(kFields.Id(F::DueNextMonthDays))); }
void DateDrivenTerm::DueNextMonthDays(Integer value) { SetInt(kFields.Id(F::DueNextMonthDays), value); }
Integer DateDrivenTerm::DiscountDayOfMonth() const { return static_cast<Integer>(Int(kDiscountDay)); }
void DateDrivenTerm::DiscountDayOfMonth(Integer value) { SetInt(kDiscountDay, value); }
Currency DateDrivenTerm::DiscountPct() const { return Currency::FromDouble(Number(kFields.Id(F::DiscountPct))); }
void DateDrivenTerm::DiscountPct(Currency value) { SetNumber(kFields.Id(F::DiscountPct), value.ToDouble()); }

Date DateDrivenTerm::CalculateDueDate(Date PostDate) const {
  return DayOfMonthFrom(PostDate, DayOfMonthDue(), DueNextMonthDays());
}

Date DateDrivenTerm::CalculateDiscountDate(Date PostDate) const {
  return DiscountDayOfMonth() == 0 ? Date() : DayOfMonthFrom(PostDate, DiscountDayOfMonth(), DueNextMonthDays());
}

void DateDrivenTerm::CheckDays(zkErrors& errors, ValidateContext&) {
  // QuickBooks takes a day of the month from 1 to 31 and requires the due day: a request without
  // one is refused whole, with the other records of its message.
  for (const auto& [id, label] : {std::pair{kDue, "DayOfMonthDue"}, std::pair{kDiscountDay, "DiscountDayOfMonth"}}) {
    if (id == kDiscountDay && !Has(id)) continue;
    if (const std::int64_t day = Int(id); !Has(id) || day < 1 || day > 31)
      errors.AddCode(1900, label, std::string(label) + " must be a day of the month from 1 to 31");
  }
}

}  // namespace brenvale
