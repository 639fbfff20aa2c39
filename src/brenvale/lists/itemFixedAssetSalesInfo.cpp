#include "brenvale/lists/itemFixedAssetSalesInfo.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef SalesDesc = field::Text("SalesDesc");
  static constexpr FieldDef SalesDate = field::Date("SalesDate");
  static constexpr FieldDef SalesPrice = field::Price("SalesPrice");
  static constexpr FieldDef SalesExpense = field::Price("SalesExpense");
};
constexpr auto kFields = Fields(F::SalesDesc, F::SalesDate, F::SalesPrice, F::SalesExpense);
constexpr auto kBody = kFields.Order(F::SalesDesc, F::SalesDate, F::SalesPrice, F::SalesExpense);
constexpr RecordDecl kDecl{.label = "itemFixedAssetSalesInfo",
                           .fields = kFields.fields,
                           .add = kBody,
                           .mod = kBody,
                           .read = kBody,
                           .make = [](const RecordDecl&) -> RecordCore* { return new itemFixedAssetSalesInfo(); }};
}  // namespace

const RecordDecl& itemFixedAssetSalesInfo::Declaration() { return kDecl; }

std::string itemFixedAssetSalesInfo::SalesDesc() const { return Text(kFields.Id(F::SalesDesc)); }
void itemFixedAssetSalesInfo::SalesDesc(std::string_view value) { SetText(kFields.Id(F::SalesDesc), value); }
Date itemFixedAssetSalesInfo::SalesDate() const { return DateValue(kFields.Id(F::SalesDate)); }
void itemFixedAssetSalesInfo::SalesDate(Date value) { SetDate(kFields.Id(F::SalesDate), value); }
double itemFixedAssetSalesInfo::SalesPrice() const { return Number(kFields.Id(F::SalesPrice)); }
void itemFixedAssetSalesInfo::SalesPrice(double value) { SetNumber(kFields.Id(F::SalesPrice), value); }
double itemFixedAssetSalesInfo::SalesExpense() const { return Number(kFields.Id(F::SalesExpense)); }
void itemFixedAssetSalesInfo::SalesExpense(double value) { SetNumber(kFields.Id(F::SalesExpense), value); }

}  // namespace brenvale
