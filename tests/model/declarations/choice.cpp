// Refused: the fields of a choice apart in an order.
// expect: the fields of a choice stand together in an order
#include "brenvale/model/ListRecord.hpp"

namespace {
using namespace brenvale;
struct F {
  static constexpr FieldDef Rate = field::Price("Rate").Choice(1);
  static constexpr FieldDef Desc = field::Text("Desc");
  static constexpr FieldDef RatePercent = field::Price("RatePercent").Choice(1);
};
constexpr auto kFields = ListFields(F::Rate, F::Desc, F::RatePercent);
constexpr auto kAdd = kFields.Order(F::Rate, F::Desc, F::RatePercent);
}  // namespace
