#pragma once
// A fixed asset: what was bought, when and for how much, where it is, and what it was sold for.
#include "brenvale/lists/zkItem.hpp"

namespace brenvale {

class ItemFixedAsset : public zkItem {
 public:
  static constexpr qbEnumItemType kItemType = qbItemTypeFixedAsset;
  ItemFixedAsset();
  static const RecordDecl& Declaration();
  // "New" (while unset) or "Old"; any other text raises 1008.
  std::string AcquiredAs() const;
  void AcquiredAs(std::string_view value);
  using zkItem::PurchaseDesc;
  using zkItem::PurchaseDate;
  using zkItem::PurchaseCost;
  using zkItem::VendorOrPayeeName;
  using zkItem::AssetAccountRef;
  using zkItem::FixedAssetSalesInfo;
  using zkItem::AssetDesc;
  using zkItem::Location;
  using zkItem::PONumber;
  using zkItem::SerialNumber;
  using zkItem::WarrantyExpDate;
  using zkItem::Notes;
  using zkItem::AssetNumber;
  using zkItem::CostBasis;
  using zkItem::YearEndAccumulatedDepreciation;
  using zkItem::YearEndBookValue;
};

}  // namespace brenvale
