#pragma once
// A sales tax item: a tax rate, and the agency the tax is paid to.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemSalesTax : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeSalesTax;
  ItemSalesTax();
  static const RecordDecl& Declaration();
  using zkItem::ItemDesc;
  using zkItem::TaxRate;
  using zkItem::TaxVendorRef;
};

}  // namespace brenvale
