#pragma once
// An inventory assembly (qbXML "ItemInventoryAssembly"): an inventory part built from components,
// each an item and its quantity.
#include "brenvale/lists/itemGroupLines.hpp"
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemAssembly : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeAssembly;
  ItemAssembly();
  static const RecordDecl& Declaration();
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
  using zkItem::BuildPoint;
  using zkItem::QuantityOnHand;
  using zkItem::TotalValue;
  using zkItem::InventoryDate;
  using zkItem::AverageCost;
  using zkItem::QuantityOnOrder;
  using zkItem::QuantityOnSalesOrder;
  // The components: lines of an inventory item (or assembly) and its quantity. A modify sends them
  // all; emptied, it takes them all out.
  itemGroupLines AssemblyLines();
};

}  // namespace brenvale
