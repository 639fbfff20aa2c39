#include "brenvale/lists/ItemAssembly.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kAdd = kItemFields.Order(
    ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::UnitOfMeasureSetRef, I::SalesTaxCodeRef, I::SalesDesc,
    I::SalesPrice, I::IncomeAccountRef, I::PurchaseDesc, I::PurchaseCost, I::PurchaseTaxCodeRef, I::COGSAccountRef,
    I::PrefVendorRef, I::AssetAccountRef, I::BuildPoint, I::QuantityOnHand, I::TotalValue, I::InventoryDate,
    I::AssemblyLines);
// As inventory: the income account and the opening quantity, value and date only in an add.
constexpr auto kMod = kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::UnitOfMeasureSetRef,
                                        I::SalesTaxCodeRef, I::SalesDesc, I::SalesPrice, I::PurchaseDesc,
                                        I::PurchaseCost, I::PurchaseTaxCodeRef, I::COGSAccountRef, I::PrefVendorRef,
                                        I::AssetAccountRef, I::BuildPoint, I::AssemblyLines);
constexpr auto kRead = ListRead(kItemFields, I::UnitOfMeasureSetRef, I::SalesTaxCodeRef, I::SalesDesc, I::SalesPrice,
                                I::IncomeAccountRef, I::PurchaseDesc, I::PurchaseCost, I::PurchaseTaxCodeRef,
                                I::COGSAccountRef, I::PrefVendorRef, I::AssetAccountRef, I::BuildPoint,
                                I::QuantityOnHand, I::AverageCost, I::QuantityOnOrder, I::QuantityOnSalesOrder,
                                I::AssemblyLines);
constexpr std::string_view kRets[] = {"ItemInventoryAssemblyRet"};
constexpr auto kRules = InventoryRules(kRets);
constexpr RecordDecl kDecl =
    ItemKind("ItemInventoryAssembly", zqObjectTypeItemInventoryAssembly, kAdd, kMod, kRead, kRules, kItemFacts);
}  // namespace

const RecordDecl& ItemAssembly::Declaration() { return kDecl; }
ItemAssembly::ItemAssembly() : zkItem(kDecl, kItemType) {}
itemGroupLines ItemAssembly::AssemblyLines() { return itemGroupLines(ChildrenOf(ItemId(I::AssemblyLines))); }

}  // namespace brenvale
