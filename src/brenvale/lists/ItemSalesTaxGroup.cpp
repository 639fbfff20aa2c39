#include "brenvale/lists/ItemSalesTaxGroup.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody = kItemFields.Order(ListBase::Name, ListBase::IsActive, I::ItemDesc, I::SalesTaxLines);
constexpr auto kRead = ListRead(kItemFields, I::ItemDesc, I::SalesTaxLines);
constexpr Rule kRules[] = {kItemNameRequired, kItemNameLength, ItemRules::kNoParent,
                           kItemFields.NestedRules(I::SalesTaxLines)};
constexpr RecordDecl kDecl =
    ItemKind("ItemSalesTaxGroup", zqObjectTypeItemSalesTaxGroup, kBody, kBody, kRead, kRules, kFlatItemFacts);
}  // namespace

const RecordDecl& ItemSalesTaxGroup::Declaration() { return kDecl; }
ItemSalesTaxGroup::ItemSalesTaxGroup() : zkItem(kDecl, kItemType) {}
itemGroupLines ItemSalesTaxGroup::GroupLines() { return itemGroupLines(ChildrenOf(ItemId(I::SalesTaxLines))); }

}  // namespace brenvale
