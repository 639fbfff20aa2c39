#include "brenvale/lists/PayrollItemWage.hpp"

namespace brenvale {
namespace {
struct F {
  // The catalogue's texts are the ones QuickBooks takes ("SalaryRegular", "HourlyRegular" ...), and
  // are what the library writes. Reading also takes them with blanks ("Salary Regular"), as older
  // documents spell them. "Salary" and "Hourly" are written as such, although the qbXML 13.0 of US
  // editions has neither (its wage types are the Regular, Sick, Vacation and Overtime kinds, Bonus
  // and Commission): QuickBooks 13.0 refuses a wage item of those two types.
  static constexpr FieldDef WageType = field::Enum("WageType", zqeWageType);
  static constexpr FieldDef ExpenseAccountRef = field::Ref("ExpenseAccountRef", zqListTypeAccount);
};
constexpr auto kFields = ListFields(F::WageType, F::ExpenseAccountRef);
constexpr auto kAdd = kFields.Order(ListBase::Name, ListBase::IsActive, F::WageType, F::ExpenseAccountRef);
constexpr auto kRead = ListRead(kFields, F::WageType, F::ExpenseAccountRef);
// The expense account must exist: an empty one never does; a named one is looked up when connected.
constexpr Rule kRules[] = {kFields.Exists(F::ExpenseAccountRef, 2019, "ExpenseAccount").EmptyFails()};
constexpr ListFacts kFacts{.listType = zqListTypePayrollItemWage};
constexpr RecordDecl kDecl{.label = "PayrollItemWage",
                           .xmlName = "PayrollItemWage",
                           .objectType = zqObjectTypePayrollItemWage,
                           .fields = kFields.fields,
                           .add = kAdd,
                           .read = kRead,
                           .rules = kRules,
                           .modRefusal = "XMLModify not allowed",
                           .list = &kFacts};
}  // namespace

const RecordDecl& PayrollItemWage::Declaration() { return kDecl; }

qbEnumWageType PayrollItemWage::WageType() const { return static_cast<qbEnumWageType>(EnumCode(kFields.Id(F::WageType))); }
void PayrollItemWage::WageType(qbEnumWageType value) {
  SetEnum(kFields.Id(F::WageType), NarrowEnumCode(value));
}
zkListObjectRef PayrollItemWage::ExpenseAccountRef() const { return Ref(kFields.Id(F::ExpenseAccountRef)); }
void PayrollItemWage::ExpenseAccountRef(std::string_view fullName) {
  SetRefName(kFields.Id(F::ExpenseAccountRef), fullName);
}

}  // namespace brenvale
