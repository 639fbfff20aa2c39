#include "brenvale/lists/ItemPayment.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody =
    kItemFields.Order(ListBase::Name, ListBase::IsActive, I::ItemDesc, I::DepositToAccountRef, I::PaymentMethodRef);
constexpr auto kRead = ListRead(kItemFields, I::ItemDesc, I::DepositToAccountRef, I::PaymentMethodRef);
constexpr Rule kRules[] = {kItemNameRequired, kItemNameLength, ItemRules::kNoParent};
constexpr RecordDecl kDecl = ItemKind("ItemPayment", zqObjectTypeItemPayment, kBody, kBody, kRead, kRules, kFlatItemFacts);
}  // namespace

const RecordDecl& ItemPayment::Declaration() { return kDecl; }
ItemPayment::ItemPayment() : zkItem(kDecl, kItemType) {}

}  // namespace brenvale
