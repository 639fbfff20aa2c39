#include "brenvale/lists/ItemService.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody = kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::UnitOfMeasureSetRef,
                                         I::SalesTaxCodeRef, I::SalesOrPurchase, I::SalesAndPurchase);
constexpr auto kRead =
    ListRead(kItemFields, I::UnitOfMeasureSetRef, I::SalesTaxCodeRef, I::SalesOrPurchase, I::SalesAndPurchase);
constexpr std::string_view kRets[] = {"ItemServiceRet"};
constexpr auto kRules = BlockItemRules(kRets);
// A modify writes the block held in its modify form.
constexpr RecordDecl kDecl = ItemKind("ItemService", zqObjectTypeItemService, kBody, kBody, kRead, kRules, kItemFacts);
}  // namespace

const RecordDecl& ItemService::Declaration() { return kDecl; }
ItemService::ItemService() : zkItem(kDecl, kItemType) {}

}  // namespace brenvale
