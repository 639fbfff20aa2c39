// Refused: a field twice in an order.
// expect: a field appears twice in an order
#include "brenvale/model/ListRecord.hpp"

namespace {
using namespace brenvale;
struct F {
  static constexpr FieldDef Notes = field::Text("Notes");
};
constexpr auto kFields = ListFields(F::Notes);
constexpr auto kAdd = kFields.Order(ListBase::Name, F::Notes, F::Notes);
}  // namespace
