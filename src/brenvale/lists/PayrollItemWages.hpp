#pragma once
#include <string_view>

#include "brenvale/lists/PayrollItemWage.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class PayrollItemWages : public ListCollection<PayrollItemWage> {
 public:
  using ListCollection::ListCollection;

  // A WageType of 0 leaves the wage type unset.
  PayrollItemWage& Add(std::string_view Name = {}, bool IsActive = true, qbEnumWageType WageType = qbEnumWageType{},
                       std::string_view ExpenseAccountFullName = {}) {
    auto record = std::make_shared<PayrollItemWage>();
    record->Name(Name);
    record->IsActive(IsActive);
    if (WageType != qbEnumWageType{}) record->WageType(WageType);
    if (!ExpenseAccountFullName.empty()) record->ExpenseAccountRef(ExpenseAccountFullName);
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
