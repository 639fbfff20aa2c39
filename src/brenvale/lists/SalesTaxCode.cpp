#include "brenvale/lists/SalesTaxCode.hpp"

#include "brenvale/lists/detail/TaxCodeRules.hpp"

namespace brenvale {
namespace {
struct F {
  // QuickBooks requires it in an add: a new code is not taxable until said so.
  static constexpr FieldDef IsTaxable = field::Bool("IsTaxable").Default(false);
  static constexpr FieldDef Desc = field::Text("Desc");
};
constexpr auto kFields = ListFields(F::IsTaxable, F::Desc);
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, F::IsTaxable, F::Desc);
constexpr auto kRead = ListRead(kFields, F::IsTaxable, F::Desc);
constexpr auto kRules = detail::TaxCodeRules(kFields, F::Desc);
constexpr ListFacts kFacts{.listType = zqListTypeSalesTaxCode};
constexpr RecordDecl kDecl{.label = "SalesTaxCode",
                           .xmlName = "SalesTaxCode",
                           .objectType = zqObjectTypeSalesTaxCode,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .read = kRead,
                           .rules = kRules,
                           .modRefusal = "XMLModify not supported",
                           .list = &kFacts};
}  // namespace

const RecordDecl& SalesTaxCode::Declaration() { return kDecl; }

SalesTaxCode::SalesTaxCode() : ListRecord(kDecl) {}

bool SalesTaxCode::IsTaxable() const { return Bool(kFields.Id(F::IsTaxable)); }
void SalesTaxCode::IsTaxable(bool value) { SetBool(kFields.Id(F::IsTaxable), value); }
std::string SalesTaxCode::Desc() const { return Text(kFields.Id(F::Desc)); }
void SalesTaxCode::Desc(std::string_view value) { SetText(kFields.Id(F::Desc), value); }

}  // namespace brenvale
