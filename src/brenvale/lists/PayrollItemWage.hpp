#pragma once
// A payroll wage item: a kind of wage (salary, hourly ...) and the expense account it is booked to.
#include <string_view>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class PayrollItemWage : public ListRecord {
 public:
  PayrollItemWage() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  // 0 while unset.
  qbEnumWageType WageType() const;
  // An unknown code raises 1007.
  void WageType(qbEnumWageType value);
  zkListObjectRef ExpenseAccountRef() const;
  // Sets the expense account by its full name.
  void ExpenseAccountRef(std::string_view fullName);
};

}  // namespace brenvale
