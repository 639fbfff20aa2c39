#include "brenvale/lists/ItemSalesTax.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody = kItemFields.Order(ListBase::Name, ListBase::IsActive, I::ItemDesc, I::TaxRate, I::TaxVendorRef);
constexpr auto kRead = ListRead(kItemFields, I::ItemDesc, I::TaxRate, I::TaxVendorRef);
constexpr Rule kRules[] = {kItemNameRequired, kItemNameLength, ItemRules::kNoParent,
                           kItemFields.Exists(I::TaxVendorRef, 1016, "Vendor")};
constexpr RecordDecl kDecl =
    ItemKind("ItemSalesTax", zqObjectTypeItemSalesTax, kBody, kBody, kRead, kRules, kFlatItemFacts);
}  // namespace

const RecordDecl& ItemSalesTax::Declaration() { return kDecl; }
ItemSalesTax::ItemSalesTax() : zkItem(kDecl, kItemType) {}

}  // namespace brenvale
