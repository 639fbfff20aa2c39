#pragma once
// An inventory part: goods a company counts, with its prices, its accounts and what it has on hand.
// The income account and the opening quantity and value are given when it is added.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemInventory : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeInventory;
  ItemInventory();
  static const RecordDecl& Declaration();
  using zkItem::ManufacturerPartNumber;
  using zkItem::UnitOfMeasureSetRef;
  using zkItem::SalesTaxCodeRef;
  using zkItem::SalesDesc;
  using zkItem::SalesPrice;
  using zkItem::IncomeAccountRef;
  using zkItem::PurchaseDesc;
  using zkItem::PurchaseCost;
  using zkItem::PurchaseTaxCodeRef;
  using zkItem::COGSAccountRef;
  using zkItem::PrefVendorRef;
  using zkItem::AssetAccountRef;
  using zkItem::ReorderPoint;
  using zkItem::QuantityOnHand;
  using zkItem::TotalValue;
  using zkItem::InventoryDate;
  using zkItem::AverageCost;
  using zkItem::QuantityOnOrder;
  using zkItem::QuantityOnSalesOrder;
};

}  // namespace brenvale
