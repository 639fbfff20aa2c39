#pragma once
// A non-inventory part: goods sold or bought without being counted, priced in one of the two blocks.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemNonInventory : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeNonInventory;
  ItemNonInventory();
  static const RecordDecl& Declaration();
  using zkItem::ManufacturerPartNumber;
  using zkItem::UnitOfMeasureSetRef;
  using zkItem::SalesTaxCodeRef;
  using zkItem::SalesOrPurchase;
  using zkItem::SalesAndPurchase;
  using zkItem::RemoveBlock;
};

}  // namespace brenvale
