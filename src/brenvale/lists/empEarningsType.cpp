#include "brenvale/lists/empEarningsType.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef PayrollItemWageRef = field::Ref("PayrollItemWageRef", zqListTypePayrollItemWage);
  static constexpr FieldDef Rate = field::Price("Rate").Choice(1);
  static constexpr FieldDef RatePercent = field::Price("RatePercent").Choice(1);
};
constexpr auto kFields = Fields(F::PayrollItemWageRef, F::Rate, F::RatePercent);
constexpr auto kRead = kFields.Order(F::PayrollItemWageRef, F::Rate, F::RatePercent);
// Reported only: no Add or Mod element.
constexpr RecordDecl kDecl{.label = "empEarningsType",
                           .fields = kFields.fields,
                           .read = kRead,
                           .make = [](const RecordDecl&) -> RecordCore* { return new empEarningsType(); }};
}  // namespace

const RecordDecl& empEarningsType::Declaration() { return kDecl; }

zkListObjectRef empEarningsType::PayrollItemWageRef() const { return Ref(kFields.Id(F::PayrollItemWageRef)); }
bool empEarningsType::RateIsPercent() const { return Has(kFields.Id(F::RatePercent)); }
double empEarningsType::Rate() const {
  return Number(RateIsPercent() ? kFields.Id(F::RatePercent) : kFields.Id(F::Rate));
}

}  // namespace brenvale
