#pragma once
// A payroll item that is not a wage (an addition, deduction, company contribution, tax ...).
// QuickBooks only reports these; the library cannot add or modify them. Its errors carry the
// label "PayrollItemWage".
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class PayrollItemNonWage : public ListRecord {
 public:
  PayrollItemNonWage() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  // 0 while unset.
  qbEnumPayrollItemNonWageType NonWageType() const;
  zkListObjectRef ExpenseAccountRef() const;
  zkListObjectRef LiabilityAccountRef() const;
};

}  // namespace brenvale
