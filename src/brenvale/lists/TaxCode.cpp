#include "brenvale/lists/TaxCode.hpp"

#include "brenvale/lists/detail/TaxCodeRules.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef Desc = field::Text("Desc");
  static constexpr FieldDef IsPiggybackRate = field::Bool("IsPiggybackRate");
  static constexpr FieldDef Tax1Rate = field::Price("Tax1Rate");
  static constexpr FieldDef Tax2Rate = field::Price("Tax2Rate");
  static constexpr FieldDef IsTax1Exempt = field::Bool("IsTax1Exempt");
  static constexpr FieldDef IsTax2Exempt = field::Bool("IsTax2Exempt");
};
constexpr auto kFields =
    ListFields(F::Desc, F::IsPiggybackRate, F::Tax1Rate, F::Tax2Rate, F::IsTax1Exempt, F::IsTax2Exempt);
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, F::Desc);
constexpr auto kRead =
    ListRead(kFields, F::Desc, F::IsPiggybackRate, F::Tax1Rate, F::Tax2Rate, F::IsTax1Exempt, F::IsTax2Exempt);
constexpr auto kRules = detail::TaxCodeRules(kFields, F::Desc);
// Not in the list kinds "ListDelType" names.
constexpr ListFacts kFacts{.listType = zqListTypeTaxCode, .deletable = false, .outsideUS = true};
constexpr RecordDecl kDecl{.label = "TaxCode",
                           .xmlName = "TaxCode",
                           .objectType = zqObjectTypeTaxCode,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .read = kRead,
                           .rules = kRules,
                           .modRefusal = "XMLModify not supported",
                           .list = &kFacts};
}  // namespace

const RecordDecl& TaxCode::Declaration() { return kDecl; }

std::string TaxCode::Desc() const { return Text(kFields.Id(F::Desc)); }
void TaxCode::Desc(std::string_view value) { SetText(kFields.Id(F::Desc), value); }
bool TaxCode::IsPiggybackRate() const { return Bool(kFields.Id(F::IsPiggybackRate)); }
double TaxCode::Tax1Rate() const { return Number(kFields.Id(F::Tax1Rate)); }
double TaxCode::Tax2Rate() const { return Number(kFields.Id(F::Tax2Rate)); }
bool TaxCode::IsTax1Exempt() const { return Bool(kFields.Id(F::IsTax1Exempt)); }
bool TaxCode::IsTax2Exempt() const { return Bool(kFields.Id(F::IsTax2Exempt)); }

}  // namespace brenvale
