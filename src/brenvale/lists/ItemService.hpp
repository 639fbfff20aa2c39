#pragma once
// A service item: work a company sells (or buys), priced in one of the two blocks.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemService : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeService;
  ItemService();
  static const RecordDecl& Declaration();
  using zkItem::UnitOfMeasureSetRef;
  using zkItem::SalesTaxCodeRef;
  using zkItem::SalesOrPurchase;
  using zkItem::SalesAndPurchase;
  using zkItem::RemoveBlock;
};

}  // namespace brenvale
