#include "brenvale/lists/ItemOtherCharge.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kAdd = kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::SalesTaxCodeRef,
                                        I::SalesOrPurchase, I::SalesAndPurchase);
// The sales tax code is given when the item is added.
constexpr auto kMod =
    kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::SalesOrPurchase, I::SalesAndPurchase);
constexpr auto kRead = ListRead(kItemFields, I::SalesTaxCodeRef, I::SalesOrPurchase, I::SalesAndPurchase);
constexpr std::string_view kRets[] = {"ItemOtherChargeRet"};
constexpr auto kRules = BlockItemRules(kRets);
constexpr RecordDecl kDecl =
    ItemKind("ItemOtherCharge", zqObjectTypeItemOtherCharge, kAdd, kMod, kRead, kRules, kItemFacts);
}  // namespace

const RecordDecl& ItemOtherCharge::Declaration() { return kDecl; }
ItemOtherCharge::ItemOtherCharge() : zkItem(kDecl, kItemType) {}

void ItemOtherCharge::BeforeSet(FieldId id) {
  if (id == ItemId(I::SalesTaxCodeRef)) return MarkChanged(true);
  zkItem::BeforeSet(id);
}

}  // namespace brenvale
