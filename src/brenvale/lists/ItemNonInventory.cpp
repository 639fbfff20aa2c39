#include "brenvale/lists/ItemNonInventory.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody =
    kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::ManufacturerPartNumber,
                      I::UnitOfMeasureSetRef, I::SalesTaxCodeRef, I::SalesOrPurchase, I::SalesAndPurchase);
constexpr auto kRead = ListRead(kItemFields, I::ManufacturerPartNumber, I::UnitOfMeasureSetRef, I::SalesTaxCodeRef,
                                I::SalesOrPurchase, I::SalesAndPurchase);
constexpr std::string_view kRets[] = {"ItemNonInventoryRet"};
constexpr auto kRules = BlockItemRules(kRets);
constexpr RecordDecl kDecl =
    ItemKind("ItemNonInventory", zqObjectTypeItemNonInventory, kBody, kBody, kRead, kRules, kItemFacts);
}  // namespace

const RecordDecl& ItemNonInventory::Declaration() { return kDecl; }
ItemNonInventory::ItemNonInventory() : zkItem(kDecl, kItemType) {}

}  // namespace brenvale
