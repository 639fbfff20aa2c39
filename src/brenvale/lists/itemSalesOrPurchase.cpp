#include "brenvale/lists/itemSalesOrPurchase.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef Desc = field::Text("Desc");
  static constexpr FieldDef Price = field::Price("Price").Choice(1);
  static constexpr FieldDef PricePercent = field::Price("PricePercent").Choice(1);
  static constexpr FieldDef AccountRef = field::Ref("AccountRef", zqListTypeAccount).FixedAfterAdd();
};
constexpr auto kFields = Fields(F::Desc, F::Price, F::PricePercent, F::AccountRef);
constexpr auto kAdd = kFields.Order(F::Desc, F::Price, F::PricePercent, F::AccountRef);
constexpr auto kMod = kFields.Order(F::Desc, F::Price, F::PricePercent);
constexpr Rule kRules[] = {kFields.Exists(F::AccountRef, 1014, "Account")};
constexpr RecordDecl kDecl{.label = "itemSalesOrPurchase",
                           .fields = kFields.fields,
                           .add = kAdd,
                           .mod = kMod,
                           .read = kAdd,
                           .rules = kRules,
                           .make = [](const RecordDecl&) -> RecordCore* { return new itemSalesOrPurchase(); }};
}  // namespace

const RecordDecl& itemSalesOrPurchase::Declaration() { return kDecl; }

std::string itemSalesOrPurchase::Desc() const { return Text(kFields.Id(F::Desc)); }
void itemSalesOrPurchase::Desc(std::string_view value) { SetText(kFields.Id(F::Desc), value); }
double itemSalesOrPurchase::Price() const { return Number(kFields.Id(F::Price)); }
void itemSalesOrPurchase::Price(double value) { SetNumber(kFields.Id(F::Price), value); }
double itemSalesOrPurchase::PricePercent() const { return Number(kFields.Id(F::PricePercent)); }
void itemSalesOrPurchase::PricePercent(double value) { SetNumber(kFields.Id(F::PricePercent), value); }
bool itemSalesOrPurchase::PriceIsPercent() const { return Has(kFields.Id(F::PricePercent)); }
zkListObjectRef itemSalesOrPurchase::AccountRef() const { return Ref(kFields.Id(F::AccountRef)); }
void itemSalesOrPurchase::AccountRef(std::string_view fullName) { SetRefName(kFields.Id(F::AccountRef), fullName); }

}  // namespace brenvale
