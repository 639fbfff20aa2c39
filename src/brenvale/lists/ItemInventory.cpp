#include "brenvale/lists/ItemInventory.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kAdd = kItemFields.Order(
    ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::ManufacturerPartNumber, I::UnitOfMeasureSetRef,
    I::SalesTaxCodeRef, I::SalesDesc, I::SalesPrice, I::IncomeAccountRef, I::PurchaseDesc, I::PurchaseCost,
    I::PurchaseTaxCodeRef, I::COGSAccountRef, I::PrefVendorRef, I::AssetAccountRef, I::ReorderPoint, I::QuantityOnHand,
    I::TotalValue, I::InventoryDate);
// The income account and the opening quantity, value and date are given when the item is added.
constexpr auto kMod = kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef,
                                        I::ManufacturerPartNumber, I::UnitOfMeasureSetRef, I::SalesTaxCodeRef,
                                        I::SalesDesc, I::SalesPrice, I::PurchaseDesc, I::PurchaseCost,
                                        I::PurchaseTaxCodeRef, I::COGSAccountRef, I::PrefVendorRef, I::AssetAccountRef,
                                        I::ReorderPoint);
constexpr auto kRead = ListRead(kItemFields, I::ManufacturerPartNumber, I::UnitOfMeasureSetRef, I::SalesTaxCodeRef,
                                I::SalesDesc, I::SalesPrice, I::IncomeAccountRef, I::PurchaseDesc, I::PurchaseCost,
                                I::PurchaseTaxCodeRef, I::COGSAccountRef, I::PrefVendorRef, I::AssetAccountRef,
                                I::ReorderPoint, I::QuantityOnHand, I::AverageCost, I::QuantityOnOrder,
                                I::QuantityOnSalesOrder);
constexpr std::string_view kRets[] = {"ItemInventoryRet"};
constexpr auto kRules = InventoryRules(kRets);
constexpr RecordDecl kDecl = ItemKind("ItemInventory", zqObjectTypeItemInventory, kAdd, kMod, kRead, kRules, kItemFacts);
}  // namespace

const RecordDecl& ItemInventory::Declaration() { return kDecl; }
ItemInventory::ItemInventory() : zkItem(kDecl, kItemType) {}

}  // namespace brenvale
