#pragma once
// A sales tax code: whether what it marks is taxable ("Tax", "Non"); its name is at most three
// characters.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class SalesTaxCode : public ListRecord {
 public:
  SalesTaxCode();
  static const RecordSchema& StaticSchema();

  bool IsTaxable() const;
  void IsTaxable(bool value);
  const std::string& Desc() const;
  void Desc(std::string value);
};

}  // namespace brenvale
