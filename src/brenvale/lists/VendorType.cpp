#include "brenvale/lists/VendorType.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {

const RecordSchema& VendorType::StaticSchema() {
  static const RecordSchema schema(
      detail::HierarchicalSimpleList("VendorType", zqObjectTypeVendorType, zqListTypeVendorType));
  return schema;
}

VendorType::VendorType() : HierarchicalRecord(StaticSchema()) {}

}  // namespace brenvale
