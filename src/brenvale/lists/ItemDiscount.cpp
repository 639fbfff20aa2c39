#include "brenvale/lists/ItemDiscount.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody = kItemFields.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef, I::ItemDesc,
                                         I::SalesTaxCodeRef, I::DiscountRate, I::DiscountRatePercent, I::AccountRef);
// Editions outside the US once named a discount's tax code apart.
constexpr auto kRead = ListRead(kItemFields, I::ItemDesc, I::SalesTaxCodeRef, I::DiscountRate, I::DiscountRatePercent,
                                I::AccountRef, I::TaxCodeRef);
constexpr std::string_view kRets[] = {"ItemDiscountRet"};
constexpr Rule kRules[] = {kItemNameRequired, kItemNameLength, SameKindParent(kRets),
                           kItemFields.Exists(I::SalesTaxCodeRef, 1015, ".SalesTaxCode"),
                           kItemFields.Exists(I::AccountRef, 1014, "Account")};
constexpr RecordDecl kDecl =
    ItemKind("ItemDiscount", zqObjectTypeItemDiscount, kBody, kBody, kRead, kRules, kItemFacts, "ItemDiscount");
}  // namespace

const RecordDecl& ItemDiscount::Declaration() { return kDecl; }
ItemDiscount::ItemDiscount() : zkItem(kDecl, kItemType) {}

}  // namespace brenvale
