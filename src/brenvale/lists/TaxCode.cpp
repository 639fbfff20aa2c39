#include "brenvale/lists/TaxCode.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {
namespace {
enum : FieldId {
  kDesc = kFirstCustomField,
  kIsPiggybackRate,
  kTax1Rate,
  kTax2Rate,
  kIsTax1Exempt,
  kIsTax2Exempt
};
}  // namespace

const RecordSchema& TaxCode::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s = detail::FlatSimpleList("TaxCode", "TaxCode", zqObjectTypeTaxCode, zqListTypeTaxCode,
                                          "XMLModify not supported");
    s.fields = {{kDesc, "Desc", FieldKind::Text},
                {kIsPiggybackRate, "IsPiggybackRate", FieldKind::Bool},
                {kTax1Rate, "Tax1Rate", FieldKind::Price},
                {kTax2Rate, "Tax2Rate", FieldKind::Price},
                {kIsTax1Exempt, "IsTax1Exempt", FieldKind::Bool},
                {kIsTax2Exempt, "IsTax2Exempt", FieldKind::Bool}};
    s.add = {"Name", "IsActive", "Desc"};
    s.read = {"Desc", "IsPiggybackRate", "Tax1Rate", "Tax2Rate", "IsTax1Exempt", "IsTax2Exempt"};
    s.rules = detail::TaxCodeRules();
    return s;
  }());
  return schema;
}

TaxCode::TaxCode() : ListRecord(StaticSchema()) {}

const std::string& TaxCode::Desc() const { return Text(kDesc); }
void TaxCode::Desc(std::string value) { SetText(kDesc, std::move(value)); }
bool TaxCode::IsPiggybackRate() const { return Bool(kIsPiggybackRate); }
double TaxCode::Tax1Rate() const { return Number(kTax1Rate); }
double TaxCode::Tax2Rate() const { return Number(kTax2Rate); }
bool TaxCode::IsTax1Exempt() const { return Bool(kIsTax1Exempt); }
bool TaxCode::IsTax2Exempt() const { return Bool(kIsTax2Exempt); }

}  // namespace brenvale
