#pragma once
// An employee: names, address, ways of reaching them, type, gender, dates of hire, release and birth,
// and payroll settings. On a desktop QuickBooks makes an employee's name of the first, middle and
// last names; the name is written only to the online edition. The type, the gender, the social
// security number and the dates of hire and release are set when the employee is added.
#include <string>
#include <string_view>

#include "brenvale/lists/Entity.hpp"
#include "brenvale/lists/empPayrollInfo.hpp"
#include "brenvale/model/Address.hpp"

namespace brenvale {

class Employee : public Entity {
 public:
  Employee() : Entity(Declaration()) {}
  static const RecordDecl& Declaration();

  using Entity::Mobile;
  using Entity::Notes;
  using Entity::Pager;
  using Entity::PrintAs;
  using Entity::Suffix;

  // Two lines, city, state and postal code.
  Address& EmployeeAddress();
  std::string PagerPIN() const;
  void PagerPIN(std::string_view value);
  // The social security number; the national insurance number ("NiNumber") of British versions.
  std::string SSN() const;
  void SSN(std::string_view value);
  qbEnumEmployeeType EmployeeType() const;
  void EmployeeType(qbEnumEmployeeType value);
  qbEnumGenderType Gender() const;
  void Gender(qbEnumGenderType value);
  Date HiredDate() const;
  void HiredDate(Date value);
  Date ReleasedDate() const;
  void ReleasedDate(Date value);
  Date BirthDate() const;
  void BirthDate(Date value);
  empPayrollInfo& EmployeePayrollInfo();

 protected:
  const EntityFieldIds& Ids() const override;

 private:
  // A name is required, unless QuickBooks is to make it of a first or last name (1012).
  void CheckName(zkErrors& errors, ValidateContext& context);
  friend struct EmployeeDecl;
};

}  // namespace brenvale
