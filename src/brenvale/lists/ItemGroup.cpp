#include "brenvale/lists/ItemGroup.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody =
    kItemFields.Order(ListBase::Name, ListBase::IsActive, I::ItemDesc, I::IsPrintItemsInGroup, I::GroupLines);
constexpr auto kRead = ListRead(kItemFields, I::ItemDesc, I::IsPrintItemsInGroup, I::GroupLines);
constexpr Rule kRules[] = {kItemNameRequired, kItemNameLength, ItemRules::kNoParent,
                           kItemFields.NestedRules(I::GroupLines)};
constexpr RecordDecl kDecl = ItemKind("ItemGroup", zqObjectTypeItemGroup, kBody, kBody, kRead, kRules, kFlatItemFacts);
}  // namespace

const RecordDecl& ItemGroup::Declaration() { return kDecl; }
ItemGroup::ItemGroup() : zkItem(kDecl, kItemType) {}
itemGroupLines ItemGroup::GroupLines() { return itemGroupLines(ChildrenOf(ItemId(I::GroupLines))); }

}  // namespace brenvale
