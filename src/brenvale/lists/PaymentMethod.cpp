#include "brenvale/lists/PaymentMethod.hpp"

#include "brenvale/lists/detail/SimpleLists.hpp"

namespace brenvale {
namespace {
constexpr ListFacts kFacts{.listType = zqListTypePaymentMethod};
constexpr RecordDecl kDecl =
    detail::FlatList("PaymentMethod", "PaymentMethod", zqObjectTypePaymentMethod, detail::kNameRules, kFacts);
}  // namespace

const RecordDecl& PaymentMethod::Declaration() { return kDecl; }

}  // namespace brenvale
