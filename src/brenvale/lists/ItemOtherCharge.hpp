#pragma once
// An other-charge item (freight, handling, a service charge), priced in one of the two blocks. Its
// sales tax code is given when it is added.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemOtherCharge : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeOtherCharge;
  ItemOtherCharge();
  static const RecordDecl& Declaration();
  using zkItem::SalesTaxCodeRef;
  using zkItem::SalesOrPurchase;
  using zkItem::SalesAndPurchase;
  using zkItem::RemoveBlock;

 protected:
  // The sales tax code cannot change once the item exists (1002).
  void BeforeSet(FieldId id) override;
};

}  // namespace brenvale
