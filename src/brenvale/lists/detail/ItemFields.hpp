#pragma once
// The fields of every item kind, in one table: a field has the same id in every kind that has it, so
// the kind-neutral view (zkItem) and the accessors the kinds share read it by that id. Each kind's
// declaration names its own Add, Mod and Read orders and its rules from this table.
#include <array>
#include <span>
#include <string_view>

#include "brenvale/lists/itemFixedAssetSalesInfo.hpp"
#include "brenvale/lists/itemGroupLine.hpp"
#include "brenvale/lists/itemSalesAndPurchase.hpp"
#include "brenvale/lists/itemSalesOrPurchase.hpp"
#include "brenvale/lists/zkItem.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale::detail {

// Fields of the editions that keep tax codes rather than sales tax codes (outside the US): a US
// company's QuickBooks refuses them.
inline bool TaxCodeEdition(const WriteContext& context, const RecordCore&) { return context.UsesTaxCodes(); }

struct ItemField {
  // Services, non-inventory parts, other charges, inventory, assemblies, discounts.
  static constexpr FieldDef ManufacturerPartNumber = field::Text("ManufacturerPartNumber").Since(7, 0);
  static constexpr FieldDef UnitOfMeasureSetRef =
      field::Ref("UnitOfMeasureSetRef", zqListTypeUnitOfMeasureSet).Since(7, 0);
  static constexpr FieldDef SalesTaxCodeRef = field::Ref("SalesTaxCodeRef", zqListTypeSalesTaxCode);
  // One of the two price blocks.
  static constexpr FieldDef SalesOrPurchase =
      field::Aggregate("SalesOrPurchase", &itemSalesOrPurchase::Declaration).InMod("SalesOrPurchaseMod").Choice(1);
  static constexpr FieldDef SalesAndPurchase =
      field::Aggregate("SalesAndPurchase", &itemSalesAndPurchase::Declaration).InMod("SalesAndPurchaseMod").Choice(1);
  static constexpr FieldDef ItemDesc = field::Text("ItemDesc");
  // Inventory and assemblies (the purchase side also of fixed assets). What is given only when the
  // item is added cannot change once it exists.
  static constexpr FieldDef SalesDesc = field::Text("SalesDesc");
  static constexpr FieldDef SalesPrice = field::Price("SalesPrice");
  static constexpr FieldDef IncomeAccountRef = field::Ref("IncomeAccountRef", zqListTypeAccount).FixedAfterAdd();
  static constexpr FieldDef PurchaseDesc = field::Text("PurchaseDesc");
  static constexpr FieldDef PurchaseCost = field::Price("PurchaseCost");
  static constexpr FieldDef PurchaseTaxCodeRef =
      field::Ref("PurchaseTaxCodeRef", zqListTypeSalesTaxCode).When(TaxCodeEdition);
  static constexpr FieldDef COGSAccountRef = field::Ref("COGSAccountRef", zqListTypeAccount);
  static constexpr FieldDef PrefVendorRef = field::Ref("PrefVendorRef", zqListTypeVendor);
  static constexpr FieldDef AssetAccountRef = field::Ref("AssetAccountRef", zqListTypeAccount);
  static constexpr FieldDef ReorderPoint = field::Quantity("ReorderPoint");
  static constexpr FieldDef BuildPoint = field::Quantity("BuildPoint");
  static constexpr FieldDef QuantityOnHand = field::Quantity("QuantityOnHand").FixedAfterAdd();
  static constexpr FieldDef TotalValue = field::Amount("TotalValue").FixedAfterAdd();
  static constexpr FieldDef InventoryDate = field::Date("InventoryDate").FixedAfterAdd();
  static constexpr FieldDef AverageCost = field::Price("AverageCost");
  static constexpr FieldDef QuantityOnOrder = field::Quantity("QuantityOnOrder");
  static constexpr FieldDef QuantityOnSalesOrder = field::Quantity("QuantityOnSalesOrder");
  static constexpr FieldDef AssemblyLines =
      field::Children("ItemInventoryAssemblyLine", &itemGroupLine::AssemblyForm).ClearedBy("ClearItemsInGroup");
  // Discounts: a rate or a percentage.
  static constexpr FieldDef DiscountRate = field::Price("DiscountRate").Choice(2);
  static constexpr FieldDef DiscountRatePercent = field::Price("DiscountRatePercent").Choice(2);
  static constexpr FieldDef AccountRef = field::Ref("AccountRef", zqListTypeAccount);
  static constexpr FieldDef TaxCodeRef = field::Ref("TaxCodeRef", zqListTypeTaxCode);
  // Payments.
  static constexpr FieldDef DepositToAccountRef = field::Ref("DepositToAccountRef", zqListTypeAccount);
  static constexpr FieldDef PaymentMethodRef = field::Ref("PaymentMethodRef", zqListTypePaymentMethod);
  // Sales tax items and their groups.
  static constexpr FieldDef TaxRate = field::Price("TaxRate");
  static constexpr FieldDef TaxVendorRef = field::Ref("TaxVendorRef", zqListTypeVendor);
  static constexpr FieldDef SalesTaxLines = field::Children("ItemSalesTaxRef", &itemGroupLine::SalesTaxForm);
  // Groups.
  static constexpr FieldDef IsPrintItemsInGroup = field::Bool("IsPrintItemsInGroup");
  static constexpr FieldDef GroupLines =
      field::Children("ItemGroupLine", &itemGroupLine::GroupForm).ClearedBy("ClearItemsInGroup");
  // Fixed assets.
  static constexpr FieldDef AcquiredAs = field::Text("AcquiredAs").Default("New");
  static constexpr FieldDef PurchaseDate = field::Date("PurchaseDate");
  static constexpr FieldDef VendorOrPayeeName = field::Text("VendorOrPayeeName");
  static constexpr FieldDef FixedAssetSalesInfo =
      field::Aggregate("FixedAssetSalesInfo", &itemFixedAssetSalesInfo::Declaration).InMod("FixedAssetSalesInfoMod");
  static constexpr FieldDef AssetDesc = field::Text("AssetDesc");
  static constexpr FieldDef Location = field::Text("Location");
  static constexpr FieldDef PONumber = field::Text("PONumber");
  static constexpr FieldDef SerialNumber = field::Text("SerialNumber");
  static constexpr FieldDef WarrantyExpDate = field::Date("WarrantyExpDate");
  static constexpr FieldDef Notes = field::Text("Notes");
  static constexpr FieldDef AssetNumber = field::Text("AssetNumber");
  static constexpr FieldDef CostBasis = field::Amount("CostBasis");
  static constexpr FieldDef YearEndAccumulatedDepreciation = field::Amount("YearEndAccumulatedDepreciation");
  static constexpr FieldDef YearEndBookValue = field::Amount("YearEndBookValue");
};

using I = ItemField;
inline constexpr auto kItemFields = ListFields(
    I::ManufacturerPartNumber, I::UnitOfMeasureSetRef, I::SalesTaxCodeRef, I::SalesOrPurchase, I::SalesAndPurchase,
    I::ItemDesc, I::SalesDesc, I::SalesPrice, I::IncomeAccountRef, I::PurchaseDesc, I::PurchaseCost,
    I::PurchaseTaxCodeRef, I::COGSAccountRef, I::PrefVendorRef, I::AssetAccountRef, I::ReorderPoint, I::BuildPoint,
    I::QuantityOnHand, I::TotalValue, I::InventoryDate, I::AverageCost, I::QuantityOnOrder, I::QuantityOnSalesOrder,
    I::AssemblyLines, I::DiscountRate, I::DiscountRatePercent, I::AccountRef, I::TaxCodeRef, I::DepositToAccountRef,
    I::PaymentMethodRef, I::TaxRate, I::TaxVendorRef, I::SalesTaxLines, I::IsPrintItemsInGroup, I::GroupLines,
    I::AcquiredAs, I::PurchaseDate, I::VendorOrPayeeName, I::FixedAssetSalesInfo, I::AssetDesc, I::Location,
    I::PONumber, I::SerialNumber, I::WarrantyExpDate, I::Notes, I::AssetNumber, I::CostBasis,
    I::YearEndAccumulatedDepreciation, I::YearEndBookValue);

// The id of an item field.
consteval FieldId ItemId(const FieldDef& f) { return kItemFields.Id(f); }

// The kinds that carry a parent form a hierarchy; the others stand alone. The item list's own facts
// (ItemQuery pages through iterators) serve the collection of every kind.
inline constexpr ListFacts kItemFacts{
    .listType = zqListTypeItem, .hierarchical = true, .key = ListKey::FullName, .iterates = true};
inline constexpr ListFacts kFlatItemFacts{.listType = zqListTypeItem, .key = ListKey::FullName, .iterates = true};

// The name every item kind requires (1012, else 1013).
inline constexpr Rule kItemNameRequired = kItemFields.NotEmpty(ListBase::Name, 1012, "Name");
inline constexpr Rule kItemNameLength = kItemFields.MaxLength(ListBase::Name, 31, 1013, "Name");

// The parent, which must be an item (1010) of the same kind (1104); `rets` names the kind's Ret.
consteval Rule SameKindParent(std::span<const std::string_view> rets) {
  return kItemFields.Exists(ListBase::ParentRef, 1010, "Parent").UncheckedFails().OfKinds(rets, 1104);
}

// The rules of a kind with a price block (services, non-inventory parts, other charges): the name,
// the parent of the same kind, the sales tax code (1015), then each block's own (1014, 1016).
consteval std::array<Rule, 6> BlockItemRules(std::span<const std::string_view> rets) {
  return {kItemNameRequired,
          kItemNameLength,
          SameKindParent(rets),
          kItemFields.Exists(I::SalesTaxCodeRef, 1015, "SalesTaxCode"),
          kItemFields.NestedRules(I::SalesOrPurchase),
          kItemFields.NestedRules(I::SalesAndPurchase)};
}

// The rules of inventory and assemblies: the name, the accounts (1014), the sales tax code (1015),
// the parent of the same kind, the preferred vendor (1016), then an assembly's components.
consteval std::array<Rule, 9> InventoryRules(std::span<const std::string_view> rets) {
  return {kItemNameRequired,
          kItemNameLength,
          kItemFields.Exists(I::COGSAccountRef, 1014, "COGSAccount"),
          kItemFields.Exists(I::IncomeAccountRef, 1014, "Income"),
          kItemFields.Exists(I::AssetAccountRef, 1014, "AssetAccount"),
          kItemFields.Exists(I::SalesTaxCodeRef, 1015, "SalesTaxCode"),
          SameKindParent(rets),
          kItemFields.Exists(I::PrefVendorRef, 1016, "Vendor"),
          kItemFields.NestedRules(I::AssemblyLines)};
}

struct ItemRules {
  // A kind that stands alone takes no parent (1010).
  static constexpr Rule kNoParent = rule::Own<&zkItem::CheckNoParent>();
};

// An item kind: its request names, orders, rules and facts.
constexpr RecordDecl ItemKind(std::string_view xmlName, zqEnumListObjectType type, std::span<const FieldId> add,
                              std::span<const FieldId> mod, std::span<const FieldId> read, std::span<const Rule> rules,
                              const ListFacts& facts, std::string_view label = "Item") {
  return RecordDecl{.label = label,
                    .xmlName = xmlName,
                    .objectType = type,
                    .fields = kItemFields.fields,
                    .add = add,
                    .mod = mod,
                    .read = read,
                    .rules = rules,
                    .list = &facts,
                    .dataExt = true};
}

}  // namespace brenvale::detail
