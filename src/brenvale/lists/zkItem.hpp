#pragma once
// Any item, whatever its kind: what a transaction line needs of the item it sells or buys — its type,
// its sales and purchase descriptions and costs (and whether a cost is a percentage), its sales tax
// code, whether it is bought as well as sold and whether it names an expense account — read the same
// way from every kind. The twelve item kinds derive from it, and its declaration describes the item
// list: the collection of every kind (Items) queries it with ItemQuery.
//
// Every item field has one accessor here, protected; each kind makes public those it has.
#include <string>
#include <string_view>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/lists/itemFixedAssetSalesInfo.hpp"
#include "brenvale/lists/itemSalesAndPurchase.hpp"
#include "brenvale/lists/itemSalesOrPurchase.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

namespace detail {
struct ItemRules;
}

class zkItem : public HierarchicalRecord {
 public:
  // The item list: its query, its label ("Item") and its facts.
  static const RecordDecl& Declaration();

  qbEnumItemType ItemType() const { return type_; }
  // A subtotal, group, discount, payment or sales tax item has one description for both.
  std::string SalesDescription() const;
  std::string PurchaseDescription() const;
  // The price the item sells for (a discount's or a sales tax item's rate), and what it costs.
  double SalesCost() const;
  double PurchaseCost() const;
  bool SalesCostIsPercent() const;
  bool PurchaseCostIsPercent() const;
  std::string SalesTaxCode() const;
  // In editions that keep tax codes (outside the US): the codes of sales and of purchases.
  std::string TaxCodeForSale() const;
  std::string TaxCodeForPurchase() const;
  // Inventory and assemblies are both sold and bought; a service, non-inventory part or other charge
  // when it holds the sales-and-purchase block.
  bool HasSalesAndPurchase() const;
  // Whether the item names an account its purchases are expensed to.
  bool ContainsExpenseAccount() const;
  using ListRecord::ObjectState;
  void ObjectState(zqEnumObjectState state) { SetState(state); }

 protected:
  zkItem(const RecordDecl& decl, qbEnumItemType type) : HierarchicalRecord(decl), type_(type) {}

  // The price blocks, made on first use; one of them is held (1003 for the other while the first
  // holds values, until RemoveBlock).
  itemSalesOrPurchase& SalesOrPurchase();
  itemSalesAndPurchase& SalesAndPurchase();
  // Takes out the price block held, so that the other can be given (a modify then sends it).
  void RemoveBlock();
  itemFixedAssetSalesInfo& FixedAssetSalesInfo();

  std::string ManufacturerPartNumber() const;
  void ManufacturerPartNumber(std::string_view value);
  zkListObjectRef UnitOfMeasureSetRef() const;
  void UnitOfMeasureSetRef(std::string_view fullName);
  zkListObjectRef SalesTaxCodeRef() const;
  void SalesTaxCodeRef(std::string_view fullName);
  std::string ItemDesc() const;
  void ItemDesc(std::string_view value);
  std::string SalesDesc() const;
  void SalesDesc(std::string_view value);
  double SalesPrice() const;
  void SalesPrice(double value);
  zkListObjectRef IncomeAccountRef() const;
  void IncomeAccountRef(std::string_view fullName);
  std::string PurchaseDesc() const;
  void PurchaseDesc(std::string_view value);
  void PurchaseCost(double value);
  zkListObjectRef PurchaseTaxCodeRef() const;
  void PurchaseTaxCodeRef(std::string_view fullName);
  zkListObjectRef COGSAccountRef() const;
  void COGSAccountRef(std::string_view fullName);
  zkListObjectRef PrefVendorRef() const;
  void PrefVendorRef(std::string_view fullName);
  zkListObjectRef AssetAccountRef() const;
  void AssetAccountRef(std::string_view fullName);
  double ReorderPoint() const;
  void ReorderPoint(double value);
  double BuildPoint() const;
  void BuildPoint(double value);
  double QuantityOnHand() const;
  void QuantityOnHand(double value);
  Currency TotalValue() const;
  void TotalValue(Currency value);
  Date InventoryDate() const;
  void InventoryDate(Date value);
  double AverageCost() const;
  double QuantityOnOrder() const;
  double QuantityOnSalesOrder() const;
  double DiscountRate() const;
  void DiscountRate(double value);
  double DiscountRatePercent() const;
  void DiscountRatePercent(double value);
  zkListObjectRef AccountRef() const;
  void AccountRef(std::string_view fullName);
  zkListObjectRef TaxCodeRef() const;
  zkListObjectRef DepositToAccountRef() const;
  void DepositToAccountRef(std::string_view fullName);
  zkListObjectRef PaymentMethodRef() const;
  void PaymentMethodRef(std::string_view fullName);
  double TaxRate() const;
  void TaxRate(double value);
  zkListObjectRef TaxVendorRef() const;
  void TaxVendorRef(std::string_view fullName);
  bool IsPrintItemsInGroup() const;
  void IsPrintItemsInGroup(bool value);
  Date PurchaseDate() const;
  void PurchaseDate(Date value);
  std::string VendorOrPayeeName() const;
  void VendorOrPayeeName(std::string_view value);
  std::string AssetDesc() const;
  void AssetDesc(std::string_view value);
  std::string Location() const;
  void Location(std::string_view value);
  std::string PONumber() const;
  void PONumber(std::string_view value);
  std::string SerialNumber() const;
  void SerialNumber(std::string_view value);
  Date WarrantyExpDate() const;
  void WarrantyExpDate(Date value);
  std::string Notes() const;
  void Notes(std::string_view value);
  std::string AssetNumber() const;
  void AssetNumber(std::string_view value);
  Currency CostBasis() const;
  void CostBasis(Currency value);
  Currency YearEndAccumulatedDepreciation() const;
  void YearEndAccumulatedDepreciation(Currency value);
  Currency YearEndBookValue() const;
  void YearEndBookValue(Currency value);

  // A kind that stands alone takes no parent (1010).
  void CheckNoParent(zkErrors& errors, ValidateContext& context);

 private:
  // The price block or sales information held with values, or null.
  const itemSalesOrPurchase* HeldSalesOrPurchase() const;
  const itemSalesAndPurchase* HeldSalesAndPurchase() const;
  const itemFixedAssetSalesInfo* HeldSalesInfo() const;
  friend struct detail::ItemRules;

  qbEnumItemType type_;
};

}  // namespace brenvale
