#pragma once
// One of an employee's earnings, as QuickBooks reports them: a payroll wage item and its rate (an
// amount, or a percentage).
#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class empEarningsType : public RecordCore {
 public:
  empEarningsType() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  zkListObjectRef PayrollItemWageRef() const;
  // The rate, or the percentage when RateIsPercent.
  double Rate() const;
  bool RateIsPercent() const;
};

}  // namespace brenvale
