#include "brenvale/lists/empAccruedTime.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef HoursAvailable = field::Text("HoursAvailable");
  static constexpr FieldDef AccrualPeriod = field::Enum("AccrualPeriod", zqePayrollAccrualPeriod);
  static constexpr FieldDef HoursAccrued = field::Text("HoursAccrued");
  static constexpr FieldDef MaximumHours = field::Text("MaximumHours");
  static constexpr FieldDef IsResettingHoursEachNewYear = field::Bool("IsResettingHoursEachNewYear");
  static constexpr FieldDef HoursUsed = field::Text("HoursUsed").Since(5, 0);
  static constexpr FieldDef AccrualStartDate = field::Date("AccrualStartDate").Since(5, 0);
};
constexpr auto kFields = Fields(F::HoursAvailable, F::AccrualPeriod, F::HoursAccrued, F::MaximumHours,
                                F::IsResettingHoursEachNewYear, F::HoursUsed, F::AccrualStartDate);
constexpr auto kBody = kFields.Order(F::HoursAvailable, F::AccrualPeriod, F::HoursAccrued, F::MaximumHours,
                                     F::IsResettingHoursEachNewYear, F::HoursUsed, F::AccrualStartDate);
constexpr RecordDecl kDecl{.label = "empAccruedTime",
                           .fields = kFields.fields,
                           .add = kBody,
                           .mod = kBody,
                           .read = kBody,
                           .make = [](const RecordDecl&) -> RecordCore* { return new empAccruedTime(); }};
}  // namespace

const RecordDecl& empAccruedTime::Declaration() { return kDecl; }

std::string empAccruedTime::HoursAvailable() const { return Text(kFields.Id(F::HoursAvailable)); }
void empAccruedTime::HoursAvailable(std::string_view value) { SetText(kFields.Id(F::HoursAvailable), value); }
qbEnumPayrollAccrualPeriod empAccruedTime::AccrualPeriod() const {
  return static_cast<qbEnumPayrollAccrualPeriod>(EnumCode(kFields.Id(F::AccrualPeriod)));
}
void empAccruedTime::AccrualPeriod(qbEnumPayrollAccrualPeriod value) {
  SetEnum(kFields.Id(F::AccrualPeriod), static_cast<Integer>(value));
}
std::string empAccruedTime::HoursAccrued() const { return Text(kFields.Id(F::HoursAccrued)); }
void empAccruedTime::HoursAccrued(std::string_view value) { SetText(kFields.Id(F::HoursAccrued), value); }
std::string empAccruedTime::MaximumHours() const { return Text(kFields.Id(F::MaximumHours)); }
void empAccruedTime::MaximumHours(std::string_view value) { SetText(kFields.Id(F::MaximumHours), value); }
bool empAccruedTime::IsResettingHoursEachNewYear() const { return Bool(kFields.Id(F::IsResettingHoursEachNewYear)); }
void empAccruedTime::IsResettingHoursEachNewYear(bool value) { SetBool(kFields.Id(F::IsResettingHoursEachNewYear), value); }
std::string empAccruedTime::HoursUsed() const { return Text(kFields.Id(F::HoursUsed)); }
void empAccruedTime::HoursUsed(std::string_view value) { SetText(kFields.Id(F::HoursUsed), value); }
Date empAccruedTime::AccrualStartDate() const { return DateValue(kFields.Id(F::AccrualStartDate)); }
void empAccruedTime::AccrualStartDate(Date value) { SetDate(kFields.Id(F::AccrualStartDate), value); }

}  // namespace brenvale
