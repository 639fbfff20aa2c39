#pragma once
// A sales tax group: several sales tax items charged together, each once.
#include "brenvale/lists/itemGroupLines.hpp"
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemSalesTaxGroup : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeSalesTaxGroup;
  ItemSalesTaxGroup();
  static const RecordDecl& Declaration();
  using zkItem::ItemDesc;
  // The member sales tax items (each of quantity 1: 1103 otherwise).
  itemGroupLines GroupLines();
};

}  // namespace brenvale
