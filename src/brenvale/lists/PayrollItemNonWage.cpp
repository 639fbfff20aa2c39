#include "brenvale/lists/PayrollItemNonWage.hpp"

namespace brenvale {
namespace {
enum : FieldId { kNonWageType = kFirstCustomField, kExpenseAccountRef, kLiabilityAccountRef };
}  // namespace

const RecordSchema& PayrollItemNonWage::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s;
    s.label = "PayrollItemWage";
    s.xmlName = "PayrollItemNonWage";
    s.objectType = zqObjectTypePayrollItemNonWage;
    s.listType = zqListTypePayrollItemNonWage;
    s.fields = {{kNonWageType, "NonWageType", FieldKind::Enum, {}, false, zqePayrollItemNonWage},
                {kExpenseAccountRef,
                 "ExpenseAccountRef",
                 FieldKind::Ref,
                 {},
                 false,
                 zqeObjectState,
                 zqListTypeAccount},
                {kLiabilityAccountRef,
                 "LiabilityAccountRef",
                 FieldKind::Ref,
                 {},
                 false,
                 zqeObjectState,
                 zqListTypeAccount}};
    s.read = {"NonWageType", "ExpenseAccountRef", "LiabilityAccountRef"};
    s.modRefusal = "XMLModify not allowed";
    return s;
  }());
  return schema;
}

PayrollItemNonWage::PayrollItemNonWage() : ListRecord(StaticSchema()) {}

qbEnumPayrollItemNonWageType PayrollItemNonWage::NonWageType() const {
  return static_cast<qbEnumPayrollItemNonWageType>(Int(kNonWageType));
}
const zkListObjectRef& PayrollItemNonWage::ExpenseAccountRef() const { return Ref(kExpenseAccountRef); }
const zkListObjectRef& PayrollItemNonWage::LiabilityAccountRef() const { return Ref(kLiabilityAccountRef); }

}  // namespace brenvale
