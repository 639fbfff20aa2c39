#pragma once
// A payment item: money received on a sale, deposited to an account or held as undeposited funds.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemPayment : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypePayment;
  ItemPayment();
  static const RecordDecl& Declaration();
  using zkItem::ItemDesc;
  using zkItem::DepositToAccountRef;
  using zkItem::PaymentMethodRef;
};

}  // namespace brenvale
