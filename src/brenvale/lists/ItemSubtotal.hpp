#pragma once
// A subtotal item: the sum of the lines above it on a sale.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemSubtotal : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeSubtotal;
  ItemSubtotal();
  static const RecordDecl& Declaration();
  using zkItem::ItemDesc;
};

}  // namespace brenvale
