#pragma once
// An employee's payroll settings: the pay period, whether time data makes the paychecks, sick and
// vacation time, and (reported only) the class and the earnings. Written as "EmployeePayrollInfo" in
// an add and as "EmployeePayrollInfoMod" in a modify.
#include <string>
#include <string_view>

#include "brenvale/lists/empAccruedTime.hpp"
#include "brenvale/lists/empEarningsType.hpp"
#include "brenvale/model/ChildList.hpp"

namespace brenvale {

class empPayrollInfo : public RecordCore {
 public:
  empPayrollInfo() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  qbEnumPayrollPayFrequency PayPeriod() const;
  void PayPeriod(qbEnumPayrollPayFrequency value);
  zkListObjectRef ClassRef() const;
  ChildList<empEarningsType> Earnings();

  // Whether time data makes the employee's paychecks: "UseTimeData", "DoNotUseTimeData" or
  // "NotSet". Sessions from qbXML 3.0 on send this text; older ones a flag (true for
  // "UseTimeData"). Any other text raises 1008.
  std::string UseTimeDataToCreatePaychecks() const;
  void UseTimeDataToCreatePaychecks(std::string_view value);
  bool IsUsingTimeDataToCreatePaychecks() const;
  void IsUsingTimeDataToCreatePaychecks(bool value);

  empAccruedTime& SickHours();
  empAccruedTime& VacationHours();
};

}  // namespace brenvale
