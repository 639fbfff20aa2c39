// Refused: a modify tag on a field that is not an aggregate.
// expect: only an aggregate takes another tag in a modify request
#include "brenvale/model/ListRecord.hpp"

namespace {
using namespace brenvale;
struct F {
  static constexpr FieldDef Notes = field::Text("Notes").InMod("NotesMod");
};
}  // namespace
