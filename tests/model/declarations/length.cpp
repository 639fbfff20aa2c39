// Refused: a length limit on a field that is not a text.
// expect: a length limit is for texts and references
#include "brenvale/model/ListRecord.hpp"

namespace {
using namespace brenvale;
struct F {
  static constexpr FieldDef IsDone = field::Bool("IsDone");
};
constexpr auto kFields = ListFields(F::IsDone);
constexpr Rule kRule = kFields.MaxLength(F::IsDone, 5, 2500, "IsDone");
}  // namespace
