#pragma once
// A group item: items sold together, each with its quantity.
#include "brenvale/lists/itemGroupLines.hpp"
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemGroup : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeGroup;
  ItemGroup();
  static const RecordDecl& Declaration();
  using zkItem::ItemDesc;
  using zkItem::IsPrintItemsInGroup;
  // The lines: an item and its quantity (none for a discount: 1105). A modify sends them all;
  // emptied, it takes them all out.
  itemGroupLines GroupLines();
};

}  // namespace brenvale
