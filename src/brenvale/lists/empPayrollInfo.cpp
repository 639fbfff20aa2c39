#include "brenvale/lists/empPayrollInfo.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/model/EditionGates.hpp"

namespace brenvale {
namespace {
// qbXML 3.0 replaced the flag "IsUsingTimeDataToCreatePaychecks" by the three-way
// "UseTimeDataToCreatePaychecks": a session writes the one its version has.
struct F {
  static constexpr FieldDef PayPeriod = field::Enum("PayPeriod", zqePayrollPayFrequency);
  static constexpr FieldDef ClassRef = field::Ref("ClassRef", zqListTypeClass);
  static constexpr FieldDef Earnings = field::Children("Earnings", &empEarningsType::Declaration);
  static constexpr FieldDef IsUsingTimeData =
      field::Bool("IsUsingTimeDataToCreatePaychecks").When(&gate::Before<3, 0>);
  static constexpr FieldDef UseTimeData = field::Text("UseTimeDataToCreatePaychecks").Since(3, 0);
  static constexpr FieldDef SickHours = field::Aggregate("SickHours", &empAccruedTime::Declaration);
  static constexpr FieldDef VacationHours = field::Aggregate("VacationHours", &empAccruedTime::Declaration);
};
constexpr auto kFields = Fields(F::PayPeriod, F::ClassRef, F::Earnings, F::IsUsingTimeData, F::UseTimeData,
                                F::SickHours, F::VacationHours);
constexpr auto kBody =
    kFields.Order(F::PayPeriod, F::UseTimeData, F::IsUsingTimeData, F::SickHours, F::VacationHours);
constexpr auto kRead = kFields.Order(F::PayPeriod, F::ClassRef, F::Earnings, F::IsUsingTimeData, F::UseTimeData,
                                     F::SickHours, F::VacationHours);
constexpr RecordDecl kDecl{.label = "empPayrollInfo",
                           .fields = kFields.fields,
                           .add = kBody,
                           .mod = kBody,
                           .read = kRead,
                           .make = [](const RecordDecl&) -> RecordCore* { return new empPayrollInfo(); }};

constexpr std::string_view kUse = "UseTimeData";
constexpr std::string_view kDoNotUse = "DoNotUseTimeData";
constexpr std::string_view kNotSet = "NotSet";
}  // namespace

const RecordDecl& empPayrollInfo::Declaration() { return kDecl; }

qbEnumPayrollPayFrequency empPayrollInfo::PayPeriod() const {
  return static_cast<qbEnumPayrollPayFrequency>(EnumCode(kFields.Id(F::PayPeriod)));
}
void empPayrollInfo::PayPeriod(qbEnumPayrollPayFrequency value) {
  SetEnum(kFields.Id(F::PayPeriod), static_cast<Integer>(value));
}
zkListObjectRef empPayrollInfo::ClassRef() const { return Ref(kFields.Id(F::ClassRef)); }
ChildList<empEarningsType> empPayrollInfo::Earnings() {
  return ChildList<empEarningsType>(ChildrenOf(kFields.Id(F::Earnings)));
}

std::string empPayrollInfo::UseTimeDataToCreatePaychecks() const {
  if (Has(kFields.Id(F::UseTimeData))) return Text(kFields.Id(F::UseTimeData));
  if (Has(kFields.Id(F::IsUsingTimeData))) return std::string(Bool(kFields.Id(F::IsUsingTimeData)) ? kUse : kDoNotUse);
  return {};
}

void empPayrollInfo::UseTimeDataToCreatePaychecks(std::string_view value) {
  if (value != kUse && value != kDoNotUse && value != kNotSet) Raise(1008, Label());
  SetText(kFields.Id(F::UseTimeData), value);
  if (value == kNotSet)
    Unset(kFields.Id(F::IsUsingTimeData));
  else
    SetBool(kFields.Id(F::IsUsingTimeData), value == kUse);
}

bool empPayrollInfo::IsUsingTimeDataToCreatePaychecks() const { return UseTimeDataToCreatePaychecks() == kUse; }
void empPayrollInfo::IsUsingTimeDataToCreatePaychecks(bool value) {
  UseTimeDataToCreatePaychecks(value ? kUse : kDoNotUse);
}

empAccruedTime& empPayrollInfo::SickHours() { return static_cast<empAccruedTime&>(Nested(kFields.Id(F::SickHours))); }
empAccruedTime& empPayrollInfo::VacationHours() {
  return static_cast<empAccruedTime&>(Nested(kFields.Id(F::VacationHours)));
}

}  // namespace brenvale
