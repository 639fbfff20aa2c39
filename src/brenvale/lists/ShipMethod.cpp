#include "brenvale/lists/ShipMethod.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {

const RecordSchema& ShipMethod::StaticSchema() {
  static const RecordSchema schema(detail::FlatSimpleList("ShipMethod", "ShipMethod", zqObjectTypeShipMethod,
                                                          zqListTypeShipMethod, "Modify not allowed"));
  return schema;
}

ShipMethod::ShipMethod() : ListRecord(StaticSchema()) {}

}  // namespace brenvale
