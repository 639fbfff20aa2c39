#include "brenvale/lists/CustomerType.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
constexpr ListFacts kFacts{.listType = zqListTypeCustomerType, .hierarchical = true, .key = ListKey::FullName};
constexpr RecordDecl kDecl = detail::HierarchicalList("CustomerType", zqObjectTypeCustomerType, kFacts);
}  // namespace

const RecordDecl& CustomerType::Declaration() { return kDecl; }

}  // namespace brenvale
