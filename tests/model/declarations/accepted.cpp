// A declaration the compiler takes: the control of the refused ones beside it.
#include "brenvale/model/ListRecord.hpp"

namespace {
using namespace brenvale;
struct F {
  static constexpr FieldDef Notes = field::Text("Notes");
  static constexpr FieldDef Rate = field::Price("Rate").Choice(1);
  static constexpr FieldDef RatePercent = field::Price("RatePercent").Choice(1);
};
constexpr auto kFields = ListFields(F::Notes, F::Rate, F::RatePercent);
constexpr auto kAdd = kFields.Order(ListBase::Name, F::Notes, F::Rate, F::RatePercent);
constexpr Rule kRule = kFields.MaxLength(F::Notes, 4095, 2501, "Notes");
static_assert(kAdd.size() == 4 && kRule.field == kFields.Id(F::Notes));
}  // namespace
