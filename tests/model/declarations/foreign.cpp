// Refused: an order that names a field outside the kind's table.
// expect: the field is not in this kind's table
#include "brenvale/model/ListRecord.hpp"

namespace {
using namespace brenvale;
struct F {
  static constexpr FieldDef Notes = field::Text("Notes");
  static constexpr FieldDef Elsewhere = field::Text("Elsewhere");
};
constexpr auto kFields = ListFields(F::Notes);
constexpr auto kAdd = kFields.Order(ListBase::Name, F::Elsewhere);
}  // namespace
