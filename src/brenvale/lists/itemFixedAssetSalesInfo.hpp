#pragma once
// What a fixed asset was sold for: "FixedAssetSalesInfo" in an add, "FixedAssetSalesInfoMod" in a
// modify.
#include <string>
#include <string_view>

#include "brenvale/core/Date.hpp"
#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class itemFixedAssetSalesInfo : public RecordCore {
 public:
  itemFixedAssetSalesInfo() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string SalesDesc() const;
  void SalesDesc(std::string_view value);
  Date SalesDate() const;
  void SalesDate(Date value);
  double SalesPrice() const;
  void SalesPrice(double value);
  double SalesExpense() const;
  void SalesExpense(double value);
};

}  // namespace brenvale
