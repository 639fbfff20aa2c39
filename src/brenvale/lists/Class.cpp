#include "brenvale/lists/Class.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {

const RecordSchema& Class::StaticSchema() {
  static const RecordSchema schema(
      detail::HierarchicalSimpleList("Class", zqObjectTypeClass, zqListTypeClass));
  return schema;
}

Class::Class() : HierarchicalRecord(StaticSchema()) {}

}  // namespace brenvale
