#include "brenvale/lists/CustomerMessage.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
using detail::kBaseOnly;

// A message may be longer than other names.
constexpr Rule kRules[] = {kBaseOnly.NotEmpty(ListBase::Name, 1012, "Name"),
                           kBaseOnly.MaxLength(ListBase::Name, 101, 2400, "Name")};
constexpr ListFacts kFacts{.listType = zqListTypeCustomerMsg, .collectionLabel = "CustomerMsg"};
constexpr RecordDecl kDecl =
    detail::FlatList("CustomerMessage", "CustomerMsg", zqObjectTypeCustomerMsg, kRules, kFacts);
}  // namespace

const RecordDecl& CustomerMessage::Declaration() { return kDecl; }

}  // namespace brenvale
