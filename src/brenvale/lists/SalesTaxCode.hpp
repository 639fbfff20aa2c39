#pragma once
// A sales tax code: whether what it marks is taxable ("Tax", "Non"); its name is at most three
// characters.
#include <string>
#include <string_view>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class SalesTaxCode : public ListRecord {
 public:
  SalesTaxCode();
  static const RecordDecl& Declaration();

  bool IsTaxable() const;
  void IsTaxable(bool value);
  std::string Desc() const;
  void Desc(std::string_view value);
};

}  // namespace brenvale
