#include "brenvale/lists/ShipMethod.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
constexpr ListFacts kFacts{.listType = zqListTypeShipMethod};
constexpr RecordDecl kDecl =
    detail::FlatList("ShipMethod", "ShipMethod", zqObjectTypeShipMethod, detail::kNameRules, kFacts);
}  // namespace

const RecordDecl& ShipMethod::Declaration() { return kDecl; }

}  // namespace brenvale
