#include "brenvale/lists/CustomerType.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {

const RecordSchema& CustomerType::StaticSchema() {
  static const RecordSchema schema(
      detail::HierarchicalSimpleList("CustomerType", zqObjectTypeCustomerType, zqListTypeCustomerType));
  return schema;
}

CustomerType::CustomerType() : HierarchicalRecord(StaticSchema()) {}

}  // namespace brenvale
