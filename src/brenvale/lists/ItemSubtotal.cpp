#include "brenvale/lists/ItemSubtotal.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody = kItemFields.Order(ListBase::Name, ListBase::IsActive, I::ItemDesc);
constexpr auto kRead = ListRead(kItemFields, I::ItemDesc);
// A subtotal's name rules have texts of their own and no error codes.
constexpr Rule kRules[] = {kItemFields.NotEmpty(ListBase::Name, 0, "Name").Message("Name must be entered"),
                           kItemFields.MaxLength(ListBase::Name, 31, 0, "Name").Message("Name length cannot exceed 31"),
                           ItemRules::kNoParent};
constexpr RecordDecl kDecl =
    ItemKind("ItemSubtotal", zqObjectTypeItemSubtotal, kBody, kBody, kRead, kRules, kFlatItemFacts);
}  // namespace

const RecordDecl& ItemSubtotal::Declaration() { return kDecl; }
ItemSubtotal::ItemSubtotal() : zkItem(kDecl, kItemType) {}

}  // namespace brenvale
