#pragma once
// A discount item: an amount or a percentage taken off, posted to its account. Its messages carry
// the label "ItemDiscount".
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemDiscount : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeDiscount;
  ItemDiscount();
  static const RecordDecl& Declaration();
  using zkItem::ItemDesc;
  using zkItem::SalesTaxCodeRef;
  using zkItem::DiscountRate;
  using zkItem::DiscountRatePercent;
  using zkItem::AccountRef;
  using zkItem::TaxCodeRef;
};

}  // namespace brenvale
