#pragma once
// The price block of an item either sold or bought (services, non-inventory parts, other charges):
// its description, its price or price percentage, and its account. Written as "SalesOrPurchase" in
// an add and as "SalesOrPurchaseMod", without the account, in a modify.
#include <string>
#include <string_view>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class itemSalesOrPurchase : public RecordCore {
 public:
  itemSalesOrPurchase() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string Desc() const;
  void Desc(std::string_view value);
  // The price, or the price as a percentage: setting one takes out the other.
  double Price() const;
  void Price(double value);
  double PricePercent() const;
  void PricePercent(double value);
  bool PriceIsPercent() const;
  // The account is given when the item is added (1002 once it exists).
  zkListObjectRef AccountRef() const;
  void AccountRef(std::string_view fullName);
};

}  // namespace brenvale
