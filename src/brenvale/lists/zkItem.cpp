#include "brenvale/lists/zkItem.hpp"

#include "brenvale/core/zkErrors.hpp"
#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {

using detail::I;
using detail::ItemId;

namespace {
// What a listing of every kind shows of an item beyond its name.
constexpr auto kListRead = ListRead(detail::kItemFields, I::ItemDesc, I::SalesTaxCodeRef, I::SalesPrice,
                                    I::PurchaseCost, I::QuantityOnHand);
constexpr RecordDecl kDecl{.label = "Item",
                           .xmlName = "Item",
                           .objectType = zqObjectTypeItem,
                           .fields = detail::kItemFields.fields,
                           .read = kListRead,
                           .list = &detail::kItemFacts,
                           .dataExt = true};
}  // namespace

const RecordDecl& zkItem::Declaration() { return kDecl; }

// --- the kind-neutral view: a record holds only the fields of its kind, so the first held answers --

const itemSalesOrPurchase* zkItem::HeldSalesOrPurchase() const {
  const RecordCore* block = FindNested(ItemId(I::SalesOrPurchase));
  return block && block->HoldsAnyValue() ? static_cast<const itemSalesOrPurchase*>(block) : nullptr;
}

const itemSalesAndPurchase* zkItem::HeldSalesAndPurchase() const {
  const RecordCore* block = FindNested(ItemId(I::SalesAndPurchase));
  return block && block->HoldsAnyValue() ? static_cast<const itemSalesAndPurchase*>(block) : nullptr;
}

const itemFixedAssetSalesInfo* zkItem::HeldSalesInfo() const {
  const RecordCore* info = FindNested(ItemId(I::FixedAssetSalesInfo));
  return info && info->HoldsAnyValue() ? static_cast<const itemFixedAssetSalesInfo*>(info) : nullptr;
}

std::string zkItem::SalesDescription() const {
  if (const auto* b = HeldSalesOrPurchase()) return b->Desc();
  if (const auto* b = HeldSalesAndPurchase()) return b->SalesDesc();
  if (const auto* s = HeldSalesInfo()) return s->SalesDesc();
  return Text(Has(ItemId(I::SalesDesc)) ? ItemId(I::SalesDesc) : ItemId(I::ItemDesc));
}

std::string zkItem::PurchaseDescription() const {
  if (const auto* b = HeldSalesOrPurchase()) return b->Desc();
  if (const auto* b = HeldSalesAndPurchase()) return b->PurchaseDesc();
  return Text(Has(ItemId(I::PurchaseDesc)) ? ItemId(I::PurchaseDesc) : ItemId(I::ItemDesc));
}

double zkItem::SalesCost() const {
  if (const auto* b = HeldSalesOrPurchase()) return b->PriceIsPercent() ? b->PricePercent() : b->Price();
  if (const auto* b = HeldSalesAndPurchase()) return b->SalesPrice();
  if (const auto* s = HeldSalesInfo()) return s->SalesPrice();
  for (FieldId id : {ItemId(I::SalesPrice), ItemId(I::DiscountRate), ItemId(I::DiscountRatePercent), ItemId(I::TaxRate)})
    if (Has(id)) return Number(id);
  return 0;
}

double zkItem::PurchaseCost() const {
  if (const auto* b = HeldSalesOrPurchase()) return b->PriceIsPercent() ? b->PricePercent() : b->Price();
  if (const auto* b = HeldSalesAndPurchase()) return b->PurchaseCost();
  for (FieldId id : {ItemId(I::PurchaseCost), ItemId(I::DiscountRate), ItemId(I::DiscountRatePercent)})
    if (Has(id)) return Number(id);
  return 0;
}

bool zkItem::SalesCostIsPercent() const {
  if (const auto* b = HeldSalesOrPurchase()) return b->PriceIsPercent();
  return Has(ItemId(I::DiscountRatePercent)) || Has(ItemId(I::TaxRate));
}

bool zkItem::PurchaseCostIsPercent() const {
  if (const auto* b = HeldSalesOrPurchase()) return b->PriceIsPercent();
  return Has(ItemId(I::DiscountRatePercent));
}

std::string zkItem::SalesTaxCode() const { return std::string(RefFullName(ItemId(I::SalesTaxCodeRef))); }

std::string zkItem::TaxCodeForSale() const {
  // Discounts of older editions outside the US name theirs apart.
  if (Has(ItemId(I::TaxCodeRef))) return std::string(RefFullName(ItemId(I::TaxCodeRef)));
  return SalesTaxCode();
}

std::string zkItem::TaxCodeForPurchase() const {
  if (const auto* b = HeldSalesAndPurchase()) return b->PurchaseTaxCodeRef().FullName();
  return std::string(RefFullName(ItemId(I::PurchaseTaxCodeRef)));
}

bool zkItem::HasSalesAndPurchase() const {
  return type_ == qbItemTypeInventory || type_ == qbItemTypeAssembly || HeldSalesAndPurchase();
}

bool zkItem::ContainsExpenseAccount() const {
  const auto* b = HeldSalesAndPurchase();
  return b && !b->ExpenseAccountRef().FullName().empty();
}

void zkItem::CheckNoParent(zkErrors& errors, ValidateContext&) {
  if (!Parent().empty()) errors.AddCode(1010, "Parent");
}

// --- blocks ---------------------------------------------------------------------------------------

itemSalesOrPurchase& zkItem::SalesOrPurchase() {
  return static_cast<itemSalesOrPurchase&>(Nested(ItemId(I::SalesOrPurchase)));
}
itemSalesAndPurchase& zkItem::SalesAndPurchase() {
  return static_cast<itemSalesAndPurchase&>(Nested(ItemId(I::SalesAndPurchase)));
}
void zkItem::RemoveBlock() {
  for (FieldId id : {ItemId(I::SalesOrPurchase), ItemId(I::SalesAndPurchase)})
    if (Has(id)) Unset(id);
}
itemFixedAssetSalesInfo& zkItem::FixedAssetSalesInfo() {
  return static_cast<itemFixedAssetSalesInfo&>(Nested(ItemId(I::FixedAssetSalesInfo)));
}

// --- the fields ------------------------------------------------------------------------------------

std::string zkItem::ManufacturerPartNumber() const { return Text(ItemId(I::ManufacturerPartNumber)); }
void zkItem::ManufacturerPartNumber(std::string_view value) { SetText(ItemId(I::ManufacturerPartNumber), value); }
zkListObjectRef zkItem::UnitOfMeasureSetRef() const { return Ref(ItemId(I::UnitOfMeasureSetRef)); }
void zkItem::UnitOfMeasureSetRef(std::string_view fullName) { SetRefName(ItemId(I::UnitOfMeasureSetRef), fullName); }
zkListObjectRef zkItem::SalesTaxCodeRef() const { return Ref(ItemId(I::SalesTaxCodeRef)); }
void zkItem::SalesTaxCodeRef(std::string_view fullName) { SetRefName(ItemId(I::SalesTaxCodeRef), fullName); }
std::string zkItem::ItemDesc() const { return Text(ItemId(I::ItemDesc)); }
void zkItem::ItemDesc(std::string_view value) { SetText(ItemId(I::ItemDesc), value); }
std::string zkItem::SalesDesc() const { return Text(ItemId(I::SalesDesc)); }
void zkItem::SalesDesc(std::string_view value) { SetText(ItemId(I::SalesDesc), value); }
double zkItem::SalesPrice() const { return Number(ItemId(I::SalesPrice)); }
void zkItem::SalesPrice(double value) { SetNumber(ItemId(I::SalesPrice), value); }
zkListObjectRef zkItem::IncomeAccountRef() const { return Ref(ItemId(I::IncomeAccountRef)); }
void zkItem::IncomeAccountRef(std::string_view fullName) { SetRefName(ItemId(I::IncomeAccountRef), fullName); }
std::string zkItem::PurchaseDesc() const { return Text(ItemId(I::PurchaseDesc)); }
void zkItem::PurchaseDesc(std::string_view value) { SetText(ItemId(I::PurchaseDesc), value); }
void zkItem::PurchaseCost(double value) { SetNumber(ItemId(I::PurchaseCost), value); }
zkListObjectRef zkItem::PurchaseTaxCodeRef() const { return Ref(ItemId(I::PurchaseTaxCodeRef)); }
void zkItem::PurchaseTaxCodeRef(std::string_view fullName) { SetRefName(ItemId(I::PurchaseTaxCodeRef), fullName); }
zkListObjectRef zkItem::COGSAccountRef() const { return Ref(ItemId(I::COGSAccountRef)); }
void zkItem::COGSAccountRef(std::string_view fullName) { SetRefName(ItemId(I::COGSAccountRef), fullName); }
zkListObjectRef zkItem::PrefVendorRef() const { return Ref(ItemId(I::PrefVendorRef)); }
void zkItem::PrefVendorRef(std::string_view fullName) { SetRefName(ItemId(I::PrefVendorRef), fullName); }
zkListObjectRef zkItem::AssetAccountRef() const { return Ref(ItemId(I::AssetAccountRef)); }
void zkItem::AssetAccountRef(std::string_view fullName) { SetRefName(ItemId(I::AssetAccountRef), fullName); }
double zkItem::ReorderPoint() const { return Number(ItemId(I::ReorderPoint)); }
void zkItem::ReorderPoint(double value) { SetNumber(ItemId(I::ReorderPoint), value); }
double zkItem::BuildPoint() const { return Number(ItemId(I::BuildPoint)); }
void zkItem::BuildPoint(double value) { SetNumber(ItemId(I::BuildPoint), value); }
double zkItem::QuantityOnHand() const { return Number(ItemId(I::QuantityOnHand)); }
void zkItem::QuantityOnHand(double value) { SetNumber(ItemId(I::QuantityOnHand), value); }
Currency zkItem::TotalValue() const { return Amount(ItemId(I::TotalValue)); }
void zkItem::TotalValue(Currency value) { SetAmount(ItemId(I::TotalValue), value); }
Date zkItem::InventoryDate() const { return DateValue(ItemId(I::InventoryDate)); }
void zkItem::InventoryDate(Date value) { SetDate(ItemId(I::InventoryDate), value); }
double zkItem::AverageCost() const { return Number(ItemId(I::AverageCost)); }
double zkItem::QuantityOnOrder() const { return Number(ItemId(I::QuantityOnOrder)); }
double zkItem::QuantityOnSalesOrder() const { return Number(ItemId(I::QuantityOnSalesOrder)); }
double zkItem::DiscountRate() const { return Number(ItemId(I::DiscountRate)); }
void zkItem::DiscountRate(double value) { SetNumber(ItemId(I::DiscountRate), value); }
double zkItem::DiscountRatePercent() const { return Number(ItemId(I::DiscountRatePercent)); }
void zkItem::DiscountRatePercent(double value) { SetNumber(ItemId(I::DiscountRatePercent), value); }
zkListObjectRef zkItem::AccountRef() const { return Ref(ItemId(I::AccountRef)); }
void zkItem::AccountRef(std::string_view fullName) { SetRefName(ItemId(I::AccountRef), fullName); }
zkListObjectRef zkItem::TaxCodeRef() const { return Ref(ItemId(I::TaxCodeRef)); }
zkListObjectRef zkItem::DepositToAccountRef() const { return Ref(ItemId(I::DepositToAccountRef)); }
void zkItem::DepositToAccountRef(std::string_view fullName) { SetRefName(ItemId(I::DepositToAccountRef), fullName); }
zkListObjectRef zkItem::PaymentMethodRef() const { return Ref(ItemId(I::PaymentMethodRef)); }
void zkItem::PaymentMethodRef(std::string_view fullName) { SetRefName(ItemId(I::PaymentMethodRef), fullName); }
double zkItem::TaxRate() const { return Number(ItemId(I::TaxRate)); }
void zkItem::TaxRate(double value) { SetNumber(ItemId(I::TaxRate), value); }
zkListObjectRef zkItem::TaxVendorRef() const { return Ref(ItemId(I::TaxVendorRef)); }
void zkItem::TaxVendorRef(std::string_view fullName) { SetRefName(ItemId(I::TaxVendorRef), fullName); }
bool zkItem::IsPrintItemsInGroup() const { return Bool(ItemId(I::IsPrintItemsInGroup)); }
void zkItem::IsPrintItemsInGroup(bool value) { SetBool(ItemId(I::IsPrintItemsInGroup), value); }
Date zkItem::PurchaseDate() const { return DateValue(ItemId(I::PurchaseDate)); }
void zkItem::PurchaseDate(Date value) { SetDate(ItemId(I::PurchaseDate), value); }
std::string zkItem::VendorOrPayeeName() const { return Text(ItemId(I::VendorOrPayeeName)); }
void zkItem::VendorOrPayeeName(std::string_view value) { SetText(ItemId(I::VendorOrPayeeName), value); }
std::string zkItem::AssetDesc() const { return Text(ItemId(I::AssetDesc)); }
void zkItem::AssetDesc(std::string_view value) { SetText(ItemId(I::AssetDesc), value); }
std::string zkItem::Location() const { return Text(ItemId(I::Location)); }
void zkItem::Location(std::string_view value) { SetText(ItemId(I::Location), value); }
std::string zkItem::PONumber() const { return Text(ItemId(I::PONumber)); }
void zkItem::PONumber(std::string_view value) { SetText(ItemId(I::PONumber), value); }
std::string zkItem::SerialNumber() const { return Text(ItemId(I::SerialNumber)); }
void zkItem::SerialNumber(std::string_view value) { SetText(ItemId(I::SerialNumber), value); }
Date zkItem::WarrantyExpDate() const { return DateValue(ItemId(I::WarrantyExpDate)); }
void zkItem::WarrantyExpDate(Date value) { SetDate(ItemId(I::WarrantyExpDate), value); }
std::string zkItem::Notes() const { return Text(ItemId(I::Notes)); }
void zkItem::Notes(std::string_view value) { SetText(ItemId(I::Notes), value); }
std::string zkItem::AssetNumber() const { return Text(ItemId(I::AssetNumber)); }
void zkItem::AssetNumber(std::string_view value) { SetText(ItemId(I::AssetNumber), value); }
Currency zkItem::CostBasis() const { return Amount(ItemId(I::CostBasis)); }
void zkItem::CostBasis(Currency value) { SetAmount(ItemId(I::CostBasis), value); }
Currency zkItem::YearEndAccumulatedDepreciation() const { return Amount(ItemId(I::YearEndAccumulatedDepreciation)); }
void zkItem::YearEndAccumulatedDepreciation(Currency value) {
  SetAmount(ItemId(I::YearEndAccumulatedDepreciation), value);
}
Currency zkItem::YearEndBookValue() const { return Amount(ItemId(I::YearEndBookValue)); }
void zkItem::YearEndBookValue(Currency value) { SetAmount(ItemId(I::YearEndBookValue), value); }

}  // namespace brenvale
