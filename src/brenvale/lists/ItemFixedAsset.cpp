#include "brenvale/lists/ItemFixedAsset.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
using namespace detail;
constexpr auto kBody = kItemFields.Order(
    ListBase::Name, ListBase::IsActive, I::AcquiredAs, I::PurchaseDesc, I::PurchaseDate, I::PurchaseCost,
    I::VendorOrPayeeName, I::AssetAccountRef, I::FixedAssetSalesInfo, I::AssetDesc, I::Location, I::PONumber,
    I::SerialNumber, I::WarrantyExpDate, I::Notes, I::AssetNumber, I::CostBasis, I::YearEndAccumulatedDepreciation,
    I::YearEndBookValue);
constexpr auto kRead = ListRead(
    kItemFields, I::AcquiredAs, I::PurchaseDesc, I::PurchaseDate, I::PurchaseCost, I::VendorOrPayeeName,
    I::AssetAccountRef, I::FixedAssetSalesInfo, I::AssetDesc, I::Location, I::PONumber, I::SerialNumber,
    I::WarrantyExpDate, I::Notes, I::AssetNumber, I::CostBasis, I::YearEndAccumulatedDepreciation, I::YearEndBookValue);
// 1105 is a group line's code too; both rules keep it.
constexpr Rule kRules[] = {
    kItemNameRequired,
    kItemNameLength,
    ItemRules::kNoParent,
    kItemFields.Exists(I::AssetAccountRef, 1014, "AssetAccount"),
    kItemFields.NotEmpty(I::PurchaseDate, 1105, "PurchaseDate").Message("Fixed Assets require a purchase date"),
    kItemFields.NotEmpty(I::PurchaseDesc, 1106, "PurchaseDesc")};
// A modify writes the sales information in its modify form.
constexpr RecordDecl kDecl =
    ItemKind("ItemFixedAsset", zqObjectTypeItemFixedAsset, kBody, kBody, kRead, kRules, kFlatItemFacts);
}  // namespace

const RecordDecl& ItemFixedAsset::Declaration() { return kDecl; }
ItemFixedAsset::ItemFixedAsset() : zkItem(kDecl, kItemType) {}

std::string ItemFixedAsset::AcquiredAs() const { return Text(ItemId(I::AcquiredAs)); }
void ItemFixedAsset::AcquiredAs(std::string_view value) {
  if (value != "New" && value != "Old") Raise(1008, "Brenvale");
  SetText(ItemId(I::AcquiredAs), value);
}

}  // namespace brenvale
