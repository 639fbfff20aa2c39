#include "brenvale/lists/itemSalesAndPurchase.hpp"

#include "brenvale/lists/detail/ItemFields.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef SalesDesc = field::Text("SalesDesc");
  static constexpr FieldDef SalesPrice = field::Price("SalesPrice");
  static constexpr FieldDef IncomeAccountRef = field::Ref("IncomeAccountRef", zqListTypeAccount).FixedAfterAdd();
  static constexpr FieldDef PurchaseDesc = field::Text("PurchaseDesc");
  static constexpr FieldDef PurchaseCost = field::Price("PurchaseCost");
  static constexpr FieldDef PurchaseTaxCodeRef =
      field::Ref("PurchaseTaxCodeRef", zqListTypeSalesTaxCode).When(detail::TaxCodeEdition);
  static constexpr FieldDef ExpenseAccountRef = field::Ref("ExpenseAccountRef", zqListTypeAccount).FixedAfterAdd();
  static constexpr FieldDef PrefVendorRef = field::Ref("PrefVendorRef", zqListTypeVendor);
};
constexpr auto kFields = Fields(F::SalesDesc, F::SalesPrice, F::IncomeAccountRef, F::PurchaseDesc, F::PurchaseCost,
                                F::PurchaseTaxCodeRef, F::ExpenseAccountRef, F::PrefVendorRef);
constexpr auto kAdd = kFields.Order(F::SalesDesc, F::SalesPrice, F::IncomeAccountRef, F::PurchaseDesc, F::PurchaseCost,
                                    F::PurchaseTaxCodeRef, F::ExpenseAccountRef, F::PrefVendorRef);
constexpr auto kMod = kFields.Order(F::SalesDesc, F::SalesPrice, F::PurchaseDesc, F::PurchaseCost, F::PurchaseTaxCodeRef,
                                    F::PrefVendorRef);
constexpr Rule kRules[] = {kFields.Exists(F::IncomeAccountRef, 1014, "IncomeAccount"),
                           kFields.Exists(F::ExpenseAccountRef, 1014, "ExpenseAccount"),
                           kFields.Exists(F::PrefVendorRef, 1016, "Vendor")};
constexpr RecordDecl kDecl{.label = "itemSalesAndPurchase",
                           .fields = kFields.fields,
                           .add = kAdd,
                           .mod = kMod,
                           .read = kAdd,
                           .rules = kRules,
                           .make = [](const RecordDecl&) -> RecordCore* { return new itemSalesAndPurchase(); }};
}  // namespace

const RecordDecl& itemSalesAndPurchase::Declaration() { return kDecl; }

std::string itemSalesAndPurchase::SalesDesc() const { return Text(kFields.Id(F::SalesDesc)); }
void itemSalesAndPurchase::SalesDesc(std::string_view value) { SetText(kFields.Id(F::SalesDesc), value); }
double itemSalesAndPurchase::SalesPrice() const { return Number(kFields.Id(F::SalesPrice)); }
void itemSalesAndPurchase::SalesPrice(double value) { SetNumber(kFields.Id(F::SalesPrice), value); }
zkListObjectRef itemSalesAndPurchase::IncomeAccountRef() const { return Ref(kFields.Id(F::IncomeAccountRef)); }
void itemSalesAndPurchase::IncomeAccountRef(std::string_view fullName) {
  SetRefName(kFields.Id(F::IncomeAccountRef), fullName);
}
std::string itemSalesAndPurchase::PurchaseDesc() const { return Text(kFields.Id(F::PurchaseDesc)); }
void itemSalesAndPurchase::PurchaseDesc(std::string_view value) { SetText(kFields.Id(F::PurchaseDesc), value); }
double itemSalesAndPurchase::PurchaseCost() const { return Number(kFields.Id(F::PurchaseCost)); }
void itemSalesAndPurchase::PurchaseCost(double value) { SetNumber(kFields.Id(F::PurchaseCost), value); }
zkListObjectRef itemSalesAndPurchase::PurchaseTaxCodeRef() const { return Ref(kFields.Id(F::PurchaseTaxCodeRef)); }
void itemSalesAndPurchase::PurchaseTaxCodeRef(std::string_view fullName) {
  SetRefName(kFields.Id(F::PurchaseTaxCodeRef), fullName);
}
zkListObjectRef itemSalesAndPurchase::ExpenseAccountRef() const { return Ref(kFields.Id(F::ExpenseAccountRef)); }
void itemSalesAndPurchase::ExpenseAccountRef(std::string_view fullName) {
  SetRefName(kFields.Id(F::ExpenseAccountRef), fullName);
}
zkListObjectRef itemSalesAndPurchase::PrefVendorRef() const { return Ref(kFields.Id(F::PrefVendorRef)); }
void itemSalesAndPurchase::PrefVendorRef(std::string_view fullName) { SetRefName(kFields.Id(F::PrefVendorRef), fullName); }

}  // namespace brenvale
