#pragma once
// A payroll item that is not a wage (an addition, deduction, company contribution, tax ...).
// QuickBooks only reports these; the library cannot add or modify them. Its errors carry the
// label "PayrollItemWage".
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class PayrollItemNonWage : public ListRecord {
 public:
  PayrollItemNonWage();
  static const RecordSchema& StaticSchema();

  // 0 while unset.
  qbEnumPayrollItemNonWageType NonWageType() const;
  const zkListObjectRef& ExpenseAccountRef() const;
  const zkListObjectRef& LiabilityAccountRef() const;
};

}  // namespace brenvale
