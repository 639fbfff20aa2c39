#include "brenvale/lists/PayrollItemWage.hpp"

#include "brenvale/core/Enumerations.hpp"
#include "brenvale/lists/detail/ListLookup.hpp"

namespace brenvale {
namespace {
enum : FieldId { kWageType = kFirstCustomField, kExpenseAccountRef };
}  // namespace

const RecordSchema& PayrollItemWage::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s;
    s.label = "PayrollItemWage";
    s.xmlName = "PayrollItemWage";
    s.objectType = zqObjectTypePayrollItemWage;
    s.listType = zqListTypePayrollItemWage;
    s.fields = {{kWageType, "WageType", FieldKind::Enum, {}, false, zqeWageType},
                {kExpenseAccountRef,
                 "ExpenseAccountRef",
                 FieldKind::Ref,
                 {},
                 false,
                 zqeObjectState,
                 zqListTypeAccount}};
    s.add = {"Name", "IsActive", "WageType", "ExpenseAccountRef"};
    s.read = {"WageType", "ExpenseAccountRef"};
    s.rules = {{RuleKind::Custom, "", 1, 0, ""}};
    s.modRefusal = "XMLModify not allowed";
    return s;
  }());
  return schema;
}

PayrollItemWage::PayrollItemWage() : ListRecord(StaticSchema()) {}

qbEnumWageType PayrollItemWage::WageType() const { return static_cast<qbEnumWageType>(Int(kWageType)); }
void PayrollItemWage::WageType(qbEnumWageType value) {
  EnumCatalogue(zqeWageType).ItemByCode(static_cast<Integer>(value));
  SetInt(kWageType, value);
}
const zkListObjectRef& PayrollItemWage::ExpenseAccountRef() const { return Ref(kExpenseAccountRef); }
void PayrollItemWage::ExpenseAccountRef(std::string fullName) {
  SetRefName(kExpenseAccountRef, std::move(fullName));
}

void PayrollItemWage::CheckRule(int, zkErrors& errors) {
  const zkListObjectRef& account = ExpenseAccountRef();
  bool missing =
      account.IsEmpty() || (detail::CanLookUp() && detail::LookUpRecord("AccountQueryRq", account).empty());
  if (missing) errors.AddCode(2019, "ExpenseAccount");
}

}  // namespace brenvale
