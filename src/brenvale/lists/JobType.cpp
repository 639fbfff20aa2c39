#include "brenvale/lists/JobType.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {

const RecordSchema& JobType::StaticSchema() {
  static const RecordSchema schema(detail::HierarchicalSimpleList("JobType", zqObjectTypeJobType, zqListTypeJobType));
  return schema;
}

JobType::JobType() : HierarchicalRecord(StaticSchema()) {}

}  // namespace brenvale
