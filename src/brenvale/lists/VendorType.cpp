#include "brenvale/lists/VendorType.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
constexpr ListFacts kFacts{.listType = zqListTypeVendorType, .hierarchical = true, .key = ListKey::FullName};
constexpr RecordDecl kDecl = detail::HierarchicalList("VendorType", zqObjectTypeVendorType, kFacts);
}  // namespace

const RecordDecl& VendorType::Declaration() { return kDecl; }

}  // namespace brenvale
