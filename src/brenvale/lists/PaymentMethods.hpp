#pragma once
#include "brenvale/lists/PaymentMethod.hpp"
#include "brenvale/lists/detail/NamedCollection.hpp"

namespace brenvale {

class PaymentMethods : public detail::NamedCollection<PaymentMethod> {
 public:
  using NamedCollection::NamedCollection;
};

}  // namespace brenvale
