#include "brenvale/lists/PayrollItemNonWage.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef NonWageType = field::Enum("NonWageType", zqePayrollItemNonWage);
  static constexpr FieldDef ExpenseAccountRef = field::Ref("ExpenseAccountRef", zqListTypeAccount);
  static constexpr FieldDef LiabilityAccountRef = field::Ref("LiabilityAccountRef", zqListTypeAccount);
};
constexpr auto kFields = ListFields(F::NonWageType, F::ExpenseAccountRef, F::LiabilityAccountRef);
constexpr auto kRead = ListRead(kFields, F::NonWageType, F::ExpenseAccountRef, F::LiabilityAccountRef);
constexpr ListFacts kFacts{.listType = zqListTypePayrollItemNonWage, .addable = false};
constexpr RecordDecl kDecl{.label = "PayrollItemWage",
                           .xmlName = "PayrollItemNonWage",
                           .objectType = zqObjectTypePayrollItemNonWage,
                           .fields = kFields.fields,
                           .read = kRead,
                           .modRefusal = "XMLModify not allowed",
                           .list = &kFacts};
}  // namespace

const RecordDecl& PayrollItemNonWage::Declaration() { return kDecl; }

qbEnumPayrollItemNonWageType PayrollItemNonWage::NonWageType() const {
  return static_cast<qbEnumPayrollItemNonWageType>(EnumCode(kFields.Id(F::NonWageType)));
}
zkListObjectRef PayrollItemNonWage::ExpenseAccountRef() const { return Ref(kFields.Id(F::ExpenseAccountRef)); }
zkListObjectRef PayrollItemNonWage::LiabilityAccountRef() const { return Ref(kFields.Id(F::LiabilityAccountRef)); }

}  // namespace brenvale
