#pragma once
// A payroll wage item: a kind of wage (salary, hourly ...) and the expense account it is booked to.
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class PayrollItemWage : public ListRecord {
 public:
  PayrollItemWage();
  static const RecordSchema& StaticSchema();

  // 0 while unset.
  qbEnumWageType WageType() const;
  // An unknown code raises 1007.
  void WageType(qbEnumWageType value);
  const zkListObjectRef& ExpenseAccountRef() const;
  // Sets the expense account by its full name.
  void ExpenseAccountRef(std::string fullName);

 protected:
  // The expense account must exist (2019): an empty one never does; a named one is looked up in
  // QuickBooks when connected.
  void CheckRule(int check, zkErrors& errors) override;
};

}  // namespace brenvale
