#include "brenvale/lists/JobType.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
constexpr ListFacts kFacts{.listType = zqListTypeJobType, .hierarchical = true, .key = ListKey::FullName};
constexpr RecordDecl kDecl = detail::HierarchicalList("JobType", zqObjectTypeJobType, kFacts);
}  // namespace

const RecordDecl& JobType::Declaration() { return kDecl; }

}  // namespace brenvale
