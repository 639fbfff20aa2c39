#include "brenvale/lists/SalesTaxCode.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {
namespace {
enum : FieldId { kIsTaxable = kFirstCustomField, kDesc };
}  // namespace

const RecordSchema& SalesTaxCode::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s = detail::FlatSimpleList("SalesTaxCode", "SalesTaxCode", zqObjectTypeSalesTaxCode,
                                          zqListTypeSalesTaxCode, "XMLModify not supported");
    s.fields = {{kIsTaxable, "IsTaxable", FieldKind::Bool}, {kDesc, "Desc", FieldKind::Text}};
    s.add = {"Name", "IsActive", "IsTaxable", "Desc"};
    s.read = {"Desc", "IsTaxable"};
    s.rules = detail::TaxCodeRules();
    return s;
  }());
  return schema;
}

SalesTaxCode::SalesTaxCode() : ListRecord(StaticSchema()) {}

bool SalesTaxCode::IsTaxable() const { return Bool(kIsTaxable); }
void SalesTaxCode::IsTaxable(bool value) { SetBool(kIsTaxable, value); }
const std::string& SalesTaxCode::Desc() const { return Text(kDesc); }
void SalesTaxCode::Desc(std::string value) { SetText(kDesc, std::move(value)); }

}  // namespace brenvale
