#include "brenvale/lists/Class.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
constexpr ListFacts kFacts{.listType = zqListTypeClass, .hierarchical = true, .key = ListKey::FullName};
constexpr RecordDecl kDecl = detail::HierarchicalList("Class", zqObjectTypeClass, kFacts);
}  // namespace

const RecordDecl& Class::Declaration() { return kDecl; }

}  // namespace brenvale
