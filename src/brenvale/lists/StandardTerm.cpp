#include "brenvale/lists/StandardTerm.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef StdDueDays = field::Int("StdDueDays").FixedAfterAdd();
  static constexpr FieldDef StdDiscountDays = field::Int("StdDiscountDays").FixedAfterAdd();
  static constexpr FieldDef DiscountPct = field::Price("DiscountPct").FixedAfterAdd();
};
constexpr auto kFields = ListFields(F::StdDueDays, F::StdDiscountDays, F::DiscountPct);
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, F::StdDueDays, F::StdDiscountDays, F::DiscountPct);
constexpr auto kRead = ListRead(kFields, F::StdDueDays, F::StdDiscountDays, F::DiscountPct);
constexpr ListFacts kFacts{.listType = zqListTypeTerms, .collectionLabel = "Terms"};
constexpr RecordDecl kDecl{.label = "StandardTerms",
                           .xmlName = "StandardTerms",
                           .objectType = zqObjectTypeStandardTerms,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .read = kRead,
                           .rules = detail::kNameRules,
                           .modRefusal = "XMLModify not supported",
                           .list = &kFacts};
}  // namespace

const RecordDecl& StandardTerm::Declaration() { return kDecl; }

Integer StandardTerm::StdDueDays() const { return static_cast<Integer>(Int(kFields.Id(F::StdDueDays))); }
void StandardTerm::StdDueDays(Integer value) { SetInt(kFields.Id(F::StdDueDays), value); }
Integer StandardTerm::StdDiscountDays() const { return static_cast<Integer>(Int(kFields.Id(F::StdDiscountDays))); }
void StandardTerm::StdDiscountDays(Integer value) { SetInt(kFields.Id(F::StdDiscountDays), value); }
Currency StandardTerm::DiscountPct() const { return Currency::FromDouble(Number(kFields.Id(F::DiscountPct))); }
void StandardTerm::DiscountPct(Currency value) { SetNumber(kFields.Id(F::DiscountPct), value.ToDouble()); }

Date StandardTerm::CalculateDueDate(Date PostDate) const {
  return PostDate.IsNull() ? Date() : PostDate.AddDays(StdDueDays());
}

Date StandardTerm::CalculateDiscountDate(Date PostDate) const {
  return PostDate.IsNull() || StdDiscountDays() == 0 ? Date() : PostDate.AddDays(StdDiscountDays());
}

}  // namespace brenvale
